// What the sanitizers are told in programs that use Qt's platforms; without them nobody calls these.

#define SEEN_BY_SANITIZERS extern "C" __attribute__((visibility("default")))

// What the libraries below us leave allocated at the end is theirs.
SEEN_BY_SANITIZERS const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\n"
           "leak:libQt6XcbQpa\n"
           "leak:libdbus\n"
           "leak:libglib\n"
           "leak:libgtk\n"
           "leak:libQt6Gui\n"
           "leak:QScroller::grabGesture\n";
}

// The X keyboard library copies a name to the very end of a message, which the interceptor of strndup takes for a read
// beyond it.
SEEN_BY_SANITIZERS const char* __asan_default_options() { return "intercept_strndup=0"; }
