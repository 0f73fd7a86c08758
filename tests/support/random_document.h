#pragma once

#include <quillmarker/document.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace quillmarker
{

/// A number from 0 up to, not including, `limit`, which is more than 0; the same on every machine.
std::int32_t Below(std::mt19937& random, std::int32_t limit);

std::u16string RandomText(std::mt19937& random, std::u16string_view alphabet, std::int32_t length);

/// A range of the document, whose ends may stand inside of marks.
TextRange RandomRange(std::mt19937& random, const Document& document);

/// A few character formats and a few paragraph formats, interned in `table`.
CharFormatId RandomCharFormat(std::mt19937& random, FormatTable& table);
ParagraphFormatId RandomParagraphFormat(std::mt19937& random, FormatTable& table);

/// A document of short paragraphs, cells and rows in any order, with pictures and runs in several formats.
Document RandomDocument(std::mt19937& random, std::u16string_view alphabet, std::int32_t paragraphs);

}  // namespace quillmarker
