#pragma once

#include "engine/layout/caret_motion.h"

#include <quillmarker/text_box.h>

#include <optional>

namespace quillmarker
{

/// Whether a motion takes the selection along.
enum class Extend : bool { No, Yes };

/// Where the user's caret and anchor stand. The box's selection has a start and a length; which end the caret is at,
/// in which of two lines, and the column it keeps on its way up and down are the view's.
class CaretTrack
{
public:
    const CaretPosition& Caret() const { return m_caret; }
    Position Anchor() const { return m_anchor; }
    const std::optional<Fine>& Column() const { return m_column; }

    TextRange Range() const;
    Selection Selected() const;
    bool HasSelection() const { return m_anchor != m_caret.position; }

    /// The caret goes to a place, with the anchor or away from it.
    void Put(CaretPosition caret, Extend extend, std::optional<Fine> column = std::nullopt);
    void SelectFromTo(Position anchor, CaretPosition caret);

    /// The box's selection is another one: then its end is where the caret stands. True when it was.
    bool Follow(Selection selection);

    /// The text changed: what was remembered of lines holds no longer.
    void ForgetLine();

private:
    Position m_anchor;
    CaretPosition m_caret;
    std::optional<Fine> m_column;
};

}  // namespace quillmarker
