#pragma once

#include <quillmarker/char_format.h>

#include <string_view>

namespace quillmarker
{

/// The family of a well-known font, which helps a machine without it to choose another; Nil for all others.
FontFamily FamilyOf(std::u16string_view font);

/// Whether a well-known font shows signs of its own in place of letters (the symbol character set).
bool IsSymbolFont(std::u16string_view font);

}  // namespace quillmarker
