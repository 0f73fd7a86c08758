#pragma once

#include <quillmarker/document.h>
#include <quillmarker/export.h>

#include <string_view>

namespace quillmarker
{

// All of these make a new document and leave the old one as it was. A range that begins inside a CR LF begins before
// it, one that ends inside a CR LF ends behind it. Deleting across a mark leaves the later mark and what it carries.

/// `range` with both ends outside of marks and inside the document.
QUILLMARKER_CORE_EXPORT TextRange Snapped(const Document&, TextRange range);

/// `text` in place of `range`. CR, LF and CR LF begin a new paragraph like the one they are put in; NULs are left out.
QUILLMARKER_CORE_EXPORT Document WithText(const Document&, TextRange range, std::u16string_view text,
                                          CharFormatId format);

/// A given fragment in place of `range`. What stands before its first mark joins the paragraph the range begins in, what
/// stands behind its last mark joins the one it ends in; each mark between brings its own paragraph format.
Document WithFragment(const Document&, TextRange range, const Document& given);

/// An object in place of `range`.
Document WithObject(const Document&, TextRange range, Shared<InlineObject> object, CharFormatId format);

/// A part of the document as a fragment.
QUILLMARKER_CORE_EXPORT Document Slice(const Document&, TextRange range);

/// The length that `text` has once it is in a document.
std::int32_t LengthInDocument(std::u16string_view text);

/// The longest start of `text` that takes no more than `room` units in a document. No line end and no pair of surrogates
/// is cut.
std::u16string_view StartThatFits(std::u16string_view text, std::int32_t room);

}  // namespace quillmarker
