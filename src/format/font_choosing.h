#pragma once

#include "format/font_choice.h"
#include "format/format_commands.h"

namespace quillmarker
{

/// What a chooser starts with: the formats of the selection, but for its size, so that it opens with none chosen. A mixed
/// format is 0 or empty; an automatic colour is black.
FontChoice ChoiceOfSelection(const TextBox& box);

/// Puts on the selection what was chosen where `given` was offered.
void ApplyFontChoice(FormatCommands& commands, const FontChoice& chosen, const FontChoice& given);

}  // namespace quillmarker
