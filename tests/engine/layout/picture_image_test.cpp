#include "engine/layout/picture_image.h"

#include "engine/layout/decoded_pictures.h"
#include "engine/layout/picture_sample.h"

#include <gmock/gmock.h>

#include <atomic>
#include <initializer_list>
#include <limits>
#include <thread>
#include <vector>

namespace quillmarker
{
namespace
{

constexpr std::size_t kBmpFileHeader = 14;

QColor Near(const QImage& image, double x, double y)
{
    return image.pixelColor(static_cast<int>(x * image.width()), static_cast<int>(y * image.height()));
}

bool LooksLike(const QColor& colour, const QColor& wanted)
{
    return std::abs(colour.red() - wanted.red()) < 40 && std::abs(colour.green() - wanted.green()) < 40 &&
           std::abs(colour.blue() - wanted.blue()) < 40;
}

// The colours of Quarters, in place.
void ExpectQuarters(const QImage& image)
{
    ASSERT_FALSE(image.isNull());
    EXPECT_TRUE(LooksLike(Near(image, 0.25, 0.25), Qt::red));
    EXPECT_TRUE(LooksLike(Near(image, 0.75, 0.25), Qt::green));
    EXPECT_TRUE(LooksLike(Near(image, 0.25, 0.75), Qt::blue));
    EXPECT_TRUE(LooksLike(Near(image, 0.75, 0.75), Qt::yellow));
}

void Put32(std::string& bytes, std::size_t at, std::uint32_t value)
{
    for (std::size_t i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<char>(value >> (8 * i));
}

// CRC-32, bit by bit.
std::uint32_t PngChecksum(std::string_view bytes)
{
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes)
    {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (0xEDB88320U & (0U - (sum & 1)));
    }
    return ~sum;
}

std::string Dib(const QImage& image) { return EncodedAs(image, "BMP").substr(kBmpFileHeader); }

TEST(PictureBytes, AreDecodedWhateverKindThePictureClaimsToBe)
{
    for (const char* format : {"PNG", "JPEG", "BMP"})
    {
        for (const PictureKind kind : {PictureKind::Png, PictureKind::Jpeg, PictureKind::Emf, PictureKind::Other})
            ExpectQuarters(DecodeBitmap(PictureOf(kind, EncodedAs(Quarters(20, 10), format))));
    }
    const QImage gif = DecodeBitmap(PictureOf(PictureKind::Other, RedGif()));
    ASSERT_EQ(gif.size(), QSize(1, 1));
    EXPECT_EQ(gif.pixelColor(0, 0), QColor(Qt::red));
}

TEST(PictureBytes, KeepTheirTransparency)
{
    QImage image(4, 4, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    EXPECT_EQ(DecodeBitmap(PictureOf(PictureKind::Png, EncodedAs(image, "PNG"))).pixelColor(1, 1).alpha(), 0);
}

TEST(PictureBytes, OfOtherFormatsAreNotEvenTried)
{
    const std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"></svg>";
    for (const std::string& bytes : {svg, std::string("P6 1 1 255 abc"), std::string(), std::string("\x89PNG")})
        EXPECT_TRUE(DecodeBitmap(PictureOf(PictureKind::Png, bytes)).isNull()) << bytes;
    EXPECT_TRUE(DecodeBitmap(Picture()).isNull());
}

TEST(Dib, LacksOnlyItsFileHeader)
{
    ExpectQuarters(DecodeBitmap(PictureOf(PictureKind::Dib, Dib(Quarters(20, 10)))));
    ExpectQuarters(
        DecodeBitmap(PictureOf(PictureKind::Dib, Dib(Quarters(20, 10).convertToFormat(QImage::Format_RGB888)))));
    const QImage indexed = Quarters(20, 10).convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither);
    ExpectQuarters(DecodeBitmap(PictureOf(PictureKind::Dib, Dib(indexed))));
    const QImage mono = Quarters(20, 10).convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
    EXPECT_EQ(DecodeBitmap(PictureOf(PictureKind::Dib, Dib(mono))).size(), QSize(20, 10));
}

TEST(Dib, WithColourMasksFindsItsPixelsBehindThem)
{
    // 2 x 1 pixels of 16 bits, 5-6-5: green, red.
    std::string dib(40 + 12 + 4, '\0');
    Put32(dib, 0, 40);
    Put32(dib, 4, 2);
    Put32(dib, 8, 1);
    Put32(dib, 12, 1 | 16 << 16);
    Put32(dib, 16, 3);
    Put32(dib, 40, 0xF800);
    Put32(dib, 44, 0x07E0);
    Put32(dib, 48, 0x001F);
    Put32(dib, 52, 0x07E0U | 0xF800U << 16);
    const QImage image = DecodeBitmap(PictureOf(PictureKind::Dib, dib));
    ASSERT_EQ(image.size(), QSize(2, 1));
    EXPECT_TRUE(LooksLike(image.pixelColor(0, 0), Qt::green));
    EXPECT_TRUE(LooksLike(image.pixelColor(1, 0), Qt::red));
}

TEST(Dib, WithTheOldestHeaderIsRead)
{
    // 1 x 1 pixel of 24 bits: blue.
    std::string dib(12 + 4, '\0');
    Put32(dib, 0, 12);
    Put32(dib, 4, 1 | 1 << 16);
    Put32(dib, 8, 1 | 24 << 16);
    dib[12] = '\xFF';
    const QImage image = DecodeBitmap(PictureOf(PictureKind::Dib, dib));
    ASSERT_EQ(image.size(), QSize(1, 1));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::blue));
}

TEST(Dib, CutOrDamagedAnywhereIsNullOrAPictureOfABoundedSize)
{
    const std::string dib = Dib(Quarters(8, 4));
    for (std::size_t size = 0; size < dib.size(); ++size)
        DecodeBitmap(PictureOf(PictureKind::Dib, dib.substr(0, size)));
    for (std::size_t i = 0; i < 40; ++i)
    {
        for (const std::uint32_t value : {0U, 1U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU})
        {
            std::string damaged = dib;
            Put32(damaged, i, value);
            const QImage image = DecodeBitmap(PictureOf(PictureKind::Dib, damaged));
            EXPECT_LE(qint64{image.width()} * image.height(), kMaxPicturePixels);
        }
    }
}

Picture DeviceBitmap(int width, int height, const char* kept, std::string bits)
{
    return {.kind = PictureKind::Ddb, .width = width, .height = height, .kept = kept, .bytes = Shared(std::move(bits))};
}

TEST(DeviceBitmap, OfOneBitHasEvenRowsAndWhiteOnes)
{
    const QImage image = DecodeBitmap(DeviceBitmap(3, 2, "", std::string("\xA0\x00\x40\x00", 4)));
    ASSERT_EQ(image.size(), QSize(3, 2));
    EXPECT_EQ(image.pixel(0, 0), 0xFFFFFFFF);
    EXPECT_EQ(image.pixel(1, 0), 0xFF000000);
    EXPECT_EQ(image.pixel(2, 0), 0xFFFFFFFF);
    EXPECT_EQ(image.pixel(1, 1), 0xFFFFFFFF);
}

TEST(DeviceBitmap, OfMoreBitsIsRead)
{
    const QImage four = DecodeBitmap(DeviceBitmap(2, 1, "\\wbmbitspixel4\\wbmplanes1", std::string("\x9C\x00", 2)));
    EXPECT_EQ(four.pixel(0, 0), 0xFFFF0000);
    EXPECT_EQ(four.pixel(1, 0), 0xFF0000FF);
    const QImage eight = DecodeBitmap(DeviceBitmap(1, 1, "\\wbmbitspixel8", std::string("\x80\x00", 2)));
    EXPECT_EQ(eight.pixel(0, 0), 0xFF808080);
    const QImage full = DecodeBitmap(DeviceBitmap(1, 1, "\\wbmbitspixel24\\wbmwidthbytes4", "\x01\x02\x03\x04"));
    EXPECT_EQ(full.pixel(0, 0), 0xFF030201);
    const QImage wide = DecodeBitmap(DeviceBitmap(1, 1, "\\wbmbitspixel32", "\x01\x02\x03\x04"));
    EXPECT_EQ(wide.pixel(0, 0), 0xFF030201);
}

TEST(DeviceBitmap, OfWrongSizesIsNull)
{
    const std::string bits(64, '\xFF');
    EXPECT_FALSE(DecodeBitmap(DeviceBitmap(8, 8, "", bits)).isNull());
    EXPECT_TRUE(DecodeBitmap(DeviceBitmap(8, 33, "", bits)).isNull()) << "a row too many";
    EXPECT_TRUE(DecodeBitmap(DeviceBitmap(0, 8, "", bits)).isNull());
    EXPECT_TRUE(DecodeBitmap(DeviceBitmap(-8, 8, "", bits)).isNull());
    EXPECT_TRUE(DecodeBitmap(DeviceBitmap(0x7FFFFFFF, 0x7FFFFFFF, "", bits)).isNull());
    EXPECT_TRUE(DecodeBitmap(DeviceBitmap(8, 8, "\\wbmbitspixel7", bits)).isNull());
    EXPECT_TRUE(DecodeBitmap(DeviceBitmap(8, 8, "\\wbmplanes2000000000", bits)).isNull());
    EXPECT_TRUE(DecodeBitmap(DeviceBitmap(8, 8, "\\wbmwidthbytes-2", bits)).isNull());
    EXPECT_TRUE(DecodeBitmap(DeviceBitmap(32, 8, "\\wbmwidthbytes2", bits)).isNull())
        << "rows shorter than their pixels";
    EXPECT_TRUE(DecodeBitmap(DeviceBitmap(8, 8, "\\wbmwidthbytes9223372036854775807", bits)).isNull());
}

TEST(HostileSizes, OfBitmapsAreRefusedBeforeAnyPixelIsMade)
{
    // A PNG whose header says 65535 x 65535, with the checksum of its header right.
    std::string png = EncodedAs(Quarters(2, 2), "PNG");
    png.replace(16, 8, std::string("\x00\x00\xFF\xFF\x00\x00\xFF\xFF", 8));
    const std::uint32_t checksum = PngChecksum(std::string_view(png).substr(12, 17));
    for (std::size_t i = 0; i < 4; ++i)
        png[29 + i] = static_cast<char>(checksum >> (24 - 8 * i));
    EXPECT_TRUE(DecodeBitmap(PictureOf(PictureKind::Png, png)).isNull());
    std::string jpeg = EncodedAs(Quarters(2, 2), "JPEG");
    const std::size_t frame = jpeg.find("\xFF\xC0");
    ASSERT_NE(frame, std::string::npos);
    jpeg.replace(frame + 5, 4, "\xFF\xFE\xFF\xFE");
    EXPECT_TRUE(DecodeBitmap(PictureOf(PictureKind::Jpeg, jpeg)).isNull());
    std::string gif = RedGif();
    gif.replace(6, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_LE(DecodeBitmap(PictureOf(PictureKind::Other, gif)).sizeInBytes(), kMaxPicturePixels * 4);
    std::string bmp = EncodedAs(Quarters(2, 2), "BMP");
    Put32(bmp, 18, 60000);
    Put32(bmp, 22, 60000);
    EXPECT_TRUE(DecodeBitmap(PictureOf(PictureKind::Other, bmp)).isNull());
}

TEST(ShownSize, IsTheGoalLessItsCropScaled)
{
    Picture picture = PictureOf(PictureKind::Png, "");
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

QImage Painted(const Picture& picture, const QRectF& rectangle, double zoom = 1)
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
    const Picture picture = PictureOf(PictureKind::Png, EncodedAs(Quarters(20, 10), "PNG"));
    const QImage image = Painted(picture, QRectF(10, 10, 80, 40));
    ExpectQuarters(image.copy(10, 10, 80, 40));
    EXPECT_EQ(image.pixelColor(9, 30), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(91, 30), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(50, 9), QColor(Qt::white));
}

TEST(PaintPicture, ShowsWhatIsLeftOfItsCrop)
{
    Picture picture = PictureOf(PictureKind::Png, EncodedAs(Quarters(400, 200), "PNG"));
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
    Picture picture = PictureOf(PictureKind::Png, EncodedAs(Quarters(40, 40), "PNG"));
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
        Picture picture = PictureOf(kind, TwoColouredEmf());
        const QImage image = Painted(picture, QRectF(10, 10, 80, 40));
        EXPECT_EQ(image.pixelColor(30, 30), QColor(Qt::red)) << static_cast<int>(kind);
        EXPECT_EQ(image.pixelColor(70, 30), QColor(Qt::blue));
        EXPECT_EQ(image.pixelColor(5, 30), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(95, 30), QColor(Qt::white));
    }
    Picture picture = PictureOf(PictureKind::Emf, TwoColouredEmf());
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
    for (const Picture& picture :
         {Picture(), PictureOf(PictureKind::Png, "no picture"), PictureOf(PictureKind::Dib, "x"),
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
    Picture picture = PictureOf(PictureKind::Png, EncodedAs(Quarters(20, 10), "PNG"));
    picture.goalWidth = {1000};
    picture.goalHeight = {1000};
    picture.cropLeft = {5000};
    EXPECT_NE(Painted(picture, QRectF(10, 10, 80, 40)).pixelColor(10, 30), QColor(Qt::white));
}

TEST(DecodedPictures, DecodeABitmapOnceAndReduceItOnceForASize)
{
    DecodedPictures pictures(1 << 24);
    const Picture picture = PictureOf(PictureKind::Png, EncodedAs(Quarters(400, 400), "PNG"));
    EXPECT_EQ(pictures.Pixels(picture).cacheKey(), pictures.Pixels(picture).cacheKey());
    const QImage reduced = pictures.Reduced(picture, QSize(100, 100));
    EXPECT_EQ(reduced.size(), QSize(100, 100));
    EXPECT_EQ(pictures.Reduced(picture, QSize(100, 100)).cacheKey(), reduced.cacheKey());
    EXPECT_EQ(pictures.Reduced(picture, QSize(390, 390)).size(), QSize(400, 400)) << "too little to be worth it";
    EXPECT_EQ(pictures.Reduced(picture, QSize()).size(), QSize(400, 400));
}

TEST(DecodedPictures, AreBoundedByWhatTheyHold)
{
    constexpr qsizetype kMost = qsizetype{4} * 1024 * 1024;
    DecodedPictures pictures(kMost);
    const std::string png = EncodedAs(Quarters(400, 400), "PNG");
    for (int i = 0; i < 50; ++i)
    {
        EXPECT_FALSE(pictures.Pixels(PictureOf(PictureKind::Png, png)).isNull());
        EXPECT_LE(pictures.Weight(), kMost);
    }
    for (int i = 0; i < 200; ++i)
        pictures.Pixels(PictureOf(PictureKind::Png, "broken"));
    EXPECT_LE(pictures.Weight(), kMost);
    DecodedPictures tiny(1);
    const Picture picture = PictureOf(PictureKind::Png, png);
    EXPECT_EQ(tiny.Pixels(picture).cacheKey(), tiny.Pixels(picture).cacheKey()) << "the newest stays";
}

TEST(DecodedPictures, TakeOtherNumbersForOtherDeviceBitmaps)
{
    DecodedPictures pictures(1 << 20);
    const Picture wide = DeviceBitmap(16, 1, "", std::string("\xFF\x00\xFF\x00", 4));
    Picture tall = wide;
    tall.width = 8;
    tall.height = 2;
    EXPECT_EQ(pictures.Pixels(wide).size(), QSize(16, 1));
    EXPECT_EQ(pictures.Pixels(tall).size(), QSize(8, 2));
}

TEST(DecodedPictures, ServeSeveralThreads)
{
    DecodedPictures pictures(1 << 20);
    const std::string png = EncodedAs(Quarters(100, 100), "PNG");
    std::vector<Picture> shared;
    for (int i = 0; i < 20; ++i)
        shared.push_back(PictureOf(PictureKind::Png, png));
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < 200; ++i)
                wrong +=
                    pictures.Reduced(shared[static_cast<std::size_t>(i % 20)], QSize(20, 20)).width() == 20 ? 0 : 1;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace quillmarker
