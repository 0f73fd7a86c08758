#pragma once

#include <quillmarker/document.h>

#include <cstdint>
#include <string>

namespace quillmarker
{

/// How much a document and everything nested in it (headers, notes, results) holds.
struct Extent
{
    std::int64_t units = 0;
    std::int64_t paragraphs = 0;
    std::int64_t runs = 0;
};

/// Walks the document and what is nested in it, and aborts unless it is whole: the text is as long as Size says,
/// positions and paragraphs agree both ways, runs cover each text without gaps, objects stand on their characters.
Extent RequireWhole(const Document& document);

/// Aborts with the first difference of their dumps unless both hold the same.
void RequireSame(const Document& expected, const Document& actual, const char* law);

/// Text that may hold anything, as something a terminal shows.
std::string Printable(std::u16string_view text);

}  // namespace quillmarker
