#include "engine/layout/metafile/metafile.h"

#include "engine/layout/metafile_builder.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace quillmarker;

namespace
{

constexpr std::uint32_t kRed = 0x0000FF;  // as the formats store colours
constexpr std::uint32_t kGreen = 0x00FF00;
constexpr std::uint32_t kBlue = 0xFF0000;
constexpr std::uint32_t kCopy = 0x00CC0020;
constexpr int kNullPen = 5;

/// A picture of 100 by 100 played onto 100 by 100 white pixels.
class Played
{
public:
    explicit Played(const std::string& bytes, const MetafileHint& hint = {}) : m_image(100, 100, QImage::Format_RGB32)
    {
        m_image.fill(Qt::white);
        QPainter painter(&m_image);
        m_isPlayed = PlayMetafile(painter, QRectF(0, 0, 100, 100), bytes, hint);
    }

    bool IsPlayed() const { return m_isPlayed; }
    QColor At(int x, int y) const { return m_image.pixelColor(x, y); }

    int Inked(const QRect& area) const
    {
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y)
        {
            for (int x = area.left(); x <= area.right(); ++x)
                count += At(x, y) == QColor(Qt::white) ? 0 : 1;
        }
        return count;
    }

private:
    QImage m_image;
    bool m_isPlayed = false;
};

WmfBuilder Wmf() { return WmfBuilder().Pen(0, kNullPen, 0, 0); }
EmfBuilder Emf() { return EmfBuilder().NullPen(); }

ByteWriter Points16(std::initializer_list<int> numbers)
{
    ByteWriter body;
    body.U32(static_cast<std::uint32_t>(numbers.size() / 2));
    for (const int number : numbers)
        body.I16(number);
    return body;
}

ByteWriter Transform(float m11, float m12, float m21, float m22, float dx, float dy)
{
    return ByteWriter().F32(m11).F32(m12).F32(m21).F32(m22).F32(dx).F32(dy);
}

const QColor kWhite = Qt::white;
const QColor kShownRed(255, 0, 0);
const QColor kShownGreen(0, 255, 0);
const QColor kShownBlue(0, 0, 255);

}  // namespace

TEST(MetafileSize, IsTheFrameOfAnEmf)
{
    const MetafileSize size = SizeOfMetafile(EmfBuilder().Whole());
    ASSERT_TRUE(size.isKnown);
    EXPECT_NEAR(size.twips.width(), 100 / 25.4 * 1440, 0.01);
    EXPECT_NEAR(size.twips.height(), 100 / 25.4 * 1440, 0.01);
}

TEST(MetafileSize, IsTheBoxOfAPlaceableWmfAndUnknownOfAnother)
{
    EXPECT_EQ(SizeOfMetafile(WmfBuilder().Placeable(0, 0, 200, -100, 100)),
              (MetafileSize{.twips = QSizeF(2880, 1440), .isKnown = true}));
    EXPECT_FALSE(SizeOfMetafile(WmfBuilder().Standard()).isKnown);
    EXPECT_FALSE(SizeOfMetafile("no metafile at all").isKnown);
    EXPECT_FALSE(SizeOfMetafile({}).isKnown);
}

TEST(PlayMetafile, RefusesWhatIsNoMetafileAndPaintsNothing)
{
    for (const std::string& bytes : {std::string(), std::string("BM not this"), std::string(200, '\0')})
    {
        const Played played(bytes);
        EXPECT_FALSE(played.IsPlayed());
        EXPECT_EQ(played.Inked(QRect(0, 0, 100, 100)), 0);
    }
}

TEST(PlayMetafile, LeavesThePainterAsItWasAndStaysInsideTheTarget)
{
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::red);
    painter.setClipRect(QRect(0, 0, 60, 100));
    const QTransform transform = painter.transform();
    const std::string bytes = Wmf().Brush(1, kBlue).Rectangle(-1000, -1000, 1000, 1000).Standard();
    ASSERT_TRUE(PlayMetafile(painter, QRectF(20, 20, 60, 60), bytes, {}));
    EXPECT_EQ(painter.transform(), transform);
    EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
    EXPECT_EQ(painter.clipBoundingRect(), QRectF(0, 0, 60, 100));
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
    EXPECT_EQ(image.pixelColor(21, 21), kShownBlue);
    EXPECT_EQ(image.pixelColor(19, 50), kWhite);
    EXPECT_EQ(image.pixelColor(61, 50), kWhite) << "the caller's clip holds";
}

TEST(Wmf, FillsARectangleWithTheSelectedBrush)
{
    const Played played(Wmf().Brush(1, kRed).Rectangle(20, 30, 60, 70).Standard());
    EXPECT_TRUE(played.IsPlayed());
    EXPECT_EQ(played.At(21, 31), kShownRed);
    EXPECT_EQ(played.At(58, 68), kShownRed);
    EXPECT_EQ(played.At(18, 50), kWhite);
    EXPECT_EQ(played.At(62, 50), kWhite);
}

TEST(Wmf, AWindowThatGrowsUpwardsTurnsThePictureOver)
{
    const Played played(
        Wmf().Words(0x020B, {100, 0}).Words(0x020C, {-100, 100}).Brush(1, kRed).Rectangle(0, 0, 100, 20).Standard());
    EXPECT_EQ(played.At(50, 90), kShownRed);
    EXPECT_EQ(played.At(50, 10), kWhite);
}

TEST(Wmf, ANewObjectTakesTheLowestFreeHandle)
{
    WmfBuilder builder = Wmf();
    builder.Brush(1, kRed).Brush(2, kGreen).Words(0x01F0, {1}).Brush(1, kBlue);
    EXPECT_EQ(Played(builder.Words(0x012D, {2}).Rectangle(0, 0, 50, 50).Standard()).At(20, 20), kShownGreen);
    EXPECT_EQ(Played(builder.Words(0x012D, {1}).Rectangle(0, 0, 50, 50).Standard()).At(20, 20), kShownBlue);
}

TEST(Wmf, RestoringBringsTheBrushAndTheClipBack)
{
    const Played played(Wmf()
                            .Brush(1, kRed)
                            .Words(0x001E, {})
                            .Brush(2, kBlue)
                            .Words(0x0416, {50, 50, 0, 0})
                            .Rectangle(0, 0, 100, 100)
                            .Words(0x0127, {-1})
                            .Rectangle(60, 60, 100, 100)
                            .Standard());
    EXPECT_EQ(played.At(20, 20), kShownBlue);
    EXPECT_EQ(played.At(55, 20), kWhite);
    EXPECT_EQ(played.At(80, 80), kShownRed);
}

TEST(Wmf, ExcludesARectangle)
{
    const Played played(Wmf().Brush(1, kRed).Words(0x0415, {60, 60, 40, 40}).Rectangle(0, 0, 100, 100).Standard());
    EXPECT_EQ(played.At(50, 50), kWhite);
    EXPECT_EQ(played.At(20, 50), kShownRed);
    EXPECT_EQ(played.At(80, 80), kShownRed);
}

TEST(Wmf, DrawsLinesInTheWidthOfThePen)
{
    const Played played(WmfBuilder().Pen(0, 0, 10, kGreen).Words(0x0214, {50, 0}).Words(0x0213, {50, 100}).Standard());
    EXPECT_EQ(played.At(50, 47), kShownGreen);
    EXPECT_EQ(played.At(50, 53), kShownGreen);
    EXPECT_EQ(played.At(50, 43), kWhite);
    EXPECT_EQ(played.At(50, 57), kWhite);
}

TEST(Wmf, APolygonThatCrossesItselfHasAHoleOnlyWhenAlternating)
{
    // Two squares, one in the other, in one line.
    const std::initializer_list<int> squares = {10, 10, 10, 90, 10, 90, 90, 10, 90, 10, 10,
                                                30, 30, 70, 30, 70, 70, 30, 70, 30, 30};
    EXPECT_EQ(Played(Wmf().Brush(1, kRed).Words(0x0324, squares).Standard()).At(50, 50), kWhite);
    EXPECT_EQ(Played(Wmf().Brush(1, kRed).Words(0x0106, {2}).Words(0x0324, squares).Standard()).At(50, 50), kShownRed);
}

TEST(Wmf, AnEllipseLeavesItsCornersFree)
{
    const Played played(Wmf().Brush(1, kBlue).Words(0x0418, {100, 100, 0, 0}).Standard());
    EXPECT_EQ(played.At(50, 50), kShownBlue);
    EXPECT_EQ(played.At(50, 3), kShownBlue);
    EXPECT_EQ(played.At(5, 5), kWhite);
}

TEST(Wmf, APieRunsCounterclockwise)
{
    // From three o'clock to twelve o'clock: the upper right quarter.
    const Played played(Wmf().Brush(1, kBlue).Words(0x081A, {0, 50, 50, 100, 100, 100, 0, 0}).Standard());
    EXPECT_EQ(played.At(70, 30), kShownBlue);
    EXPECT_EQ(played.At(30, 30), kWhite);
    EXPECT_EQ(played.At(70, 70), kWhite);
}

TEST(Wmf, AHatchLeavesGapsWhenTheGroundIsTransparent)
{
    WmfBuilder builder = Wmf();
    builder.Words(0x0102, {1}).Record(0x02FC, ByteWriter().U16(2).U32(kRed).U16(1)).Words(0x012D, {1});
    const Played played(builder.Rectangle(0, 0, 100, 100).Standard());
    const int inked = played.Inked(QRect(10, 10, 80, 80));
    EXPECT_GT(inked, 80);
    EXPECT_LT(inked, 3200);
}

TEST(Wmf, PaintsABitmapTheRightWayUp)
{
    ByteWriter body;
    body.U32(kCopy).U16(0).I16(2).I16(2).I16(0).I16(0).I16(100).I16(100).I16(0).I16(0);
    body.Bytes(DibOf(2, 2, {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF}));
    const Played played(Wmf().Record(0x0F43, body).Standard());
    EXPECT_EQ(played.At(10, 90), kShownRed);
    EXPECT_EQ(played.At(90, 90), kShownGreen);
    EXPECT_EQ(played.At(10, 10), kShownBlue);
    EXPECT_EQ(played.At(90, 10), kWhite);
}

TEST(Wmf, AMaskAndAPictureLeaveWhatTheMaskKeeps)
{
    constexpr std::uint32_t kAnd = 0x008800C6;
    constexpr std::uint32_t kOr = 0x00EE0086;
    const auto blit = [](std::uint32_t operation, const std::string& dib) {
        ByteWriter body;
        body.U32(operation).I16(1).I16(2).I16(0).I16(0).I16(100).I16(100).I16(0).I16(0);
        return body.Bytes(dib);
    };
    const Played played(Wmf()
                            .Brush(1, kGreen)
                            .Rectangle(0, 0, 100, 100)
                            .Record(0x0B41, blit(kAnd, DibOf(2, 1, {0xFFFFFF, 0x000000})))
                            .Record(0x0B41, blit(kOr, DibOf(2, 1, {0x000000, 0xFF0000})))
                            .Standard());
    EXPECT_EQ(played.At(10, 50), kShownGreen);
    EXPECT_EQ(played.At(90, 50), kShownRed);
}

TEST(Wmf, TheHintSaysTheWindowOfAPictureThatDoesNot)
{
    const std::string header = ByteWriter().U16(1).U16(9).U16(0x300).U32(0).U16(4).U32(0).U16(0).Written();
    const std::string records = Wmf().Brush(1, kRed).Rectangle(0, 0, 1000, 1000).Standard();
    const std::string withoutWindow = header + records.substr(18 + 20);
    const Played played(withoutWindow, {.mapping = 8, .width = 2000, .height = 2000});
    EXPECT_EQ(played.At(45, 45), kShownRed);
    EXPECT_EQ(played.At(55, 55), kWhite);
}

TEST(Wmf, TextIsWhereItIsPutAndInItsColour)
{
    WmfBuilder builder = Wmf();
    ByteWriter font;
    font.I16(-40).I16(0).I16(0).I16(0).I16(700).U8(0).U8(0).U8(0).U8(0).U32(0).Bytes("Arial").U8(0);
    builder.Words(0x0102, {1}).Record(0x0209, ByteWriter().U32(kRed)).Record(0x02FB, font).Words(0x012D, {1});
    builder.Record(0x0521, ByteWriter().U16(2).Bytes("HH").I16(30).I16(20));
    const Played played(builder.Standard());
    EXPECT_GT(played.Inked(QRect(20, 30, 79, 50)), 300);
    EXPECT_EQ(played.Inked(QRect(0, 0, 100, 30)), 0);
    EXPECT_EQ(played.Inked(QRect(0, 0, 20, 100)), 0);
}

TEST(Wmf, TextThatIsTurnedRunsAlongTheYOfTheWindow)
{
    const auto played = [](int escapement, bool growsUpwards) {
        WmfBuilder builder = Wmf();
        if (growsUpwards)
            builder.Words(0x020B, {100, 0}).Words(0x020C, {-100, 100});
        ByteWriter font;
        font.I16(-20).I16(0).I16(escapement).I16(escapement).I16(700).U32(0).U32(0).Bytes("Arial").U8(0);
        builder.Words(0x0102, {1}).Record(0x02FB, font).Words(0x012D, {1});
        builder.Record(0x0521, ByteWriter().U16(4).Bytes("HHHH").I16(50).I16(50));
        return Played(builder.Standard());
    };
    const QRect above(25, 0, 50, 45);
    const QRect below(25, 55, 50, 45);
    EXPECT_GT(played(900, false).Inked(above), 100);
    EXPECT_EQ(played(900, false).Inked(below), 0);
    EXPECT_GT(played(2700, false).Inked(below), 100);
    EXPECT_EQ(played(2700, false).Inked(above), 0);
    EXPECT_GT(played(2700, true).Inked(above), 100);
    EXPECT_EQ(played(2700, true).Inked(below), 0);
}

TEST(Emf, TheWorldTransformMovesAndTurns)
{
    EmfBuilder builder = Emf();
    // A quarter turn clockwise about the origin, then to the right.
    builder.Brush(1, kRed).Record(35, Transform(0, 1, -1, 0, 100, 0)).Rectangle(0, 0, 40, 20);
    const Played played(builder.Whole());
    EXPECT_EQ(played.At(90, 20), kShownRed);
    EXPECT_EQ(played.At(82, 38), kShownRed);
    EXPECT_EQ(played.At(70, 10), kWhite);
    EXPECT_EQ(played.At(10, 10), kWhite);
}

TEST(Emf, ModifyingTheWorldMultipliesOnTheSideThatIsSaid)
{
    const auto played = [](std::uint32_t side) {
        EmfBuilder builder = Emf();
        builder.Brush(1, kRed).Record(35, Transform(2, 0, 0, 2, 0, 0));
        builder.Record(36, Transform(1, 0, 0, 1, 20, 0).U32(side)).Rectangle(0, 0, 10, 10);
        return Played(builder.Whole());
    };
    EXPECT_EQ(played(2).At(50, 10), kShownRed) << "moved, then doubled";
    EXPECT_EQ(played(2).At(30, 10), kWhite);
    EXPECT_EQ(played(3).At(30, 10), kShownRed) << "doubled, then moved";
    EXPECT_EQ(played(3).At(50, 10), kWhite);
}

TEST(Emf, WindowAndViewportScale)
{
    EmfBuilder builder = Emf();
    builder.Longs(17, {8}).Longs(9, {1000, 1000}).Longs(11, {50, 50}).Longs(12, {50, 0});
    const Played played(builder.Brush(1, kRed).Rectangle(0, 0, 1000, 1000).Whole());
    EXPECT_EQ(played.At(75, 25), kShownRed);
    EXPECT_EQ(played.At(25, 25), kWhite);
    EXPECT_EQ(played.At(75, 75), kWhite);
}

TEST(Emf, APathIsFilledAndThenClips)
{
    EmfBuilder builder = Emf();
    const auto triangle = [&] {
        builder.Record(59, {}).Longs(27, {0, 0}).Longs(54, {100, 0}).Longs(54, {0, 100}).Record(61, {}).Record(60, {});
    };
    triangle();
    builder.Brush(1, kRed).Drawing(62, {});
    triangle();
    builder.Longs(67, {5}).Brush(2, kBlue).Rectangle(0, 0, 100, 50);
    const Played played(builder.Whole());
    EXPECT_EQ(played.At(20, 60), kShownRed);
    EXPECT_EQ(played.At(20, 20), kShownBlue);
    EXPECT_EQ(played.At(80, 40), kWhite) << "outside of the path";
    EXPECT_EQ(played.At(80, 80), kWhite);
}

TEST(Emf, PolygonsOfSmallPointsAreFilled)
{
    const Played played(Emf().Brush(1, kGreen).Drawing(86, Points16({10, 10, 90, 10, 90, 90, 10, 90})).Whole());
    EXPECT_EQ(played.At(50, 50), kShownGreen);
    EXPECT_EQ(played.At(5, 50), kWhite);
}

TEST(Emf, CurvesBendAwayFromTheirChord)
{
    const Played played(EmfBuilder().Pen(1, 0, 6, kRed).Drawing(85, Points16({10, 90, 10, 0, 90, 0, 90, 90})).Whole());
    EXPECT_EQ(played.At(50, 22), kShownRed);
    EXPECT_EQ(played.At(50, 85), kWhite);
}

TEST(Emf, ThePatternAloneFillsWhenThereIsNoBitmap)
{
    ByteWriter body;
    body.I32(10).I32(10).I32(50).I32(50).U32(0x00F00021);
    for (int i = 0; i < 14; ++i)
        body.U32(0);
    const Played played(Emf().Brush(1, kBlue).Drawing(76, body).Whole());
    EXPECT_EQ(played.At(30, 30), kShownBlue);
    EXPECT_EQ(played.At(70, 70), kWhite);
}

TEST(Emf, ABitmapIsStretchedIntoItsRectangle)
{
    const std::string dib = DibOf(1, 1, {0xFF0000});
    ByteWriter body;
    body.I32(20).I32(20).I32(0).I32(0).I32(1).I32(1).U32(80).U32(40).U32(120).U32(4).U32(0).U32(kCopy).I32(60).I32(60);
    const Played played(Emf().Drawing(81, body.Bytes(dib)).Whole());
    EXPECT_EQ(played.At(25, 25), kShownRed);
    EXPECT_EQ(played.At(75, 75), kShownRed);
    EXPECT_EQ(played.At(15, 50), kWhite);
    EXPECT_EQ(played.At(85, 50), kWhite);
}

TEST(Emf, AGradientRunsFromOneColourToTheOther)
{
    ByteWriter body;
    body.U32(2).U32(1).U32(0);
    body.I32(0).I32(0).U16(0xFF00).U16(0).U16(0).U16(0);
    body.I32(100).I32(100).U16(0).U16(0).U16(0xFF00).U16(0);
    const Played played(Emf().Drawing(118, body.U32(0).U32(1)).Whole());
    EXPECT_GT(played.At(5, 50).red(), 230);
    EXPECT_GT(played.At(95, 50).blue(), 230);
    EXPECT_NEAR(played.At(50, 50).red(), played.At(50, 50).blue(), 8);
}

TEST(Emf, TextStandsAtItsStepsOverItsGround)
{
    EmfBuilder builder = Emf();
    ByteWriter font;
    font.U32(1).I32(-20).I32(0).I32(0).I32(0).I32(700).U32(0).U32(0);
    for (const char letter : std::string("Arial"))
        font.U16(static_cast<unsigned char>(letter));
    builder.Record(82, font.U16(0)).Longs(37, {1}).Longs(18, {1});
    ByteWriter text;
    text.U32(1).F32(1).F32(1).I32(10).I32(20).U32(2).U32(76).U32(2).I32(0).I32(50).I32(100).I32(100).U32(80);
    text.U16('I').U16('I').I32(60).I32(10);
    builder.Record(25, ByteWriter().U32(kGreen));
    const Played played(builder.Drawing(84, text).Whole());
    EXPECT_EQ(played.At(50, 75), kShownGreen);
    EXPECT_GT(played.Inked(QRect(10, 20, 15, 25)), 20);
    EXPECT_EQ(played.Inked(QRect(30, 20, 35, 25)), 0);
    EXPECT_GT(played.Inked(QRect(70, 20, 15, 25)), 20);
}

TEST(Emf, WhatItDrawsInCommentsOfALaterFormatIsRefusedUnlessItDrawsItself)
{
    const ByteWriter comment = ByteWriter().U32(8).Bytes("EMF+").U32(0);
    EXPECT_FALSE(Played(Emf().Record(70, comment).Whole()).IsPlayed());
    const Played played(Emf().Record(70, comment).Brush(1, kRed).Rectangle(0, 0, 50, 50).Whole());
    EXPECT_TRUE(played.IsPlayed());
    EXPECT_EQ(played.At(20, 20), kShownRed);
}

TEST(Wmf, TheEmfItWasMadeFromIsPlayedInItsPlace)
{
    const std::string emf = Emf().Brush(1, kBlue).Rectangle(0, 0, 100, 100).Whole();
    const auto size = static_cast<std::uint32_t>(emf.size());
    const auto comment = [&](std::uint32_t stated) {
        return ByteWriter()
            .U16(15)
            .U16(size + 34)
            .Bytes("WMFC")
            .U32(1)
            .U32(0x10000)
            .U16(0)
            .U32(0)
            .U32(1)
            .U32(size)
            .U32(0)
            .U32(stated)
            .Bytes(emf);
    };
    EXPECT_EQ(
        Played(Wmf().Record(0x0626, comment(size)).Brush(1, kRed).Rectangle(0, 0, 100, 100).Standard()).At(50, 50),
        kShownBlue);
    EXPECT_EQ(
        Played(Wmf().Record(0x0626, comment(size + 1)).Brush(1, kRed).Rectangle(0, 0, 100, 100).Standard()).At(50, 50),
        kShownRed);
}
