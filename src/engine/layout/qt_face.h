#pragma once

#include "fallback_fonts.h"
#include "font_face.h"
#include "shaped_words.h"

#include <QFont>

#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

namespace quillmarker
{

class QtFace;

/// Where a face finds others for the characters it does not have.
class FaceFinder
{
public:
    virtual ~FaceFinder() = default;

    /// The face that has `character` and goes best with `face`; null when no font has it.
    virtual const QtFace* FallbackFor(const QtFace& face, char32_t character) = 0;
};

/// A face that Qt found. Everything is measured at one pixel to a font unit, so advances are the font's own.
class QtFace final : public FontFace
{
public:
    QtFace(FaceIdentity identity, FaceFinder& finder);

    ShapedText Shape(std::u16string_view text, TextDirection direction, Kerning kerning) const override;
    FaceIdentity Identity() const override { return m_identity; }
    QRawFont RawFont(qreal pixelSize) const override;

    /// Whether the face has a glyph for a character, or the character needs none.
    bool Has(char32_t character) const;

    std::size_t KeptWords() const { return m_words.Size(); }

private:
    struct Stretch
    {
        const QtFace* face = nullptr;
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    void FillPage(char16_t first, GlyphPage& page) const override;

    ShapedText ShapeShown(std::u16string_view text, TextDirection direction, Kerning kerning) const;
    ShapedText ShapeWord(std::u16string_view word, TextDirection direction, Kerning kerning) const;
    ShapedText ShapeStretch(std::u16string_view text, const QtFace& face, TextDirection direction,
                            Kerning kerning) const;
    std::vector<Stretch> StretchesOf(std::u16string_view word) const;
    const QtFace* FaceForAll(std::u16string_view text) const;
    const QtFace& FaceOr(const QtFace* found) const { return found ? *found : *this; }
    const QFont& FontOf(const QtFace& face) const;

    FaceIdentity m_identity;
    FaceIdentity m_drawn;  // the same, in a weight that the family has
    FaceFinder& m_finder;
    QRawFont m_raw;                                  // at one pixel to a font unit
    mutable std::map<const QtFace*, QFont> m_fonts;  // of this face and its fallbacks, at this face's pixel size
    mutable std::map<qreal, QRawFont> m_sizes;
    mutable ShapedWords m_words;
};

}  // namespace quillmarker
