#include "symbol_face.h"

#include <algorithm>
#include <string>

namespace quillmarker
{

SymbolFace::SymbolFace(const FontFace& shown, SymbolSet set) : m_shown(shown), m_set(set)
{
    SetMetrics(shown.Metrics());
}

ShapedText SymbolFace::Shape(std::u16string_view text, TextDirection direction, Kerning kerning) const
{
    std::u16string characters(text);
    std::ranges::transform(characters, characters.begin(),
                           [this](char16_t unit) { return SymbolCharacter(m_set, unit); });
    return m_shown.Shape(characters, direction, kerning);
}

void SymbolFace::FillPage(char16_t first, GlyphPage& page) const
{
    for (unsigned i = 0; i < page.size(); ++i)
        page[i] = m_shown.Simple(SymbolCharacter(m_set, static_cast<char16_t>(first + i)));
}

}  // namespace quillmarker
