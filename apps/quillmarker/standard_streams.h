#pragma once

#include <string>
#include <string_view>

namespace quillmarker::tool
{

/// Makes sure that files opened later do not take the place of a standard stream that is closed, and that writing to a
/// stream whose reader has gone does not end the process.
void PrepareStandardStreams();

/// Writes to standard output. Once that failed nothing more is written, and FinishOutput tells.
void Print(std::string_view text);

/// False once that failed: nobody reads what is printed.
bool CanPrint();

/// Writes one line, with the tool's name in front, to standard error.
void Complain(std::string_view message);

/// Writes to standard error as it is, without a line's end: for what is drawn on a terminal.
void WriteToTerminal(std::string_view text);

/// `code`, or kFailed after saying why when standard output could not take everything. A reader that had enough and
/// closed the pipe is no failure.
int FinishOutput(int code);

}  // namespace quillmarker::tool
