#include "engine/layout/picture_image.h"

#include "engine/layout/picture_sample.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmarker
{
namespace
{

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
    EXPECT_TRUE(DecodeBitmap(InlinePicture()).isNull());
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

}  // namespace
}  // namespace quillmarker
