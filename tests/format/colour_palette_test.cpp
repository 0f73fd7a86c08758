#include "format/colour_palette.h"

#include <gtest/gtest.h>

#include <set>

namespace quillmarker
{
namespace
{

TEST(TheColourPalette, ShowsTheseColoursRowByRow)
{
    struct Row
    {
        int indices[3];
        Colour colours[3];
    };
    const Row rows[] = {
        {{0, 8, 16}, {Colour::Of(254, 254, 254), Colour::Of(192, 192, 192), Colour::Of(128, 128, 128)}},
        {{24, 25, 26}, {Colour::Of(224, 224, 224), Colour::Of(64, 64, 64), Colour::Of(0, 0, 0)}},
        {{1, 9, 17}, {Colour::Of(255, 0, 0), Colour::Of(192, 0, 0), Colour::Of(128, 0, 0)}},
        {{2, 10, 18}, {Colour::Of(255, 128, 0), Colour::Of(192, 64, 0), Colour::Of(128, 64, 0)}},
        {{3, 11, 19}, {Colour::Of(255, 255, 0), Colour::Of(192, 192, 0), Colour::Of(128, 128, 0)}},
        {{4, 12, 20}, {Colour::Of(0, 255, 0), Colour::Of(0, 192, 0), Colour::Of(0, 128, 0)}},
        {{5, 13, 21}, {Colour::Of(0, 255, 255), Colour::Of(0, 192, 192), Colour::Of(0, 128, 128)}},
        {{6, 14, 22}, {Colour::Of(0, 0, 255), Colour::Of(0, 0, 192), Colour::Of(0, 0, 128)}},
        {{7, 15, 23}, {Colour::Of(255, 0, 255), Colour::Of(192, 0, 192), Colour::Of(128, 0, 128)}},
    };
    constexpr int kLefts[] = {60, 420, 780};
    int top = 60;
    for (const Row& row : rows)
    {
        for (int column = 0; column < 3; ++column)
        {
            const int index = row.indices[column];
            SCOPED_TRACE(index);
            EXPECT_EQ(kSwatches[static_cast<std::size_t>(index)].index, index);
            EXPECT_EQ(kSwatches[static_cast<std::size_t>(index)].colour, row.colours[column]);
            EXPECT_EQ(SwatchRectangle(index), QRect(kLefts[column], top, 315, 195));
            EXPECT_EQ(SwatchOf(row.colours[column]), index);
        }
        top += 240;
    }
}

TEST(TheColourPalette, ContainsAllSwatches)
{
    EXPECT_EQ(PaletteSize(), QSize(1155, 2220));
    for (const Swatch& swatch : kSwatches)
        EXPECT_TRUE(QRect(QPoint(), PaletteSize()).contains(SwatchRectangle(swatch.index)));
}

TEST(TheColourPalette, IsHitOnAllFourEdgesOfASwatch)
{
    EXPECT_EQ(SwatchAt(60, 60), 0);
    EXPECT_EQ(SwatchAt(375, 255), 0);
    EXPECT_EQ(SwatchAt(59, 60), std::nullopt);
    EXPECT_EQ(SwatchAt(60, 59), std::nullopt);
    EXPECT_EQ(SwatchAt(376, 255), std::nullopt);
    EXPECT_EQ(SwatchAt(375, 256), std::nullopt);
    EXPECT_EQ(SwatchAt(1095, 2175), 23);
    EXPECT_EQ(SwatchAt(1096, 2175), std::nullopt);
    EXPECT_EQ(SwatchAt(1095, 2176), std::nullopt);
    EXPECT_EQ(SwatchAt(-1, -1), std::nullopt);
}

TEST(TheColourPalette, IsHitByEverySwatchAndMissedByEveryGap)
{
    constexpr int kMiddleOfGap = 22;
    for (const Swatch& swatch : kSwatches)
    {
        const QRect place = SwatchRectangle(swatch.index);
        const QPoint middle = place.center();
        EXPECT_EQ(SwatchAt(middle.x(), middle.y()), swatch.index);
        EXPECT_EQ(SwatchAt(place.x() - kMiddleOfGap, middle.y()), std::nullopt);
        EXPECT_EQ(SwatchAt(middle.x(), place.y() - kMiddleOfGap), std::nullopt);
    }
}

TEST(TheColourPalette, KnowsNoSwatchOfAnotherColour)
{
    EXPECT_EQ(SwatchOf(Colour::Of(255, 255, 255)), std::nullopt);
    EXPECT_EQ(SwatchOf(Colour{}), std::nullopt);
}

TEST(TheColourPalette, IsWalkedByRowsAndColumns)
{
    EXPECT_EQ(MovedSwatch(0, Qt::Key_Right), 8);
    EXPECT_EQ(MovedSwatch(8, Qt::Key_Left), 0);
    EXPECT_EQ(MovedSwatch(0, Qt::Key_Down), 24);
    EXPECT_EQ(MovedSwatch(24, Qt::Key_Down), 1);
    EXPECT_EQ(MovedSwatch(9, Qt::Key_Up), 25);
    EXPECT_EQ(MovedSwatch(9, Qt::Key_Home), 1);
    EXPECT_EQ(MovedSwatch(9, Qt::Key_End), 17);
    EXPECT_EQ(MovedSwatch(9, Qt::Key_PageUp), 8);
    EXPECT_EQ(MovedSwatch(9, Qt::Key_PageDown), 15);
}

TEST(TheColourPalette, IsNotLeftByWalking)
{
    EXPECT_EQ(MovedSwatch(0, Qt::Key_Left), 0);
    EXPECT_EQ(MovedSwatch(0, Qt::Key_Up), 0);
    EXPECT_EQ(MovedSwatch(23, Qt::Key_Right), 23);
    EXPECT_EQ(MovedSwatch(23, Qt::Key_Down), 23);
    EXPECT_EQ(MovedSwatch(5, Qt::Key_A), std::nullopt);
    EXPECT_EQ(MovedSwatch(5, Qt::Key_Tab), std::nullopt);
}

TEST(TheColourPalette, HasANameOfItsOwnForEverySwatch)
{
    EXPECT_EQ(SwatchName(1), QStringLiteral("Red 255, 0, 0"));
    EXPECT_EQ(SwatchName(0), QStringLiteral("White 254, 254, 254"));
    std::set<QString> names;
    for (const Swatch& swatch : kSwatches)
        names.insert(SwatchName(swatch.index).section(QStringLiteral(" "), 0, -4));
    EXPECT_EQ(names.size(), kSwatches.size());
}

}  // namespace
}  // namespace quillmarker
