#include "section_breaks.h"

#include <algorithm>

namespace quillmarker
{

bool SectionBreaks::StartsPage(std::int32_t paragraph)
{
    if (paragraph == 0)
        return false;
    const Paragraph& before = m_document.ParagraphAt(paragraph - 1);
    if (!before.HasExtras() || !before.Extras().section)
        return false;
    if (!m_ends)
        FindEnds();
    const auto end =
        std::lower_bound(m_ends->begin(), m_ends->end(), paragraph,
                         [](const SectionEnd& section, std::int32_t at) { return section.paragraph < at; });
    const SectionBreak kind = end != m_ends->end() ? end->breakKind : m_document.Properties().lastSection.breakKind;
    return kind != SectionBreak::None;
}

void SectionBreaks::FindEnds()
{
    m_ends.emplace();
    std::int32_t index = 0;
    m_document.Visit(0, [&](const Paragraph& paragraph) {
        if (paragraph.HasExtras() && paragraph.Extras().section)
            m_ends->push_back({index, paragraph.Extras().section->breakKind});
        ++index;
        return true;
    });
}

}  // namespace quillmarker
