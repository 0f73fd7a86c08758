#include "tab_walk.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

/// Default stops closer than this would make lines of nothing but stops.
constexpr Fine kLeastInterval = 20 * kFinePerTwip;

}  // namespace

TabStop TabWalk::NextStop(Fine x) const
{
    TabStop next;
    const auto found = std::find_if(m_ruler.stops.begin(), m_ruler.stops.end(), [x](const TabStop& stop) {
        return stop.kind != TabKind::Bar && ToFine(stop.position) > x;
    });
    if (found != m_ruler.stops.end())
        next = *found;
    const auto hanging = Twips{static_cast<std::int32_t>(m_ruler.hanging / kFinePerTwip)};
    if (m_ruler.hanging > x && (found == m_ruler.stops.end() || hanging < next.position))
        return {hanging};
    if (found != m_ruler.stops.end())
        return next;
    const Fine interval = std::max(m_ruler.interval, kLeastInterval);
    const Fine steps = (x >= 0 ? x / interval : -((-x - 1) / interval) - 1) + 1;
    return {Twips{static_cast<std::int32_t>(steps * interval / kFinePerTwip)}};
}

void TabWalk::AddTab(std::uint32_t offset)
{
    const Fine x = X();
    if (!m_tabs.empty())
        m_tabs.back().width = PendingWidth();
    TabStop stop = NextStop(x);
    Fine at = ToFine(stop.position);
    // A stop beyond the margin would push its text off the line.
    if (m_ruler.limit > 0 && at > m_ruler.limit)
        at = std::max(x, m_ruler.limit);
    m_tabs.push_back({offset, 0, stop.leader});
    m_from = x;
    m_stop = at;
    m_chunk = 0;
    m_beforePoint = -1;
    m_kind = stop.kind;
}

Fine TabWalk::PendingWidth() const
{
    if (m_tabs.empty())
        return 0;
    const Fine room = m_stop - m_from;
    switch (m_kind)
    {
    case TabKind::Right:
        return std::max<Fine>(room - m_chunk, 0);
    case TabKind::Centre:
        return std::max<Fine>(room - m_chunk / 2, 0);
    case TabKind::Decimal:
        return std::max<Fine>(room - (m_beforePoint < 0 ? m_chunk : m_beforePoint), 0);
    case TabKind::Left:
    case TabKind::Bar:
        break;
    }
    return std::max<Fine>(room, 0);
}

std::vector<ResolvedTab> TabWalk::Tabs() const
{
    std::vector<ResolvedTab> tabs = m_tabs;
    if (!tabs.empty())
        tabs.back().width = PendingWidth();
    return tabs;
}

}  // namespace quillmarker
