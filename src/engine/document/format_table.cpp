#include <quillmarker/format_table.h>

#include "engine/document/format_hash.h"

#include <algorithm>
#include <limits>

namespace quillmarker
{
namespace
{

template <class Id, class Format>
Id InternIn(std::deque<Format>& formats, std::unordered_multimap<std::size_t, std::uint32_t>& byHash,
            const Format& format, std::size_t hash)
{
    const auto [begin, end] = byHash.equal_range(hash);
    for (auto candidate = begin; candidate != end; ++candidate)
    {
        if (formats[candidate->second] == format)
            return Id{candidate->second};
    }
    const auto number = static_cast<std::uint32_t>(formats.size());
    formats.push_back(format);
    byHash.emplace(hash, number);
    return Id{number};
}

}  // namespace

CharFormatId FormatTable::Intern(const CharFormat& format)
{
    return InternIn<CharFormatId>(m_chars, m_charsByHash, format, HashOfFields(format, kCharFields));
}

ParagraphFormatId FormatTable::Intern(const ParagraphFormat& format)
{
    if (format.numbering && format.numbering->list != 0)
        m_lists.try_emplace({format.numbering->list, format.numbering->level}, format.numbering);
    return InternIn<ParagraphFormatId>(m_paragraphs, m_paragraphsByHash, format,
                                       HashOfFields(format, kParagraphFields));
}

void FormatTable::DefineStyle(StyleKind kind, const Name& name, StyleDefinition definition)
{
    const Shared<Numbering> numbering = definition.paragraph.numbering;
    const auto [style, isNew] = m_styles.try_emplace({kind, name.Text()});
    if (!isNew)
        return;
    style->second = Shared(std::move(definition));
    if (numbering && numbering->list != 0)
        m_lists.try_emplace({numbering->list, numbering->level}, numbering);
}

const StyleDefinition* FormatTable::StyleOf(StyleKind kind, const Name& name) const
{
    const auto found = m_styles.find({kind, name.Text()});
    return found == m_styles.end() ? nullptr : found->second.Identity();
}

Shared<Numbering> FormatTable::ListLevel(std::int32_t list, std::int32_t level) const
{
    const auto found = m_lists.find({list, level});
    return found == m_lists.end() ? Shared<Numbering>() : found->second;
}

std::vector<Numbering> FormatTable::ListLevels(std::int32_t list) const
{
    std::vector<Numbering> levels;
    constexpr std::int32_t kFirstLevel = std::numeric_limits<std::int32_t>::min();
    for (auto at = m_lists.lower_bound({list, kFirstLevel}); at != m_lists.end() && at->first.first == list; ++at)
        levels.push_back(*at->second);
    return levels;
}

std::int32_t FormatTable::ListNumberFor(std::int32_t list, const std::vector<Numbering>& levels) const
{
    for (const Numbering& level : levels)
    {
        const Shared<Numbering> known = ListLevel(list, level.level);
        if (known && !(*known == level))
            return std::max(m_lists.rbegin()->first.first, 0) + 1;
    }
    return list;
}

}  // namespace quillmarker
