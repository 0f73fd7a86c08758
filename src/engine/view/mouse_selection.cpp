#include "mouse_selection.h"

#include "engine/layout/text_steps.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

TextRange UnitAt(const Document& document, const FlowHit& hit, SelectionUnit unit)
{
    const Position at = hit.isInside ? hit.character : hit.caret.position;
    switch (unit)
    {
    case SelectionUnit::Word:
    {
        const TextRange word = WordAt(document, at);
        return word.IsEmpty() ? TextRange{at, at} : word;
    }
    case SelectionUnit::Paragraph:
        return ParagraphAt(document, at);
    case SelectionUnit::Character:
        break;
    }
    return {hit.caret.position, hit.caret.position};
}

}  // namespace

DraggedSelection MouseSelection::Begin(const Document& document, const FlowHit& hit, SelectionUnit unit)
{
    m_unit = unit;
    m_origin = UnitAt(document, hit, unit);
    return To(document, hit);
}

void MouseSelection::BeginFrom(Position anchor)
{
    m_unit = SelectionUnit::Character;
    m_origin = {anchor, anchor};
}

DraggedSelection MouseSelection::To(const Document& document, const FlowHit& hit) const
{
    if (m_unit == SelectionUnit::Character)
        return {m_origin.begin, hit.caret};
    const TextRange reached = UnitAt(document, hit, m_unit);
    if (reached.begin < m_origin.begin)
        return {m_origin.end, {reached.begin}};
    // The end of the last word of a line is seen in that line.
    return {m_origin.begin, {std::max(reached.end, m_origin.end), LineSide::Before}};
}

}  // namespace quillmarker
