#include "engine/document/text_search.h"

#include "engine/document/unit_scan.h"

#include <algorithm>
#include <bit>

namespace quillmarker
{

namespace
{

constexpr std::size_t kNotFound = std::u16string_view::npos;
constexpr std::size_t kBlock = kScanBlock;

CaseVariants Prepared(char16_t unit, MatchCase matchCase)
{
    if (matchCase == MatchCase::No)
        return VariantsOf(unit);
    CaseVariants one;
    one.units[0] = unit;
    one.count = 1;
    return one;
}

// The places that are not used repeat the last variant, so that the scan may compare more of them than there are.
ScanUnits Filled(const CaseVariants& variants)
{
    ScanUnits units = variants.units;
    const auto used = static_cast<std::size_t>(variants.count);
    std::fill(units.begin() + variants.count, units.end(), units[used - 1]);
    return units;
}

bool MayStartAt(std::u16string_view hay, const Needle& needle, std::size_t at)
{
    const ScanUnits first = Filled(needle.First());
    return std::find(first.begin(), first.end(), hay[at]) != first.end() && needle.Matches(hay, at);
}

// Positions [begin, end) are candidates, upwards; the needle fits behind each of them.
template <int Count>
std::size_t ScanUp(std::u16string_view hay, const Needle& needle, std::size_t begin, std::size_t end)
{
    const ScanUnits first = Filled(needle.First());
    const ScanUnits last = Filled(needle.Last());
    const std::size_t lastUnit = needle.Length() - 1;
    std::size_t at = begin;
    for (; end - at >= kBlock; at += kBlock)
    {
        std::uint32_t found = Scan<Count>(hay.data() + at, hay.data() + at + lastUnit, first, last);
        for (; found != 0; found &= found - 1)
        {
            const std::size_t candidate = at + static_cast<std::size_t>(std::countr_zero(found));
            if (needle.Matches(hay, candidate))
                return candidate;
        }
    }
    for (; at < end; ++at)
    {
        if (MayStartAt(hay, needle, at))
            return at;
    }
    return kNotFound;
}

// Positions [0, end) are candidates, downwards.
template <int Count>
std::size_t ScanDown(std::u16string_view hay, const Needle& needle, std::size_t end)
{
    const ScanUnits first = Filled(needle.First());
    const ScanUnits last = Filled(needle.Last());
    const std::size_t lastUnit = needle.Length() - 1;
    for (; end >= kBlock; end -= kBlock)
    {
        const std::size_t at = end - kBlock;
        std::uint32_t found = Scan<Count>(hay.data() + at, hay.data() + at + lastUnit, first, last);
        while (found != 0)
        {
            const int bit = 31 - std::countl_zero(found);
            const std::size_t candidate = at + static_cast<std::size_t>(bit);
            if (needle.Matches(hay, candidate))
                return candidate;
            found ^= std::uint32_t{1} << bit;
        }
    }
    while (end > 0)
    {
        if (MayStartAt(hay, needle, --end))
            return end;
    }
    return kNotFound;
}

int MostVariants(const Needle& needle) { return std::max(needle.First().count, needle.Last().count); }

}  // namespace

Needle::Needle(std::u16string_view text, MatchCase matchCase)
    : m_text(matchCase == MatchCase::Yes ? std::u16string(text) : Folded(text)), m_matchCase(matchCase)
{
    if (m_text.empty())
        return;
    m_first = Prepared(m_text.front(), matchCase);
    m_last = Prepared(m_text.back(), matchCase);
}

bool Needle::Matches(std::u16string_view hay, std::size_t at) const
{
    const std::u16string_view part = hay.substr(at, m_text.size());
    if (m_matchCase == MatchCase::Yes)
        return part == m_text;
    return std::equal(part.begin(), part.end(), m_text.begin(), m_text.end(),
                      [](char16_t inHay, char16_t folded) { return inHay == folded || Fold(inHay) == folded; });
}

std::size_t FindFirst(std::u16string_view hay, const Needle& needle, std::size_t from)
{
    const std::size_t length = needle.Length();
    if (length == 0 || hay.size() < length || from > hay.size() - length)
        return kNotFound;
    const std::size_t end = hay.size() - length + 1;
    switch (MostVariants(needle))
    {
    case 1:
        return ScanUp<1>(hay, needle, from, end);
    case 2:
        return ScanUp<2>(hay, needle, from, end);
    default:
        return ScanUp<4>(hay, needle, from, end);
    }
}

std::size_t FindLast(std::u16string_view hay, const Needle& needle, std::size_t endLimit)
{
    const std::size_t length = needle.Length();
    const std::size_t limit = std::min(endLimit, hay.size());
    if (length == 0 || limit < length)
        return kNotFound;
    const std::size_t end = limit - length + 1;
    switch (MostVariants(needle))
    {
    case 1:
        return ScanDown<1>(hay, needle, end);
    case 2:
        return ScanDown<2>(hay, needle, end);
    default:
        return ScanDown<4>(hay, needle, end);
    }
}

}  // namespace quillmarker
