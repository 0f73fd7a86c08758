#pragma once

#include <quillmarker/char_format.h>

#include <QRect>
#include <QString>

#include <array>
#include <optional>

namespace quillmarker
{

/// A colour that the palette offers.
struct Swatch
{
    int index;
    int column;
    int row;
    Colour colour;
    const char* name;  // in English, a source text of the context "quillmarker::ColourPalette"
};

inline constexpr int kSwatchCount = 27;

/// In the order of their indices. The first is one step short of pure white, and stays so.
extern const std::array<Swatch, kSwatchCount> kSwatches;

/// Where a swatch stands in the panel, and how large the panel is, in twips.
QRect SwatchRectangle(int index);
QSize PaletteSize();

/// The first swatch whose rectangle contains the point, in twips of the panel; all four edges belong to it. None in a gap.
std::optional<int> SwatchAt(int x, int y);

/// The first swatch of that colour.
std::optional<int> SwatchOf(Colour colour);

/// Where a key leads from a swatch: the arrows by a column or a row, Home and End along the row, Page Up and Page Down along
/// the column. The same swatch at an edge; none for every other key.
std::optional<int> MovedSwatch(int index, Qt::Key key);

/// What a screen reader says and a tooltip shows: "Red 255, 0, 0".
QString SwatchName(int index);

}  // namespace quillmarker
