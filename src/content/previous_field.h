#pragma once

#include <quillmarker/document.h>

#include <string>
#include <string_view>

namespace quillmarker
{

/// What stands between the last `prefix` and the first `suffix` behind it, case ignored; empty when there is none.
std::u16string FieldInSource(std::u16string_view source, std::u16string_view prefix, std::u16string_view suffix);

/// The same in a document's text, up to the end of the line in which the caret (zero-based) stands.
std::u16string FieldInText(const Document& document, std::int32_t caret, std::u16string_view prefix,
                           std::u16string_view suffix);

}  // namespace quillmarker
