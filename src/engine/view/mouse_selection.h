#pragma once

#include "engine/layout/document_flow.h"

#include <quillmarker/document.h>

namespace quillmarker
{

/// What one step of a selection by mouse takes: a click's, a double click's, a triple click's.
enum class SelectionUnit : std::uint8_t { Character, Word, Paragraph };

/// An anchor and a caret.
struct DraggedSelection
{
    Position anchor;
    CaretPosition caret;

    bool operator==(const DraggedSelection&) const = default;
};

/// A selection that the mouse draws: it begins with a unit and grows from there in either direction, unit by unit.
class MouseSelection
{
public:
    /// Begins at a place, with the unit around it.
    DraggedSelection Begin(const Document& document, const FlowHit& hit, SelectionUnit unit);
    /// Goes on from a selection that is there.
    void BeginFrom(Position anchor);

    DraggedSelection To(const Document& document, const FlowHit& hit) const;

private:
    TextRange m_origin;
    SelectionUnit m_unit = SelectionUnit::Character;
};

}  // namespace quillmarker
