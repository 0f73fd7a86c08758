#pragma once

#include <quillmarker/pages/export.h>

#include <cstdint>
#include <string_view>

namespace quillmarker
{

// Boundaries of user-perceived characters (UAX #29) and of words in a paragraph's text. Only what lies around the offset
// is looked at. Offsets are from 0 to the text's length.

/// The first character boundary behind `offset`, the last one before it; `offset` at the text's ends.
QUILLMARKER_PAGES_EXPORT std::int32_t NextCharacterBreak(std::u16string_view text, std::int32_t offset);
QUILLMARKER_PAGES_EXPORT std::int32_t PreviousCharacterBreak(std::u16string_view text, std::int32_t offset);
QUILLMARKER_PAGES_EXPORT bool IsCharacterBreak(std::u16string_view text, std::int32_t offset);

/// Whether a line, page or column break stands at `offset`.
QUILLMARKER_PAGES_EXPORT bool IsBreakCharacter(std::u16string_view text, std::int32_t offset);

// Words in the sense of keys and clicks: signs that stand together are a word, and so is each tab, object and line break.

/// The end of the word that holds the character at `offset`, without blanks behind it; the end of blanks if it is one.
QUILLMARKER_PAGES_EXPORT std::int32_t WordEnd(std::u16string_view text, std::int32_t offset);

/// The start of the first word behind `offset`, the last one before it; the text's ends if there is none.
QUILLMARKER_PAGES_EXPORT std::int32_t NextWordStart(std::u16string_view text, std::int32_t offset);
QUILLMARKER_PAGES_EXPORT std::int32_t PreviousWordStart(std::u16string_view text, std::int32_t offset);

}  // namespace quillmarker
