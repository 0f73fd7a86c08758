#include "engine/layout/paint_list.h"

#include "engine/layout/painted_sample.h"

#include <gmock/gmock.h>

#include <QPicture>

#include <algorithm>
#include <vector>

namespace quillmarker
{
namespace
{

TEST(PaintList, AFillCoversExactlyItsPixels)
{
    const QImage image =
        PaintedImage(Single(FilledRectangle{.rectangle = PixelRectangle(10, 5, 20, 10), .colour = kRed}), kSmall);
    EXPECT_EQ(Inked(image), QRect(10, 5, 20, 10));
    EXPECT_EQ(CountOf(image, kRedPixel), 200);
}

TEST(PaintList, NeighbouringFillsLeaveNoSeamAndDoNotOverlap)
{
    DisplayList list;
    list.Add(FilledRectangle{.rectangle = PixelRectangle(10.3, 5, 9.4, 10), .colour = kRed});
    list.Add(FilledRectangle{.rectangle = PixelRectangle(19.7, 5, 10.3, 10), .colour = kBlue});
    const QImage image = PaintedImage(list, kSmall);
    EXPECT_EQ(image.pixel(19, 8), kRedPixel);
    EXPECT_EQ(image.pixel(20, 8), 0xFF0000FF);
    EXPECT_EQ(CountOf(image, kRedPixel), 100);
    EXPECT_EQ(CountOf(image, 0xFF0000FF), 100);
}

/// A face that has to be thickened, as one of a family without bold.
class ThickFace final : public FontFace
{
public:
    explicit ThickFace(const FontFace& face) : m_face(face)
    {
        FaceMetrics metrics = face.Metrics();
        metrics.thickening = metrics.unitsPerEm / 8;
        SetMetrics(metrics);
    }
    ShapedText Shape(std::u16string_view text, TextDirection direction, Kerning kerning) const override
    {
        return m_face.Shape(text, direction, kerning);
    }
    FaceIdentity Identity() const override { return m_face.Identity(); }
    QRawFont RawFont(qreal pixelSize) const override { return m_face.RawFont(pixelSize); }

private:
    void FillPage(char16_t first, GlyphPage& page) const override
    {
        for (std::size_t i = 0; i < page.size(); ++i)
            page[i] = m_face.Simple(static_cast<char16_t>(first + i));
    }

    const FontFace& m_face;
};

TEST(PaintList, GlyphsOfAFamilyWithoutBoldAreThickened)
{
    const auto fonts = SystemFonts();
    const FontFace& face = fonts->Face(FontRequest{.name = u"Liberation Sans"});
    const ThickFace thick(face);
    const auto inked = [](const FontFace& used) {
        DisplayList list;
        list.Add(RunOf(list, used, u"I", 450, PixelPoint(20, 35)));
        return Inked(PaintedImage(list, kSmall));
    };
    const QRect before = inked(face);
    const QRect after = inked(thick);
    EXPECT_GE(after.width(), before.width() + 2);
    EXPECT_TRUE(after.contains(before));
}

TEST(PaintList, AutomaticFillsTakeTheGroundTheyName)
{
    const GroundColours dark = {.text = QColor(0xEE, 0xEE, 0xEE), .background = QColor(0x20, 0x20, 0x20)};
    DisplayList list;
    list.Add(FilledRectangle{.rectangle = PixelRectangle(0, 0, 10, 10), .ground = Ground::Text});
    list.Add(FilledRectangle{.rectangle = PixelRectangle(20, 0, 10, 10), .ground = Ground::Background});
    const QImage image = PaintedImage(list, kSmall, 1, dark);
    EXPECT_EQ(image.pixel(5, 5), 0xFFEEEEEE);
    EXPECT_EQ(image.pixel(25, 5), 0xFF202020);
}

TEST(PaintList, ShadingMixesItsPatternIntoItsFill)
{
    DisplayList list;
    list.Add(
        FilledRectangle{.rectangle = PixelRectangle(0, 0, 10, 10), .colour = kRed, .mixed = 2500, .pattern = kBlue});
    list.Add(FilledRectangle{.rectangle = PixelRectangle(10, 0, 10, 10), .mixed = 5000});  // automatic in automatic
    list.Add(
        FilledRectangle{.rectangle = PixelRectangle(20, 0, 10, 10), .colour = kRed, .mixed = 99999, .pattern = kBlue});
    const QImage image = PaintedImage(list, kSmall);
    EXPECT_EQ(image.pixel(5, 5), qRgb(192, 0, 63));
    EXPECT_EQ(image.pixel(15, 5), qRgb(128, 128, 128));
    EXPECT_EQ(image.pixel(25, 5), qRgb(0, 0, 255));
}

TEST(PaintList, ClipsNestAndEnd)
{
    const FilledRectangle all = {.rectangle = PixelRectangle(0, 0, 80, 40), .colour = kRed};
    DisplayList list;
    list.Add(BeginClip{PixelRectangle(10, 10, 30, 20)});
    list.Add(BeginClip{PixelRectangle(20, 0, 60, 20)});
    list.Add(all);
    list.Add(EndClip{});
    list.Add(EndClip{});
    list.Add(FilledRectangle{.rectangle = PixelRectangle(70, 35, 5, 5), .colour = kBlue});
    const QImage image = PaintedImage(list, kSmall);
    EXPECT_EQ(CountOf(image, kRedPixel), 20 * 10);
    EXPECT_EQ(image.pixel(20, 10), kRedPixel);
    EXPECT_EQ(image.pixel(39, 19), kRedPixel);
    EXPECT_EQ(CountOf(image, 0xFF0000FF), 25);
}

TEST(PaintList, AClipLeftOpenOrClosedTwiceHarmsNobody)
{
    DisplayList list;
    list.Add(EndClip{});
    list.Add(BeginClip{PixelRectangle(0, 0, 10, 10)});
    QImage image(kSmall, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::green);
    Paint(painter, list, {}, 1 / kTwipsAPixel);
    EXPECT_FALSE(painter.hasClipping());
    EXPECT_EQ(painter.pen().color(), QColor(Qt::green)) << "the painter is left as it was";
    EXPECT_EQ(painter.transform(), QTransform());
}

TEST(PaintList, ThePaintersOwnClipIsKept)
{
    QImage image(kSmall, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setClipRect(0, 0, 40, 40);
    Paint(painter, Single(FilledRectangle{.rectangle = PixelRectangle(0, 0, 80, 40), .colour = kRed}), {},
          1 / kTwipsAPixel);
    painter.end();
    EXPECT_EQ(Inked(image), QRect(0, 0, 40, 40));
}

TEST(PaintList, TheOriginMovesAllAndThePaintersTransformToo)
{
    DisplayList list;
    list.Add(FilledRectangle{.rectangle = PixelRectangle(0, 0, 4, 4), .colour = kRed});
    list.Add(BorderLine{PixelPoint(10, 2), PixelPoint(20, 2), {.style = BorderStyle::Single, .width = {15}}});
    const QImage moved = PaintedImage(list, kSmall, 1, {}, {7, 9});
    EXPECT_EQ(moved.pixel(7, 9), kRedPixel);
    QImage image(kSmall, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(7, 9);
    Paint(painter, list, {}, 1 / kTwipsAPixel);
    painter.end();
    EXPECT_EQ(image, moved);
}

TEST(PaintList, TextIsSetInItsRealSizeWhateverScalesIt)
{
    const auto fonts = SystemFonts();
    DisplayList list;
    list.Add(RunOf(list, fonts->Face(FontRequest{.name = u"Liberation Sans"}), u"Hxg", 300, PixelPoint(10, 60)));
    const QImage byScale = PaintedImage(list, QSize(300, 200), 2);
    QImage byPainter(QSize(300, 200), QImage::Format_RGB32);
    byPainter.fill(Qt::white);
    byPainter.setDevicePixelRatio(2);
    QPainter painter(&byPainter);
    Paint(painter, list, {}, 1 / kTwipsAPixel);
    painter.end();
    const QRect a = Inked(byScale);
    const QRect b = Inked(byPainter);
    EXPECT_NEAR(a.left(), b.left(), 1);
    EXPECT_NEAR(a.right(), b.right(), 1);
    EXPECT_NEAR(a.top(), b.top(), 1);
    EXPECT_NEAR(a.bottom(), b.bottom(), 1);
    // H of 300 twips is 0.716 em high: 28.6 pixels at 2 x 20.
    EXPECT_NEAR(a.top(), 120 - 29, 1);
}

TEST(PaintList, StretchWidensGlyphsAboutTheirPlaces)
{
    const auto fonts = SystemFonts();
    DisplayList list;
    GlyphRun run = RunOf(list, fonts->Face(FontRequest{.name = u"Liberation Sans"}), u"H", 600, PixelPoint(10, 60));
    list.Add(run);
    const QRect plain = Inked(PaintedImage(list, QSize(200, 80)));
    run.stretch = 2;
    std::get<GlyphRun>(list.items[0]) = run;
    const QRect wide = Inked(PaintedImage(list, QSize(200, 80)));
    EXPECT_EQ(wide.height(), plain.height());
    EXPECT_NEAR(wide.width(), 2 * plain.width(), 2);
    EXPECT_NEAR(wide.left() - 10, 2 * (plain.left() - 10), 1);
}

TEST(PaintList, AGlyphThatTheFontDoesNotHaveIsLeftOut)
{
    const auto fonts = SystemFonts();
    DisplayList list;
    GlyphRun run = RunOf(list, fonts->Face(FontRequest{.name = u"Liberation Sans"}), u"H", 600, PixelPoint(10, 30));
    const QImage plain = [&] {
        list.Add(run);
        return PaintedImage(list, kSmall);
    }();
    run.glyphs.push_back({0xFFFFFFFF, 300, 0});
    run.glyphs.push_back({65535, 300, 0});
    std::get<GlyphRun>(list.items[0]) = run;
    EXPECT_EQ(PaintedImage(list, kSmall), plain);
    EXPECT_FALSE(Inked(plain).isEmpty());
    run.face = 7;
    std::get<GlyphRun>(list.items[0]) = run;
    EXPECT_TRUE(Inked(PaintedImage(list, kSmall)).isEmpty());
}

QImage TextOn(Colour fill, Colour text, const GroundColours& colours)
{
    const auto fonts = SystemFonts();
    DisplayList list;
    list.Add(FilledRectangle{.rectangle = PixelRectangle(0, 0, 80, 40), .colour = fill});
    list.Add(RunOf(list, fonts->Face(FontRequest{.name = u"Liberation Sans"}), u"HHH", 450, PixelPoint(5, 33), text));
    list.Add(TextLine{.from = PixelPoint(5, 36), .length = 600, .thickness = 30, .colour = text});
    return PaintedImage(list, kSmall, 1, colours);
}

TEST(PaintList, AutomaticTextCanBeReadOnEveryGround)
{
    const GroundColours paper;
    const GroundColours night = {.text = QColor(0xEE, 0xEE, 0xEE), .background = QColor(0x20, 0x20, 0x20)};
    const Colour navy = Colour::Of(0, 0, 128);
    const Colour yellow = Colour::Of(255, 255, 0);
    EXPECT_GT(CountOf(TextOn(navy, {}, paper), kWhitePixel), 80);
    EXPECT_GT(CountOf(TextOn(yellow, {}, paper), kBlackPixel), 80);
    EXPECT_GT(CountOf(TextOn(navy, {}, night), 0xFFEEEEEE), 80) << "the palette's own colour where that can be read";
    EXPECT_GT(CountOf(TextOn(yellow, {}, night), kBlackPixel), 80);
    EXPECT_GT(CountOf(TextOn({}, {}, night), 0xFFEEEEEE), 80);
    EXPECT_GT(CountOf(TextOn(navy, kBlue, paper), 0xFF0000FF), 80) << "a colour that was asked for is kept";
}

TEST(PaintList, AutomaticTextKnowsWhatAnotherListPaintedBehindIt)
{
    const auto fonts = SystemFonts();
    DisplayList behind;
    behind.Add(FilledRectangle{.rectangle = PixelRectangle(0, 0, 80, 40), .colour = Colour::Of(0, 0, 128)});
    DisplayList list;
    list.Add(RunOf(list, fonts->Face(FontRequest{.name = u"Liberation Sans"}), u"HHH", 450, PixelPoint(5, 33)));
    QImage image(kSmall, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter painter(&image);
    Paint(painter, list, {}, 1 / kTwipsAPixel, {}, &behind);
    painter.end();
    EXPECT_GT(CountOf(image, kWhitePixel), 80);
    EXPECT_EQ(image.pixel(0, 0), kRedPixel) << "it is not painted again";
}

TEST(PaintList, WhatCannotBeSeenIsNotPainted)
{
    DisplayList list;
    for (int i = 0; i < 200; ++i)
    {
        list.Add(FilledRectangle{.rectangle = PixelRectangle(0, 100 * i, 80, 40), .colour = kRed});
        list.Add(TextLine{.from = PixelPoint(0, 100 * i + 50), .length = 600, .thickness = 30, .colour = kRed});
        list.Add(PlacedPicture{.rectangle = PixelRectangle(0, 100 * i + 60, 40, 20)});
    }
    const auto sizeOf = [&](bool clipped) {
        QPicture picture;
        QPainter painter(&picture);
        if (clipped)
            painter.setClipRect(0, 0, 80, 40);
        Paint(painter, list, {}, 1 / kTwipsAPixel);
        painter.end();
        return picture.size();
    };
    EXPECT_LT(sizeOf(true) * 20, sizeOf(false));
}

TEST(PaintList, GiganticThingsCostWhatCanBeSeen)
{
    constexpr float kHuge = 1e9F;
    DisplayList list;
    for (int kind = 0; kind <= static_cast<int>(Underline::Hairline); ++kind)
        list.Add(TextLine{.from = QPointF(-1e8, 300),
                          .length = kHuge,
                          .thickness = 0.01F,
                          .kind = static_cast<Underline>(kind),
                          .colour = kRed});
    for (int style = 0; style <= static_cast<int>(BorderStyle::Outset); ++style)
    {
        const Border border = {.style = static_cast<BorderStyle>(style), .width = {1}, .colour = kRed};
        list.Add(BorderLine{QPointF(-1e9, 450), QPointF(1e9, 450), border});
        list.Add(BorderLine{QPointF(150, -1e9), QPointF(150, 1e9), border});
    }
    list.Add(FilledRectangle{.rectangle = QRectF(-1e9, -1e9, 1.1e9, 2e9), .colour = kBlue});
    const QImage image = PaintedImage(list, kSmall);
    EXPECT_EQ(image.pixel(10, 10), 0xFF0000FF);
}

}  // namespace
}  // namespace quillmarker
