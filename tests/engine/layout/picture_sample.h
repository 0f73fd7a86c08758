#pragma once

#include <quillmarker/inline_object.h>

#include <QBuffer>
#include <QImage>

#include <string>

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

inline Picture PictureOf(PictureKind kind, std::string bytes)
{
    return {.kind = kind, .bytes = Shared(std::move(bytes))};
}

/// The smallest GIF there is: one red pixel.
inline std::string RedGif()
{
    using namespace std::string_literals;
    return "GIF89a\x01\x00\x01\x00\x80\x00\x00\xFF\x00\x00\x00\x00\x00,\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02\x44\x01\x00;"s;
}

}  // namespace quillmarker
