#include "layout_cache.h"

#include <iterator>
#include <utility>

namespace quillmarker
{

const ParagraphLayout* LayoutCache::Find(const Paragraph& paragraph, const ParagraphContext& context)
{
    const auto [begin, end] = m_places.equal_range(&paragraph);
    for (auto place = begin; place != end; ++place)
    {
        const Entries::iterator entry = place->second;
        if (entry->layout->Context() != context)
            continue;
        entry->turn = m_turn;
        m_entries.splice(m_entries.begin(), m_entries, entry);
        return entry->layout.get();
    }
    return nullptr;
}

const ParagraphLayout& LayoutCache::Add(std::unique_ptr<const ParagraphLayout> layout)
{
    const std::size_t weight = layout->Weight();
    m_weight += weight;
    m_entries.push_front({std::move(layout), weight, m_turn});
    const ParagraphLayout& added = *m_entries.front().layout;
    m_places.emplace(&added.Source(), m_entries.begin());
    return added;
}

void LayoutCache::BeginTurn(std::size_t limit)
{
    while (m_weight > limit && !m_entries.empty() && m_entries.back().turn < m_turn)
        Drop(std::prev(m_entries.end()));
    ++m_turn;
}

void LayoutCache::Drop(Entries::iterator entry)
{
    const auto [begin, end] = m_places.equal_range(&entry->layout->Source());
    auto place = begin;
    while (place != end && place->second != entry)
        ++place;
    if (place != end)
        m_places.erase(place);
    m_weight -= entry->weight;
    m_entries.erase(entry);
}

void LayoutCache::Clear()
{
    m_places.clear();
    m_entries.clear();
    m_weight = 0;
}

}  // namespace quillmarker
