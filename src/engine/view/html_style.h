#pragma once

#include <quillmarker/char_format.h>
#include <quillmarker/paragraph_format.h>

#include <string>
#include <string_view>

namespace quillmarker
{

/// Text as it stands between tags and in attributes. Line breaks are <br>; what no page may hold is left out.
std::string HtmlText(std::u16string_view text);
std::string HtmlAttribute(std::u16string_view text);

/// What opens and what closes text of a format; links are not part of it.
struct HtmlTags
{
    std::string open;
    std::string close;
};

HtmlTags TagsOf(const CharFormat& format);

/// The style of a paragraph, as the value of an attribute.
std::string StyleOf(const ParagraphFormat& format);

/// Whether a link may leave the document, and come into one: it leads to a page, a mail address, a telephone or a
/// place in the text.
bool IsCommonLink(std::u16string_view target);

}  // namespace quillmarker
