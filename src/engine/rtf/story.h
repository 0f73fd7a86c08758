#pragma once

#include "engine/document/paragraph_builder.h"
#include "engine/document/tree.h"

#include <quillmarker/document.h>

#include <functional>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace quillmarker
{

/// A sequence of paragraphs as the reader meets it: the document's own text, a header's, a note's.
class Story
{
public:
    ParagraphBuilder& Builder() { return m_builder; }

    /// Ended paragraphs go to `take` instead of being kept, the last one only when it is known to stay as it is.
    void HandOutTo(std::function<void(const Paragraph&)> take) { m_take = std::move(take); }

    void EndParagraph(const ParagraphMark& mark, Shared<TableRow> row = {}, Shared<Section> section = {})
    {
        HandOut();
        m_paragraphs.push_back(m_builder.Finish(mark, std::move(row), std::move(section)));
    }

    std::size_t TextSize() const { return m_builder.Size(); }
    bool IsEmpty() const { return m_builder.IsEmpty() && m_paragraphs.empty(); }

    /// The format of the character or mark before the end of the text; empty at the beginning.
    std::optional<CharFormatId> LatestFormat() const
    {
        if (!m_builder.Runs().empty())
            return m_builder.Runs().back().format;
        if (!m_paragraphs.empty())
            return m_paragraphs.back()->Ending().charFormat;
        return std::nullopt;
    }

    /// The section that the last paragraph's mark ends, which is then the document's last one.
    Shared<Section> TakeFinalSection();

    /// All paragraphs. `scope` says whether a final break is the end of the last paragraph or a break of its own.
    Body Finish(const ParagraphMark& openEnd, bool dropsFinalBreak);

private:
    void HandOut()
    {
        if (!m_take)
            return;
        for (const ParagraphRef& paragraph : m_paragraphs)
            m_take(*paragraph);
        m_paragraphs.clear();
    }

    bool EndsWithBreak() const
    {
        return m_builder.IsEmpty() && !m_paragraphs.empty() && m_paragraphs.back()->Ending().kind == Mark::Break;
    }

    ParagraphBuilder m_builder;
    std::vector<ParagraphRef> m_paragraphs;
    std::function<void(const Paragraph&)> m_take;
};

}  // namespace quillmarker
