#include "colour_palette.h"

#include <QCoreApplication>

#include <algorithm>
#include <ranges>
#include <string_view>

namespace quillmarker
{
namespace
{

constexpr int kColumns = 3;
constexpr int kRows = 9;

constexpr int kSwatchWidth = 315;
constexpr int kSwatchHeight = 195;
constexpr int kMargin = 60;
constexpr int kColumnPitch = 360;
constexpr int kRowPitch = 240;

constexpr auto kTable = std::to_array<Swatch>({
    {0, 0, 0, Colour::Of(254, 254, 254), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "White")},
    {1, 0, 2, Colour::Of(255, 0, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Red")},
    {2, 0, 3, Colour::Of(255, 128, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Orange")},
    {3, 0, 4, Colour::Of(255, 255, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Yellow")},
    {4, 0, 5, Colour::Of(0, 255, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Green")},
    {5, 0, 6, Colour::Of(0, 255, 255), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Cyan")},
    {6, 0, 7, Colour::Of(0, 0, 255), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Blue")},
    {7, 0, 8, Colour::Of(255, 0, 255), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Magenta")},
    {8, 1, 0, Colour::Of(192, 192, 192), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Light grey")},
    {9, 1, 2, Colour::Of(192, 0, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Dark red")},
    {10, 1, 3, Colour::Of(192, 64, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Dark orange")},
    {11, 1, 4, Colour::Of(192, 192, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Dark yellow")},
    {12, 1, 5, Colour::Of(0, 192, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Dark green")},
    {13, 1, 6, Colour::Of(0, 192, 192), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Dark cyan")},
    {14, 1, 7, Colour::Of(0, 0, 192), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Dark blue")},
    {15, 1, 8, Colour::Of(192, 0, 192), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Dark magenta")},
    {16, 2, 0, Colour::Of(128, 128, 128), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Grey")},
    {17, 2, 2, Colour::Of(128, 0, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Maroon")},
    {18, 2, 3, Colour::Of(128, 64, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Brown")},
    {19, 2, 4, Colour::Of(128, 128, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Olive")},
    {20, 2, 5, Colour::Of(0, 128, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Forest green")},
    {21, 2, 6, Colour::Of(0, 128, 128), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Teal")},
    {22, 2, 7, Colour::Of(0, 0, 128), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Navy")},
    {23, 2, 8, Colour::Of(128, 0, 128), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Purple")},
    {24, 0, 1, Colour::Of(224, 224, 224), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Pale grey")},
    {25, 1, 1, Colour::Of(64, 64, 64), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Dark grey")},
    {26, 2, 1, Colour::Of(0, 0, 0), QT_TRANSLATE_NOOP("quillmarker::ColourPalette", "Black")},
});

constexpr bool StandsInOrder()
{
    for (std::size_t at = 0; at < kTable.size(); ++at)
    {
        if (kTable[at].index != static_cast<int>(at))
            return false;
    }
    return true;
}

constexpr int IndexAt(int column, int row)
{
    const auto* found = std::ranges::find_if(
        kTable, [=](const Swatch& swatch) { return swatch.column == column && swatch.row == row; });
    return found == kTable.end() ? -1 : found->index;
}

constexpr bool FillsEveryPlace()
{
    for (int column = 0; column < kColumns; ++column)
    {
        for (int row = 0; row < kRows; ++row)
        {
            if (IndexAt(column, row) < 0)
                return false;
        }
    }
    return true;
}

constexpr bool ShowsNothingTwice()
{
    for (const Swatch& a : kTable)
    {
        for (const Swatch& b : kTable)
        {
            const bool isSame = a.colour == b.colour || std::string_view(a.name) == b.name;
            if (a.index != b.index && isSame)
                return false;
        }
    }
    return true;
}

static_assert(kTable.size() == kSwatchCount && kSwatchCount == kColumns * kRows);
static_assert(StandsInOrder());
static_assert(FillsEveryPlace());
static_assert(ShowsNothingTwice());
static_assert(kTable[0].colour == Colour::Of(254, 254, 254));

const Swatch& SwatchNumber(int index) { return kSwatches.at(static_cast<std::size_t>(index)); }

}  // namespace

const std::array<Swatch, kSwatchCount> kSwatches = kTable;

QRect SwatchRectangle(int index)
{
    const Swatch& swatch = SwatchNumber(index);
    return {kMargin + swatch.column * kColumnPitch, kMargin + swatch.row * kRowPitch, kSwatchWidth, kSwatchHeight};
}

QSize PaletteSize()
{
    return {2 * kMargin + (kColumns - 1) * kColumnPitch + kSwatchWidth, kMargin + kRows * kRowPitch};
}

std::optional<int> SwatchAt(int x, int y)
{
    for (const Swatch& swatch : kSwatches)
    {
        const QRect place = SwatchRectangle(swatch.index);
        const bool isBeside = x < place.x() || x > place.x() + place.width();
        const bool isAboveOrBelow = y < place.y() || y > place.y() + place.height();
        if (!isBeside && !isAboveOrBelow)
            return swatch.index;
    }
    return {};
}

std::optional<int> SwatchOf(Colour colour)
{
    const auto* found = std::ranges::find(kSwatches, colour, &Swatch::colour);
    return found == kSwatches.end() ? std::nullopt : std::optional(found->index);
}

std::optional<int> MovedSwatch(int index, Qt::Key key)
{
    int column = SwatchNumber(index).column;
    int row = SwatchNumber(index).row;
    switch (key)
    {
    case Qt::Key_Left:
        column = std::max(column - 1, 0);
        break;
    case Qt::Key_Right:
        column = std::min(column + 1, kColumns - 1);
        break;
    case Qt::Key_Up:
        row = std::max(row - 1, 0);
        break;
    case Qt::Key_Down:
        row = std::min(row + 1, kRows - 1);
        break;
    case Qt::Key_Home:
        column = 0;
        break;
    case Qt::Key_End:
        column = kColumns - 1;
        break;
    case Qt::Key_PageUp:
        row = 0;
        break;
    case Qt::Key_PageDown:
        row = kRows - 1;
        break;
    default:
        return {};
    }
    return IndexAt(column, row);
}

QString SwatchName(int index)
{
    const Swatch& swatch = SwatchNumber(index);
    const QString name = QCoreApplication::translate("quillmarker::ColourPalette", swatch.name);
    const Colour colour = swatch.colour;
    return QStringLiteral("%1 %2, %3, %4").arg(name).arg(colour.Red()).arg(colour.Green()).arg(colour.Blue());
}

}  // namespace quillmarker
