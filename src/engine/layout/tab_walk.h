#pragma once

#include "fine.h"

#include <quillmarker/paragraph_format.h>

#include <cstdint>
#include <span>
#include <vector>

namespace quillmarker
{

/// A tab of a line and the room it takes there.
struct ResolvedTab
{
    std::uint32_t offset = 0;
    Fine width = 0;
    TabLeader leader = TabLeader::None;
};

/// Where the stops of a line lie. Lengths count from the paragraph's starting edge: the left one, or the right one of a
/// paragraph that runs from right to left.
struct TabRuler
{
    std::span<const TabStop> stops;  // ascending
    Fine hanging = 0;      // the indent of the following lines is a stop too, where it lies behind the first's
    Fine interval = 0;     // of the default stops behind the last one
    Fine limit = 0;        // the margin; 0: none
    char16_t decimal = 0;  // what a decimal tab aligns at; 0: a point or a comma, the last of the text
};

/// Walks along a line, text and tabs, and knows at each moment how far it reaches. A tab of another kind than left
/// gives way while the text behind it grows.
class TabWalk
{
public:
    TabWalk(const TabRuler& ruler, Fine start) : m_ruler(ruler), m_from(start) {}

    void Add(char16_t unit, Fine advance)
    {
        if (m_kind == TabKind::Decimal && IsSeparator(unit))
            m_beforePoint = m_chunk;
        m_chunk += advance;
    }
    void AddTab(std::uint32_t offset);

    /// The end of what was added.
    Fine X() const { return m_from + PendingWidth() + m_chunk; }

    /// The tabs that were met, with the room they have now.
    std::vector<ResolvedTab> Tabs() const;

private:
    bool IsSeparator(char16_t unit) const
    {
        return m_ruler.decimal != 0 ? unit == m_ruler.decimal : unit == u'.' || unit == u',';
    }
    TabStop NextStop(Fine x) const;
    Fine PendingWidth() const;

    TabRuler m_ruler;
    std::vector<ResolvedTab> m_tabs;
    Fine m_from = 0;   // where the last tab begins
    Fine m_stop = 0;   // and where it leads
    Fine m_chunk = 0;  // the text behind it
    Fine m_beforePoint = -1;
    TabKind m_kind = TabKind::Left;
};

}  // namespace quillmarker
