#include "engine/rtf/story.h"

namespace quillmarker
{

Shared<Section> Story::TakeFinalSection()
{
    if (!EndsWithBreak() || !m_paragraphs.back()->Extras().section)
        return {};
    const ParagraphRef last = m_paragraphs.back();
    ParagraphExtras extras = last->Extras();
    Shared<Section> section = std::exchange(extras.section, {});
    m_paragraphs.back() = Paragraph::Make(last->Text(), last->Runs(), last->Ending(), std::move(extras));
    return section;
}

Body Story::Finish(const ParagraphMark& openEnd, bool dropsFinalBreak)
{
    if (!dropsFinalBreak || !EndsWithBreak())
        EndParagraph(openEnd);
    HandOut();
    return Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(m_paragraphs)}));
}

}  // namespace quillmarker
