#pragma once

#include <quillmarker/inline_object.h>

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColor>
#include <QImage>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

namespace quillmarker
{

/// `image` as a file of a format that Qt can write.
inline std::string EncodedAs(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 100);
    return bytes.toStdString();
}

/// Red in the upper left quarter, green, blue and yellow in the others from there on in reading order.
inline QImage Quarters(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            const bool isLeft = x < width / 2;
            const bool isTop = y < height / 2;
            image.setPixel(x, y, isTop ? (isLeft ? 0xFFFF0000 : 0xFF00FF00) : (isLeft ? 0xFF0000FF : 0xFFFFFF00));
        }
    }
    return image;
}

inline InlinePicture PictureOf(PictureKind kind, std::string bytes)
{
    return {.kind = kind, .bytes = Shared(std::move(bytes))};
}

/// The smallest GIF there is: one red pixel.
inline std::string RedGif()
{
    using namespace std::string_literals;
    return "GIF89a\x01\x00\x01\x00\x80\x00\x00\xFF\x00\x00\x00\x00\x00,\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02\x44\x01\x00;"s;
}

inline QColor Near(const QImage& image, double x, double y)
{
    return image.pixelColor(static_cast<int>(x * image.width()), static_cast<int>(y * image.height()));
}

inline bool LooksLike(const QColor& colour, const QColor& wanted)
{
    return std::abs(colour.red() - wanted.red()) < 40 && std::abs(colour.green() - wanted.green()) < 40 &&
           std::abs(colour.blue() - wanted.blue()) < 40;
}

// The colours of Quarters, in place.
inline void ExpectQuarters(const QImage& image)
{
    ASSERT_FALSE(image.isNull());
    EXPECT_TRUE(LooksLike(Near(image, 0.25, 0.25), Qt::red));
    EXPECT_TRUE(LooksLike(Near(image, 0.75, 0.25), Qt::green));
    EXPECT_TRUE(LooksLike(Near(image, 0.25, 0.75), Qt::blue));
    EXPECT_TRUE(LooksLike(Near(image, 0.75, 0.75), Qt::yellow));
}

inline void Put32(std::string& bytes, std::size_t at, std::uint32_t value)
{
    for (std::size_t i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<char>(value >> (8 * i));
}

inline constexpr std::size_t kBmpFileHeader = 14;

inline std::string Dib(const QImage& image) { return EncodedAs(image, "BMP").substr(kBmpFileHeader); }

inline InlinePicture DeviceBitmap(int width, int height, const char* kept, std::string bits)
{
    return {.kind = PictureKind::Ddb, .width = width, .height = height, .kept = kept, .bytes = Shared(std::move(bits))};
}

}  // namespace quillmarker
