#pragma once

#include <quillmarker/document.h>
#include <quillmarker/export.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillmarker
{

/// Whether RTF is a document of its own or a part put into one. A document drops one final \par; a part keeps it.
enum class RtfScope : bool { Document, Fragment };

struct RtfReading
{
    RtfScope scope = RtfScope::Document;

    /// The format of text for which the source states nothing: its font always, its size too when the source has no
    /// table of fonts.
    CharFormat defaultFormat = DefaultCharFormat();

    /// The code page of bytes for which neither font nor document states one.
    std::uint16_t codePage = 1252;

    /// The table to put formats in; empty makes a new one.
    std::shared_ptr<FormatTable> formats;
};

/// Reads RTF from the bytes of a file. It never fails: damaged source gives what can be read of it, and bytes that are
/// no RTF at all are taken as plain text. Time and memory are bounded by the length of the source.
QUILLMARKER_CORE_EXPORT Document ReadRtf(std::string_view bytes, const RtfReading& = {});

/// The same from a string, whose characters outside of control words are themselves and need no code page.
QUILLMARKER_CORE_EXPORT Document ReadRtf(std::u16string_view text, const RtfReading& = {});

/// Takes the next paragraph of a text and the formats that it refers to; false to see no more.
using ParagraphVisitor = std::function<bool(const Paragraph&, const FormatTable&)>;

/// Reads like ReadRtf, but hands the paragraphs of the main text out one by one, in order, and keeps none: for a single
/// pass over a source, in memory that does not grow with its text. A paragraph is the visitor's only during the call.
QUILLMARKER_CORE_EXPORT void VisitRtf(std::string_view bytes, const ParagraphVisitor& visit, const RtfReading& = {});

/// True when the text begins as RTF does.
QUILLMARKER_CORE_EXPORT bool IsRtf(std::string_view bytes);

/// The document as 7-bit RTF. A document is written with its final \par, a fragment with exactly its own breaks.
QUILLMARKER_CORE_EXPORT std::string WriteRtf(const Document&, RtfScope = RtfScope::Document);

}  // namespace quillmarker
