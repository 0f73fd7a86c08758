#pragma once

#include "font_face.h"

#include <QFont>

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillmarker
{

/// A glyph of one font, in 64ths of a pixel: x from the left edge of the text, y from its baseline, positive upwards.
struct PlacedGlyph
{
    std::uint32_t glyph = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
};

struct ShapedPiece
{
    std::vector<PlacedGlyph> glyphs;     // from left to right
    std::vector<std::int32_t> advances;  // as in ShapedText
};

/// Shapes `text` with one font and no other, at the font's own pixel size and without hinting. The text is read in
/// `direction` whatever its characters say. Nothing in it may be silent (IsSilentCharacter), and it must not be wider
/// than some ten thousand ems.
ShapedPiece ShapeWithQt(const QFont& font, std::u16string_view text, TextDirection direction, Kerning kerning);

/// The font as ShapeWithQt and the measures of a face take it: unhinted, unmerged, one pixel to a font unit.
QFont MeasuringFont(const FaceIdentity& identity, std::int32_t pixelSize);

}  // namespace quillmarker
