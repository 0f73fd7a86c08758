#pragma once

#include <quillmarker/document.h>
#include <quillmarker/pages/export.h>
#include <quillmarker/position.h>

#include <cstdint>

namespace quillmarker
{

// Where a caret may stand, in the order of the text, and what keys and clicks take. No step ends inside a surrogate
// pair, a user-perceived character, a line end, or hidden text. Hidden text is passed with what stands beside it, so that
// each step shows; what takes no room (a row's mark, a paragraph that is hidden with its mark) is passed as a whole.

/// Whether a paragraph is shown at all: one with nothing but hidden text is not if its mark is hidden or ends a row.
QUILLMARKER_PAGES_EXPORT bool TakesRoom(const Document& document, const Paragraph& paragraph);

/// The next place for a caret; `at` itself when there is none.
QUILLMARKER_PAGES_EXPORT Position NextCharacter(const Document& document, Position at);
QUILLMARKER_PAGES_EXPORT Position PreviousCharacter(const Document& document, Position at);

/// The start of the next word, or the paragraph's end if there is none in it; from there, the next paragraph. Signs that
/// stand together are a word.
QUILLMARKER_PAGES_EXPORT Position NextWord(const Document& document, Position at);
QUILLMARKER_PAGES_EXPORT Position PreviousWord(const Document& document, Position at);

/// The start of the paragraph below, or the end of the text.
QUILLMARKER_PAGES_EXPORT Position NextParagraph(const Document& document, Position at);
/// The start of the paragraph; from there, of the one above.
QUILLMARKER_PAGES_EXPORT Position PreviousParagraph(const Document& document, Position at);

/// `at`, moved out of a character, a line end, hidden text or what takes no room: to the nearest place before it where a
/// caret may stand, else to the first one behind it.
QUILLMARKER_PAGES_EXPORT Position CaretStop(const Document& document, Position at);

/// The word that holds the character behind `at`, with the blanks that follow it; the last one at a paragraph's end.
/// Empty in an empty paragraph.
QUILLMARKER_PAGES_EXPORT TextRange WordAt(const Document& document, Position at);

/// The paragraph in which `at` stands, with its line end, but without the end of a cell or a row.
QUILLMARKER_PAGES_EXPORT TextRange ParagraphAt(const Document& document, Position at);

enum class Deletion : std::uint8_t { CharacterBefore, CharacterBehind, WordBefore, WordBehind };

/// What a key deletes beside a caret: Backspace takes the last code point of what stands before it, Delete a whole
/// user-perceived character. Empty where there is nothing, and where a table would be torn.
QUILLMARKER_PAGES_EXPORT TextRange DeletedBy(const Document& document, Position at, Deletion deletion);

}  // namespace quillmarker
