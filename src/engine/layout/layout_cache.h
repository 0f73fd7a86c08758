#pragma once

#include "paragraph_layout.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <unordered_map>

namespace quillmarker
{

/// Layouts of paragraphs, found again by the paragraph's identity and its context, wherever and in whichever version of
/// the document it stands. Bounded by what layouts weigh.
class LayoutCache
{
public:
    /// The layout, or none; it counts as used.
    const ParagraphLayout* Find(const Paragraph& paragraph, const ParagraphContext& context);

    const ParagraphLayout& Add(std::unique_ptr<const ParagraphLayout> layout);

    /// Begins a turn, and drops what was used longest ago until all weigh no more than `limit`. What was used in the turn
    /// before stays, whatever it weighs.
    void BeginTurn(std::size_t limit);

    void Clear();

    std::size_t Count() const { return m_entries.size(); }
    std::size_t Weight() const { return m_weight; }

private:
    struct Entry
    {
        std::unique_ptr<const ParagraphLayout> layout;
        std::size_t weight = 0;
        std::uint64_t turn = 0;
    };
    using Entries = std::list<Entry>;

    void Drop(Entries::iterator entry);

    Entries m_entries;  // the latest used first
    std::unordered_multimap<const Paragraph*, Entries::iterator> m_places;
    std::size_t m_weight = 0;
    std::uint64_t m_turn = 0;
};

}  // namespace quillmarker
