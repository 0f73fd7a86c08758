#include "device_bitmap.h"

#include "picture_image.h"

#include <QColor>

#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>

namespace quillmarker
{
namespace
{

constexpr std::array<QRgb, 16> kClassicColours = {
    0xFF000000, 0xFF800000, 0xFF008000, 0xFF808000, 0xFF000080, 0xFF800080, 0xFF008080, 0xFFC0C0C0,
    0xFF808080, 0xFFFF0000, 0xFF00FF00, 0xFFFFFF00, 0xFF0000FF, 0xFFFF00FF, 0xFF00FFFF, 0xFFFFFFFF,
};

// The number of a kept control word, \wbmplanes1; `otherwise` when it is not there.
std::int64_t KeptNumber(std::string_view kept, std::string_view word, std::int64_t otherwise)
{
    const std::size_t at = kept.find(word);
    if (at == std::string_view::npos)
        return otherwise;
    std::int64_t number = otherwise;
    std::from_chars(kept.data() + at + word.size(), kept.data() + kept.size(), number);
    return number;
}

struct DeviceFormat
{
    std::int64_t depth;   // of a plane
    std::int64_t planes;  // which follow each other in each row
    std::int64_t rowBytes;
};

bool IsKnown(const DeviceFormat& format)
{
    if (format.planes == 4 || format.planes == 3)
        return format.depth == 1;
    const std::int64_t depth = format.depth;
    return format.planes == 1 && (depth == 1 || depth == 4 || depth == 8 || depth == 16 || depth == 24 || depth == 32);
}

class Row
{
public:
    Row(std::string_view bytes, const DeviceFormat& format) : m_bytes(bytes), m_format(format) {}

    QRgb Pixel(int x) const
    {
        const auto at = static_cast<std::size_t>(x);
        if (m_format.planes > 1)
            return PlanarPixel(at);
        switch (m_format.depth)
        {
        case 1:
            return Bit(at) != 0 ? 0xFFFFFFFF : 0xFF000000;
        case 4:
            return kClassicColours[Byte(at / 2) >> (at % 2 == 0 ? 4 : 0) & 15];
        case 8:
            return qRgb(Byte(at), Byte(at), Byte(at));
        case 16:
            return Pixel555(Byte(at * 2) | Byte(at * 2 + 1) << 8);
        case 24:
            return qRgb(Byte(at * 3 + 2), Byte(at * 3 + 1), Byte(at * 3));
        default:
            return qRgb(Byte(at * 4 + 2), Byte(at * 4 + 1), Byte(at * 4));
        }
    }

private:
    int Byte(std::size_t at) const { return static_cast<unsigned char>(m_bytes[at]); }
    int Bit(std::size_t at) const { return Byte(at / 8) >> (7 - at % 8) & 1; }

    static QRgb Pixel555(int value)
    {
        const auto full = [&](int shift) { return (value >> shift & 31) * 255 / 31; };
        return qRgb(full(10), full(5), full(0));
    }

    QRgb PlanarPixel(std::size_t at) const
    {
        const std::size_t plane = m_bytes.size() / static_cast<std::size_t>(m_format.planes) * 8;
        int index = 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(m_format.planes); ++i)
            index |= Bit(i * plane + at) << i;
        return kClassicColours[static_cast<std::size_t>(m_format.planes == 3 && index != 0 ? index + 8 : index)];
    }

    std::string_view m_bytes;
    const DeviceFormat& m_format;
};

}  // namespace

QImage DecodeDeviceBitmap(const InlinePicture& picture)
{
    const std::int64_t width = picture.width;
    const std::int64_t height = picture.height;
    if (!picture.bytes || width <= 0 || height <= 0 || width * height > kMaxPicturePixels)
        return {};
    DeviceFormat format = {KeptNumber(picture.kept, "\\wbmbitspixel", 1), KeptNumber(picture.kept, "\\wbmplanes", 1),
                           0};
    if (!IsKnown(format))
        return {};
    const std::int64_t least = (width * format.depth + 15) / 16 * 2;
    format.rowBytes = KeptNumber(picture.kept, "\\wbmwidthbytes", least);
    const auto size = static_cast<std::int64_t>(picture.bytes->size());
    if (format.rowBytes < least || format.rowBytes > size || format.rowBytes * format.planes * height > size)
        return {};

    QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
    if (image.isNull())
        return {};
    const auto stride = static_cast<std::size_t>(format.rowBytes * format.planes);
    for (int y = 0; y < image.height(); ++y)
    {
        const Row row(std::string_view(*picture.bytes).substr(static_cast<std::size_t>(y) * stride, stride), format);
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = row.Pixel(x);
    }
    return image;
}

}  // namespace quillmarker
