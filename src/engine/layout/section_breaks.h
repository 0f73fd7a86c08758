#pragma once

#include <quillmarker/document.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace quillmarker
{

/// Where a document's sections begin. Nothing is looked for until a paragraph that ends a section is met.
class SectionBreaks
{
public:
    explicit SectionBreaks(const Document& document) : m_document(document) {}

    /// Whether a section that begins on a new page (or column, or an even or odd page) begins with this paragraph.
    bool StartsPage(std::int32_t paragraph);

private:
    struct SectionEnd
    {
        std::int32_t paragraph;
        SectionBreak breakKind;  // how the section that ends here began
    };
    void FindEnds();

    const Document& m_document;
    std::optional<std::vector<SectionEnd>> m_ends;  // ascending
};

}  // namespace quillmarker
