#pragma once

#include "engine/rtf/charset.h"

#include <string>
#include <string_view>

namespace quillmarker
{

/// The text of a plain text file. A byte order mark decides (UTF-8, UTF-16, UTF-32) and is not part of the text;
/// without one, bytes that are valid UTF-8 are UTF-8, all others are in the code page `ansi`. Line ends and NULs stay
/// as they are.
std::u16string DecodePlainText(std::string_view bytes, CodePage ansi = kAnsiPage);

}  // namespace quillmarker
