#include "engine/layout/paint_list.h"

#include "engine/layout/painted_sample.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace quillmarker
{
namespace
{

TextLine LineOf(Underline kind, float thicknessPixels = 1)
{
    return {.from = PixelPoint(5, 20),
            .length = 60 * static_cast<float>(kTwipsAPixel),
            .thickness = thicknessPixels * static_cast<float>(kTwipsAPixel),
            .kind = kind,
            .colour = kRed};
}

void AddIfNew(std::vector<QImage>& images, const QImage& image)
{
    if (std::find(images.begin(), images.end(), image) == images.end())
        images.push_back(image);
}

TEST(Strokes, AnUnderlineIsAsThickAsItSaysAndWholePixels)
{
    EXPECT_EQ(Inked(PaintedImage(Single(LineOf(Underline::Single, 1)), kSmall)).height(), 1);
    EXPECT_EQ(Inked(PaintedImage(Single(LineOf(Underline::Single, 3)), kSmall)).height(), 3);
    EXPECT_EQ(Inked(PaintedImage(Single(LineOf(Underline::Thick, 2)), kSmall)).height(), 4);
    EXPECT_EQ(Inked(PaintedImage(Single(LineOf(Underline::Hairline, 4)), kSmall)).height(), 1);
    const QImage thin = PaintedImage(Single(LineOf(Underline::Single, 0.1F)), kSmall);
    EXPECT_EQ(Inked(thin), QRect(5, 20, 60, 1)) << "never thinner than a pixel";
    EXPECT_EQ(CountOf(thin, kRedPixel), 60) << "and never grey";
}

TEST(Strokes, ADoubleUnderlineHasAGapAtEverySize)
{
    for (const double zoom : {0.5, 1.0, 1.3, 2.0, 3.7})
    {
        const QImage image = PaintedImage(Single(LineOf(Underline::Double)), QSize(300, 150), zoom);
        const int x = static_cast<int>(20 * zoom);
        int changes = 0;
        for (int y = 1; y < image.height(); ++y)
            changes += image.pixel(x, y) != image.pixel(x, y - 1) ? 1 : 0;
        EXPECT_EQ(changes, 4) << zoom;
    }
}

TEST(Strokes, EveryKindOfUnderlineLeavesItsOwnTrace)
{
    std::vector<QImage> seen;
    for (int kind = 1; kind <= static_cast<int>(Underline::Hairline); ++kind)
    {
        const QImage image = PaintedImage(Single(LineOf(static_cast<Underline>(kind), 2)), kSmall);
        const QRect inked = Inked(image);
        EXPECT_GE(inked.width(), 52) << kind << ": but for a gap at its ends";
        EXPECT_LE(inked.width(), 60) << kind << ": it stays in its length";
        AddIfNew(seen, image);
    }
    EXPECT_EQ(seen.size(), 17U) << "only words, which come cut into words, look like a single line";
    EXPECT_TRUE(Inked(PaintedImage(Single(LineOf(Underline::None)), kSmall)).isEmpty());
}

TEST(Strokes, DashesGoOnInStepWhereALineIsCutInTwo)
{
    for (const Underline kind : {Underline::Dotted, Underline::DashDotDot, Underline::ThickLongDash, Underline::Wave})
    {
        const TextLine whole = LineOf(kind, 2);
        TextLine left = whole;
        left.length = 23 * static_cast<float>(kTwipsAPixel);
        TextLine right = whole;
        right.from.rx() += static_cast<double>(left.length);
        right.length -= left.length;
        DisplayList list;
        list.Add(left);
        list.Add(right);
        EXPECT_EQ(PaintedImage(list, kSmall), PaintedImage(Single(whole), kSmall)) << static_cast<int>(kind);
    }
}

TEST(Strokes, EveryBorderStyleIsDrawnBothWays)
{
    std::vector<QImage> seen;
    for (int style = 1; style <= static_cast<int>(BorderStyle::Outset); ++style)
    {
        const Border border = {.style = static_cast<BorderStyle>(style), .width = {30}, .colour = kRed};
        const QImage across =
            PaintedImage(Single(BorderLine{PixelPoint(10, 20), PixelPoint(70, 20), border}), QSize(80, 80));
        const QImage down =
            PaintedImage(Single(BorderLine{PixelPoint(20, 10), PixelPoint(20, 70), border}), QSize(80, 80));
        EXPECT_GE(Inked(across).width(), 56) << style;
        EXPECT_LE(Inked(across).height(), 10) << style;
        EXPECT_GE(Inked(down).height(), 56) << style;
        EXPECT_LE(Inked(down).width(), 10) << style;
        AddIfNew(seen, across);
    }
    EXPECT_EQ(seen.size(), 15U) << "a shadow is drawn as a single line, inset as engraved, outset as embossed";
    const QImage none =
        PaintedImage(Single(BorderLine{PixelPoint(10, 20), PixelPoint(70, 20), {.width = {30}}}), QSize(80, 80));
    EXPECT_TRUE(Inked(none).isEmpty());
}

TEST(Strokes, ABorderReachesIntoItsCorners)
{
    const Border border = {.style = BorderStyle::Single, .width = {60}, .colour = kRed};  // 4 pixels
    DisplayList list;
    list.Add(BorderLine{PixelPoint(10, 10), PixelPoint(50, 10), border});
    list.Add(BorderLine{PixelPoint(10, 10), PixelPoint(10, 30), border});
    const QImage image = PaintedImage(list, kSmall);
    EXPECT_EQ(Inked(image), QRect(8, 8, 44, 24));
    EXPECT_EQ(image.pixel(8, 8), kRedPixel);
}

}  // namespace
}  // namespace quillmarker
