#include "progress.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace quillmarker::tool
{
namespace
{

constexpr int kWidestBar = 40;
constexpr int kNarrowestBar = 5;
constexpr double kLongestSeconds = 100 * 3600.0;

template <class... Values>
std::string Formatted(const char* format, Values... values)
{
    char text[64];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

/// "[######------] "; nothing when there is no room for one.
std::string Bar(double part, int columns)
{
    const int width = std::min(columns - 3, kWidestBar);
    if (width < kNarrowestBar)
        return {};
    const int done = static_cast<int>(part * width);
    return "[" + std::string(static_cast<std::size_t>(done), '#') +
           std::string(static_cast<std::size_t>(width - done), '-') + "] ";
}

/// After a first part that says nothing yet about the rest.
std::optional<double> SecondsLeft(const Progress& progress)
{
    if (!progress.part || *progress.part <= 0)
        return std::nullopt;
    return progress.seconds * (1 - *progress.part) / *progress.part;
}

}  // namespace

std::string Duration(std::optional<double> seconds)
{
    if (!seconds || !(*seconds < kLongestSeconds))
        return "?";
    const int whole = static_cast<int>(std::lround(std::max(*seconds, 0.0)));
    if (whole < 3600)
        return Formatted("%d:%02d", whole / 60, whole % 60);
    return Formatted("%d:%02d:%02d", whole / 3600, whole / 60 % 60, whole % 60);
}

std::string ProgressLine(const Progress& progress, int columns)
{
    const double rate = progress.seconds > 0 ? static_cast<double>(progress.reports) / progress.seconds : 0;
    std::string line = Formatted("%lld reports, ", static_cast<long long>(progress.reports)) +
                       Formatted(rate < 10 ? "%.1f/s" : "%.0f/s", rate);
    if (progress.part)
    {
        const double part = std::clamp(*progress.part, 0.0, 1.0);
        line = Formatted("%3.0f%%  ", std::floor(part * 100)) + line + ", " + Duration(SecondsLeft(progress)) + " left";
        line = Bar(part, columns - static_cast<int>(line.size())) + line;
    }
    return line.substr(0, static_cast<std::size_t>(std::max(columns, 0)));
}

}  // namespace quillmarker::tool
