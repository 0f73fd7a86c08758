#include "caret_track.h"

#include <algorithm>

namespace quillmarker
{

TextRange CaretTrack::Range() const
{
    return {std::min(m_anchor, m_caret.position), std::max(m_anchor, m_caret.position)};
}

Selection CaretTrack::Selected() const { return {Range().begin.value, Range().Length()}; }

void CaretTrack::Put(CaretPosition caret, Extend extend, std::optional<Fine> column)
{
    m_caret = caret;
    m_column = column;
    if (extend == Extend::No)
        m_anchor = caret.position;
}

void CaretTrack::SelectFromTo(Position anchor, CaretPosition caret)
{
    m_anchor = anchor;
    m_caret = caret;
    m_column.reset();
}

bool CaretTrack::Follow(Selection selection)
{
    if (selection == Selected())
        return false;
    SelectFromTo({selection.start}, {{selection.start + selection.length}});
    return true;
}

void CaretTrack::ForgetLine()
{
    m_caret.side = LineSide::After;
    m_column.reset();
}

}  // namespace quillmarker
