#pragma once

#include <quillmarker/document.h>

#include <string>

namespace quillmarker::tool
{

enum class HiddenText : bool { Kept, LeftOut };

/// The text for a terminal or a text tool, in UTF-8: LF ends lines and paragraphs, a cell ends with TAB, a page
/// with FF. A text that is not empty ends with LF.
std::string PlainText(const Document& document, HiddenText hidden);

}  // namespace quillmarker::tool
