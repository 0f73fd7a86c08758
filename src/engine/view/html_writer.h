#pragma once

#include <quillmarker/document.h>
#include <quillmarker/position.h>

#include <string>

namespace quillmarker
{

/// A part of a document as an HTML page of its own, in UTF-8: paragraphs with alignment and indents, characters with
/// their font, size, colours and lines, links, lists as paragraphs that begin with their number, tables as tables, PNG
/// and JPEG pictures inside. Hidden text is left out. A part of one paragraph is no paragraph: it stands in a line.
std::string WriteHtml(const Document& document, TextRange range);

}  // namespace quillmarker
