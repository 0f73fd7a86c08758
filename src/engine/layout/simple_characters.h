#pragma once

#include <string_view>

namespace quillmarker
{

/// Whether a character is shown by one glyph of its own whatever stands beside it, from left to right: letters of
/// scripts that do not join, digits, punctuation, ideographs. Not combining marks, joiners, what reads from right to
/// left, scripts that reorder, controls or halves of surrogate pairs. A glyph beside a character that is not simple
/// belongs to what is shaped with that.
bool IsSimpleCharacter(char16_t unit);

/// Whether a character leaves nothing to be seen and shapes nothing: controls, the soft hyphen inside a line, marks and
/// overrides of direction, line and paragraph separators.
bool IsSilentCharacter(char16_t unit);

/// Whether every unit is a simple character or a mark that any script may carry, so that no script's rules are needed.
bool IsPlainText(std::u16string_view text);

}  // namespace quillmarker
