#pragma once

namespace quillmarker::tool
{

/// The exit code of a process that a signal ended: this and the signal's number, as shells count.
inline constexpr int kEndedBySignal = 128;

/// While it lives, the first Ctrl-C (or request to end) is only noted, so that work begun can be brought to its end;
/// a second one ends the process as ever. One at a time.
class Interruption
{
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// The signal that was noted, or 0.
    static int Signal();
};

}  // namespace quillmarker::tool
