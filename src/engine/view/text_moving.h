#pragma once

#include <quillmarker/position.h>
#include <quillmarker/text_box.h>

#include <functional>

namespace quillmarker
{

/// Whether a box is still there: its handlers may destroy it.
using BoxLife = std::function<bool()>;

/// Moves a part of the text to another place as the user, as one step, and selects it there. False, and nothing has
/// happened, when the place lies in the part or at its edge, or the user may not change one of the two.
bool MoveText(
    TextBox& box, TextRange source, Position target, const BoxLife& isThere = [] { return true; });

/// Deletes what a drag has taken elsewhere, as the user and as a step of its own; only out of the document that it was
/// dragged from.
bool DeleteMoved(
    TextBox& box, const Document& dragged, TextRange source, const BoxLife& isThere = [] { return true; });

}  // namespace quillmarker
