#pragma once

#include <quillmarker/document.h>
#include <quillmarker/export.h>

#include <functional>

namespace quillmarker
{

/// Calls `visit` with each format that the characters of `range` have, marks included, once.
void VisitCharFormats(const Document&, TextRange range, const std::function<void(const CharFormat&)>& visit);

/// The same for the paragraphs that `range` touches.
void VisitParagraphFormats(const Document&, TextRange range, const std::function<void(const ParagraphFormat&)>& visit);

/// The format of the characters in `range`, marks included; fields that differ among them are empty. An empty range
/// has none at all.
PartialCharFormat CharFormatOver(const Document&, TextRange range);

/// The format of the paragraphs that `range` touches. A range that ends at a paragraph's start does not touch it,
/// unless it is empty.
PartialParagraphFormat ParagraphFormatOver(const Document&, TextRange range);

/// The same document, and the very same value, when nothing changes.
QUILLMARKER_CORE_EXPORT Document WithCharFormat(const Document&, TextRange range, const PartialCharFormat& patch);
Document WithParagraphFormat(const Document&, TextRange range, const PartialParagraphFormat& patch);

using CharFormatChange = std::function<CharFormat(CharFormat)>;
using ParagraphFormatChange = std::function<ParagraphFormat(ParagraphFormat)>;

/// As above, where what is put depends on what is there.
Document WithCharFormats(const Document&, TextRange range, const CharFormatChange& change);
Document WithParagraphFormats(const Document&, TextRange range, const ParagraphFormatChange& change);

/// A format of the same document in place of one that characters from `at` on have, up to the next format.
using FormatAlong = std::function<CharFormatId(CharFormatId, Position at)>;

/// Every run and mark of the document in turn, where what is put depends on what was met before.
Document WithCharFormatsAlong(const Document&, const FormatAlong& change);

QUILLMARKER_CORE_EXPORT CharFormat Patched(CharFormat, const PartialCharFormat& patch);
ParagraphFormat Patched(ParagraphFormat, const PartialParagraphFormat& patch);

/// Every field stated.
PartialCharFormat AllOf(const CharFormat&);

}  // namespace quillmarker
