#pragma once

// QUILLMARKER_PAGES_EXPORT marks what the pages library shows to a host; everything else stays hidden inside it.

#if defined(QUILLMARKER_STATIC)
#define QUILLMARKER_PAGES_EXPORT
#elif defined(_WIN32)
#if defined(QUILLMARKER_PAGES_BUILDING)
#define QUILLMARKER_PAGES_EXPORT __declspec(dllexport)
#else
#define QUILLMARKER_PAGES_EXPORT __declspec(dllimport)
#endif
#else
#define QUILLMARKER_PAGES_EXPORT __attribute__((visibility("default")))
#endif
