#include "line_rules.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace quillmarker
{
namespace
{

bool IsLetter(char16_t unit) { return U_MASK(u_charType(unit)) & U_GC_L_MASK; }

constexpr bool IsIdeograph(char16_t unit) { return unit >= 0x4E00 && unit <= 0x9FFF; }

/// Boundaries that two or three characters prove, in any language, and which nothing behind them depends on.
bool IsCertainBoundary(std::u16string_view text, std::size_t at)
{
    if (text[at - 1] == u' ')
        return at >= 2 && IsLetter(text[at]) && IsLetter(text[at - 2]);
    return IsIdeograph(text[at]) && IsIdeograph(text[at - 1]);
}

std::uint32_t LastCertainBoundary(std::u16string_view text, std::uint32_t offset, std::uint32_t low)
{
    while (offset > low && !IsCertainBoundary(text, offset))
        --offset;
    return offset;
}

}  // namespace

void LineRules::Reach(std::uint32_t offset)
{
    const bool isBefore = m_known.empty() || offset < m_known.front();
    if (!isBefore && offset < m_known.back())
        return;
    const std::uint32_t low = isBefore ? 0 : m_known.back();
    const std::uint32_t start = LastCertainBoundary(m_text, offset, low);
    if (isBefore || start > low)
    {
        m_known.assign(1, start);
        m_rules.Restart(m_text.substr(start));
    }
    const std::uint32_t first = m_known.front();
    while (m_known.back() <= offset && m_known.back() < m_text.size())
        m_known.push_back(first + m_rules.NextBehind(m_known.back() - first));
}

std::uint32_t LineRules::LastUpTo(std::uint32_t offset)
{
    const auto size = static_cast<std::uint32_t>(m_text.size());
    if (offset >= size)
        return size;
    Reach(offset);
    return *std::prev(std::ranges::upper_bound(m_known, offset));
}

std::uint32_t LineRules::NextBehind(std::uint32_t offset)
{
    const auto size = static_cast<std::uint32_t>(m_text.size());
    if (offset >= size)
        return size;
    Reach(offset);
    return *std::ranges::upper_bound(m_known, offset);
}

}  // namespace quillmarker
