#pragma once

#include "font_face.h"
#include "symbol_characters.h"

namespace quillmarker
{

/// Stands for a font of signs that is not installed: shows the Unicode characters that look like them, in another
/// face. Its glyphs are that face's.
class SymbolFace final : public FontFace
{
public:
    SymbolFace(const FontFace& shown, SymbolSet set);

    ShapedText Shape(std::u16string_view text, TextDirection direction, Kerning kerning) const override;
    FaceIdentity Identity() const override { return m_shown.Identity(); }
    QRawFont RawFont(qreal pixelSize) const override { return m_shown.RawFont(pixelSize); }

private:
    void FillPage(char16_t first, GlyphPage& page) const override;

    const FontFace& m_shown;
    SymbolSet m_set;
};

}  // namespace quillmarker
