#include "round_trip.h"

#include <quillmarker/rtf.h>

#include <algorithm>

namespace quillmarker::tool
{
namespace
{

constexpr std::size_t kMostShown = 300;

/// Where the line begins that holds a place, and where that line ends.
std::size_t LineBegin(std::string_view text, std::size_t place)
{
    const std::size_t before = place == 0 ? text.npos : text.rfind('\n', place - 1);
    return before == text.npos ? 0 : before + 1;
}

std::size_t LineEnd(std::string_view text, std::size_t place) { return std::min(text.find('\n', place), text.size()); }

std::string Shortened(std::string_view line)
{
    return line.size() <= kMostShown ? std::string(line) : std::string(line.substr(0, kMostShown)) + "…";
}

/// The line that holds a place, and in front of it the line that it is indented below.
std::string ParagraphAt(std::string_view text, std::size_t place)
{
    if (place >= text.size())
        return "(nothing)";
    const std::size_t begin = LineBegin(text, place);
    std::size_t head = begin;
    while (head > 0 && text[head] == ' ')
        head = LineBegin(text, head - 1);
    const std::string line = Shortened(text.substr(begin, LineEnd(text, place) - begin));
    return head == begin ? line : Shortened(text.substr(head, LineEnd(text, head) - head)) + "\n        " + line;
}

std::size_t FirstDifferentPlace(std::string_view a, std::string_view b)
{
    const auto [inA, inB] = std::ranges::mismatch(a, b);
    return static_cast<std::size_t>(inA - a.begin());
}

}  // namespace

std::string FirstDifference(std::string_view before, std::string_view after)
{
    const std::size_t place = FirstDifferentPlace(before, after);
    if (place == std::max(before.size(), after.size()))
        return "  the dumps are equal\n";
    return "  before  " + ParagraphAt(before, place) + "\n  after   " + ParagraphAt(after, place) + "\n";
}

std::string RoundTripDifference(std::string_view bytes, const Writer& write)
{
    const Document first = ReadRtf(bytes);
    const std::string written = write(first);
    const Document second = ReadRtf(written);
    if (!SameContent(first, second))
        return "what was written reads otherwise\n" + FirstDifference(Dump(first), Dump(second));
    const std::string again = write(second);
    if (again != written)
        return "written again, the bytes differ from byte " + std::to_string(FirstDifferentPlace(written, again)) +
               " on\n" + FirstDifference(written, again);
    return {};
}

}  // namespace quillmarker::tool
