#pragma once

#include <quillmarker/document.h>
#include <quillmarker/position.h>

#include <cstdint>

namespace quillmarker
{

/// What a screen reader asks for. Lines belong to whoever lays them out.
enum class TextUnit : std::uint8_t { Character, Word, Sentence, Paragraph };

/// The unit that holds the character behind `at`. A paragraph has its end in it, a word the blanks behind it; a line end is a
/// character and a word of its own. At the end of the text: the last paragraph, and nothing of the smaller units.
TextRange UnitAround(const Document& document, Position at, TextUnit unit);

}  // namespace quillmarker
