#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmarker
{

/// Fonts that show signs in place of letters. Their characters are U+F020 to U+F0FF, or the same without the F0.
enum class SymbolSet : std::uint8_t {
    Latin,  // letters after all: for a font that only says it has signs
    Greek,  // Symbol
    Wingdings,
    Wingdings2,
    Wingdings3,
    Webdings,
    Dingbats,
};

/// The signs that a well-known font shows; none for every other font.
std::optional<SymbolSet> SymbolSetOf(std::u16string_view font);

/// The Unicode character that looks like what a font of signs shows for `unit`: a bullet where there is none, and
/// `unit` itself where it is not one of the font's.
char16_t SymbolCharacter(SymbolSet set, char16_t unit);

}  // namespace quillmarker
