#pragma once

#include <quillmarker/char_format.h>
#include <quillmarker/export.h>

#include <string_view>

namespace quillmarker
{

/// The family of a well-known font, which helps a machine without it to choose another; Nil for all others.
QUILLMARKER_CORE_EXPORT FontFamily FamilyOf(std::u16string_view font);

/// Whether a well-known font shows signs of its own in place of letters (the symbol character set).
QUILLMARKER_CORE_EXPORT bool IsSymbolFont(std::u16string_view font);

}  // namespace quillmarker
