#pragma once

#include <quillmarker/position.h>
#include <quillmarker/text_box.h>

namespace quillmarker
{

/// Moves a part of the text to another place as the user, as one step, and selects it there. False, and nothing has
/// happened, when the place lies in the part or at its edge, or the user may not change one of the two.
bool MoveText(TextBox& box, TextRange source, Position target);

}  // namespace quillmarker
