#pragma once

#include <string>
#include <string_view>

namespace quillmarker::tool
{

/// UTF-8 (valid, as the JSON reader and the document make it) as UTF-16; a byte that is no UTF-8 becomes U+FFFD.
std::u16string ToUtf16(std::string_view text);

/// UTF-16 as UTF-8; half of a surrogate pair becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);

}  // namespace quillmarker::tool
