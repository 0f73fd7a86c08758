#pragma once

#include <quillmarker/document.h>

#include <cstdint>
#include <string_view>

namespace quillmarker
{

/// Where a caret may stand in one paragraph: at boundaries of characters, not inside a hidden stretch. Offsets are units
/// of the paragraph's text. The document must outlive it.
class ParagraphStops
{
public:
    ParagraphStops(const Document& document, const Paragraph& paragraph)
        : m_document(document), m_paragraph(paragraph), m_text(paragraph.Text())
    {
    }

    std::u16string_view Text() const { return m_text; }
    std::int32_t Length() const { return static_cast<std::int32_t>(m_text.size()); }

    /// The end of the hidden text that follows `offset`, the start of what stands before it; `offset` if there is none.
    std::int32_t PastHiddenBehind(std::int32_t offset) const;
    std::int32_t PastHiddenBefore(std::int32_t offset) const;

    bool IsStop(std::int32_t offset) const;
    /// The first stop from `offset` on, the last one up to it.
    std::int32_t StopFrom(std::int32_t offset) const;
    std::int32_t StopUpTo(std::int32_t offset) const;

private:
    bool IsHidden(std::int32_t offset) const;
    bool IsInsideHidden(std::int32_t offset) const;

    const Document& m_document;
    const Paragraph& m_paragraph;
    std::u16string_view m_text;
};

}  // namespace quillmarker
