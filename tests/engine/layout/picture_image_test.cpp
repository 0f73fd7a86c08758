#include "engine/layout/picture_image.h"

#include "engine/layout/picture_sample.h"

#include <gmock/gmock.h>

#include <initializer_list>
#include <limits>

namespace quillmarker
{
namespace
{

TEST(ShownSize, IsTheGoalLessItsCropScaled)
{
    InlinePicture picture = PictureOf(PictureKind::Png, "");
    picture.goalWidth = {3000};
    picture.goalHeight = {1500};
    EXPECT_EQ(ShownSize(picture), QSizeF(3000, 1500));
    picture.scaleX = 50;
    picture.scaleY = 200;
    EXPECT_EQ(ShownSize(picture), QSizeF(1500, 3000));
    picture.cropLeft = {600};
    picture.cropRight = {400};
    picture.cropTop = {-500};
    EXPECT_EQ(ShownSize(picture), QSizeF(1000, 4000));
}

TEST(ShownSize, WithoutAGoalIsTheBitmapsOwnAtItsResolution)
{
    QImage image = Quarters(200, 100);
    image.setDotsPerMeterX(11811);  // 300 an inch
    image.setDotsPerMeterY(5906);   // 150
    for (const char* format : {"PNG", "BMP"})
        EXPECT_EQ(ShownSize(PictureOf(PictureKind::Png, EncodedAs(image, format))), QSizeF(960, 960)) << format;
    EXPECT_EQ(ShownSize(PictureOf(PictureKind::Dib, Dib(image))), QSizeF(960, 960));
    image.setDotsPerMeterY(11811);
    EXPECT_EQ(ShownSize(PictureOf(PictureKind::Jpeg, EncodedAs(image, "JPEG"))), QSizeF(960, 480));
    EXPECT_EQ(ShownSize(PictureOf(PictureKind::Other, RedGif())), QSizeF(15, 15)) << "96 an inch where none is stated";
    image.setDotsPerMeterX(1);
    image.setDotsPerMeterY(2000000000);
    EXPECT_EQ(ShownSize(PictureOf(PictureKind::Png, EncodedAs(image, "PNG"))), QSizeF(3000, 1500)) << "or none likely";
}

TEST(ShownSize, WithoutAGoalIsAMetafilesInHundredthsOfAMillimetre)
{
    EXPECT_EQ(ShownSize({.kind = PictureKind::Wmf, .width = 2540, .height = 1270}), QSizeF(1440, 720));
    EXPECT_EQ(ShownSize({.kind = PictureKind::Ddb, .width = 20, .height = 10}), QSizeF(300, 150));
}

TEST(ShownSize, IsBoundedWhateverTheFileSays)
{
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    for (const std::int32_t goal : {kLeast, -1, 0, 1, kMost})
    {
        for (const std::int32_t crop : {kLeast, -1, 0, 1, kMost})
        {
            for (const std::int32_t scale : {kLeast, -1, 0, 1, kMost})
            {
                const QSizeF size = ShownSize({.width = goal,
                                               .goalWidth = {goal},
                                               .goalHeight = {kMost},
                                               .scaleX = scale,
                                               .scaleY = scale,
                                               .cropLeft = {crop},
                                               .cropTop = {crop},
                                               .cropRight = {crop},
                                               .cropBottom = {crop}});
                EXPECT_GE(size.width(), 1);
                EXPECT_LE(size.width(), kMaxPictureTwips);
                EXPECT_GE(size.height(), 1);
                EXPECT_LE(size.height(), kMaxPictureTwips);
            }
        }
    }
}

QImage Painted(const InlinePicture& picture, const QRectF& rectangle, double zoom = 1)
{
    QImage image(100, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(zoom, zoom);
    PaintPicture(painter, rectangle, picture);
    return image;
}

TEST(PaintPicture, FillsItsRectangleAndNothingElse)
{
    const InlinePicture picture = PictureOf(PictureKind::Png, EncodedAs(Quarters(20, 10), "PNG"));
    const QImage image = Painted(picture, QRectF(10, 10, 80, 40));
    ExpectQuarters(image.copy(10, 10, 80, 40));
    EXPECT_EQ(image.pixelColor(9, 30), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(91, 30), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(50, 9), QColor(Qt::white));
}

TEST(PaintPicture, ShowsWhatIsLeftOfItsCrop)
{
    InlinePicture picture = PictureOf(PictureKind::Png, EncodedAs(Quarters(400, 200), "PNG"));
    picture.goalWidth = {4000};
    picture.goalHeight = {2000};
    picture.cropLeft = {2000};
    picture.cropBottom = {1000};
    EXPECT_EQ(ShownSize(picture), QSizeF(2000, 1000));
    for (const double zoom : {0.1, 1.0})
    {
        const QImage image =
            Painted(picture, QRectF(10 / zoom, 10 / zoom, 80 / zoom, 40 / zoom), zoom).copy(11, 11, 78, 38);
        EXPECT_TRUE(LooksLike(Near(image, 0.02, 0.02), Qt::green)) << zoom;
        EXPECT_TRUE(LooksLike(Near(image, 0.98, 0.98), Qt::green)) << zoom;
    }
}

TEST(PaintPicture, ANegativeCropLeavesAMargin)
{
    InlinePicture picture = PictureOf(PictureKind::Png, EncodedAs(Quarters(40, 40), "PNG"));
    picture.goalWidth = {1000};
    picture.goalHeight = {1000};
    picture.cropLeft = {-1000};
    const QImage image = Painted(picture, QRectF(0, 0, 80, 40));
    EXPECT_EQ(image.pixelColor(20, 10), QColor(Qt::white));
    ExpectQuarters(image.copy(40, 0, 40, 40));
}

// Fills its frame of 20 x 10 mm (and units): red in the left half, blue in the right.
std::string TwoColouredEmf()
{
    std::string emf;
    const auto put = [&](std::initializer_list<std::uint32_t> numbers) {
        for (const std::uint32_t number : numbers)
        {
            emf.append(4, '\0');
            Put32(emf, emf.size() - 4, number);
        }
    };
    put({1, 88, 0, 0, 1999, 999, 0, 0, 2000, 1000});                   // header: bounds, frame
    put({0x464D4520, 0x10000, 0, 9, 4, 0, 0, 0, 2000, 1000, 20, 10});  // signature … device, millimetres
    put({39, 24, 1, 0, 0x0000FF, 0, 39, 24, 2, 0, 0xFF0000, 0});       // two solid brushes
    put({37, 12, 0x80000008});                                         // no pen
    put({37, 12, 1, 43, 24, 0, 0, 1000, 1000});                        // red rectangle
    put({37, 12, 2, 43, 24, 1000, 0, 2000, 1000});                     // blue rectangle
    put({14, 20, 0, 0, 20});                                           // end
    Put32(emf, 48, static_cast<std::uint32_t>(emf.size()));
    return emf;
}

TEST(PaintPicture, PlaysAMetafileWhateverItsKindSaysAndCropsIt)
{
    for (const PictureKind kind : {PictureKind::Emf, PictureKind::Wmf, PictureKind::Png, PictureKind::Other})
    {
        InlinePicture picture = PictureOf(kind, TwoColouredEmf());
        const QImage image = Painted(picture, QRectF(10, 10, 80, 40));
        EXPECT_EQ(image.pixelColor(30, 30), QColor(Qt::red)) << static_cast<int>(kind);
        EXPECT_EQ(image.pixelColor(70, 30), QColor(Qt::blue));
        EXPECT_EQ(image.pixelColor(5, 30), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(95, 30), QColor(Qt::white));
    }
    InlinePicture picture = PictureOf(PictureKind::Emf, TwoColouredEmf());
    EXPECT_NEAR(ShownSize(picture).width(), 1134, 1) << "20 mm";
    picture.goalWidth = {2000};
    picture.goalHeight = {1000};
    picture.cropLeft = {1000};
    const QImage image = Painted(picture, QRectF(10, 10, 80, 40));
    EXPECT_EQ(image.pixelColor(15, 30), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(85, 30), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(5, 30), QColor(Qt::white)) << "what is cropped is not painted beside it";
}

TEST(PaintPicture, ThatCannotBeReadIsAFrameWithACross)
{
    for (const InlinePicture& picture :
         {InlinePicture(), PictureOf(PictureKind::Png, "no picture"), PictureOf(PictureKind::Dib, "x"),
          PictureOf(PictureKind::Emf, "x"), PictureOf(PictureKind::Wmf, "")})
    {
        const QImage image = Painted(picture, QRectF(10, 10, 80, 40));
        EXPECT_NE(image.pixelColor(10, 30), QColor(Qt::white));
        EXPECT_NE(image.pixelColor(50, 30), QColor(Qt::white)) << "the middle of the cross";
        EXPECT_EQ(image.pixelColor(50, 20), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(5, 5), QColor(Qt::white));
    }
}

TEST(PaintPicture, WithACropOfEverythingIsAFrameToo)
{
    InlinePicture picture = PictureOf(PictureKind::Png, EncodedAs(Quarters(20, 10), "PNG"));
    picture.goalWidth = {1000};
    picture.goalHeight = {1000};
    picture.cropLeft = {5000};
    EXPECT_NE(Painted(picture, QRectF(10, 10, 80, 40)).pixelColor(10, 30), QColor(Qt::white));
}

}  // namespace
}  // namespace quillmarker
