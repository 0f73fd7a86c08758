#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quillmarker::tool
{

/// How far long work has come.
struct Progress
{
    std::int64_t count = 0;           // done, the failed ones too
    double seconds = 0;               // since the start
    std::optional<double> part = {};  // of the work, 0 to 1; empty: nobody knows how much there is
    const char* what = "reports";     // is counted
};

/// One line of at most `columns` characters: a bar, the part done, the count, how many a second, the time left.
/// What does not fit is left out, the bar first.
std::string ProgressLine(const Progress& progress, int columns);

/// "0:07", "12:34", "1:02:03"; "?" when it is not known.
std::string Duration(std::optional<double> seconds);

}  // namespace quillmarker::tool
