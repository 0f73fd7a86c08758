#include "progress.h"

#include <algorithm>
#include <cmath>

namespace quillmarker::tool
{
namespace
{

constexpr int kWidestBar = 40;
constexpr int kNarrowestBar = 5;
constexpr double kLongestSeconds = 100 * 3600.0;

/// At least two digits.
std::string Padded(long number) { return (number < 10 ? "0" : "") + std::to_string(number); }

/// "7.3/s", from ten on "42/s".
std::string Rate(double perSecond)
{
    const long tenths = std::lround(perSecond * 10);
    if (tenths >= 100)
        return std::to_string(std::lround(perSecond)) + "/s";
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + "/s";
}

/// Three characters and the sign.
std::string Percent(double part)
{
    const std::string number = std::to_string(static_cast<int>(part * 100));
    return std::string(3 - number.size(), ' ') + number + "%";
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
    const long whole = std::lround(std::max(*seconds, 0.0));
    const std::string inMinute = ":" + Padded(whole % 60);
    if (whole < 3600)
        return std::to_string(whole / 60) + inMinute;
    return std::to_string(whole / 3600) + ":" + Padded(whole / 60 % 60) + inMinute;
}

std::string ProgressLine(const Progress& progress, int columns)
{
    const double rate = progress.seconds > 0 ? static_cast<double>(progress.count) / progress.seconds : 0;
    std::string line = std::to_string(progress.count) + " " + progress.what + ", " + Rate(rate);
    if (progress.part)
    {
        const double part = std::clamp(*progress.part, 0.0, 1.0);
        line = Percent(part) + "  " + line + ", " + Duration(SecondsLeft(progress)) + " left";
        line = Bar(part, columns - static_cast<int>(line.size())) + line;
    }
    return line.substr(0, static_cast<std::size_t>(std::max(columns, 0)));
}

}  // namespace quillmarker::tool
