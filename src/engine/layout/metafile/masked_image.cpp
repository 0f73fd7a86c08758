#include "masked_image.h"

#include <algorithm>

namespace quillmarker::metafile
{
namespace
{

constexpr QRgb kColourBits = 0x00FFFFFF;

/// The image as opaque pixels that `change` may rewrite: (its pixel, the same pixel of the other).
template <class Change>
QImage Changed(const QImage& image, const QImage& other, Change change)
{
    QImage changed = image.convertToFormat(QImage::Format_ARGB32);
    const QImage second = other.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < changed.height(); ++y)
    {
        auto* const line = reinterpret_cast<QRgb*>(changed.scanLine(y));
        const auto* const otherLine = reinterpret_cast<const QRgb*>(second.constScanLine(y));
        for (int x = 0; x < changed.width(); ++x)
            line[x] = change(line[x], otherLine[x]);
    }
    return changed.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

bool IsMaskedBy(const QImage& image, const QImage& mask)
{
    if (image.size() != mask.size())
        return false;
    const QImage colours = image.convertToFormat(QImage::Format_RGB32);
    const QImage holes = mask.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < colours.height(); ++y)
    {
        const auto* const line = reinterpret_cast<const QRgb*>(colours.constScanLine(y));
        const auto* const maskLine = reinterpret_cast<const QRgb*>(holes.constScanLine(y));
        for (int x = 0; x < colours.width(); ++x)
        {
            if ((maskLine[x] & kColourBits) == kColourBits && (line[x] & kColourBits) != 0)
                return false;
        }
    }
    return true;
}

QImage WithHole(const QImage& image, const QImage& mask)
{
    return Changed(image, mask, [](QRgb pixel, QRgb hole) {
        return (pixel & kColourBits) | static_cast<QRgb>(255 - qGray(hole)) << 24;
    });
}

QImage Shadow(const QImage& mask)
{
    return Changed(mask, mask, [](QRgb /*pixel*/, QRgb hole) { return static_cast<QRgb>(255 - qGray(hole)) << 24; });
}

QImage BlackTakenOut(const QImage& image)
{
    return Changed(image, image, [](QRgb pixel, QRgb /*same*/) {
        const int brightest = std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)});
        if (brightest == 0)
            return QRgb(0);
        const auto raised = [brightest](int part) { return part * 255 / brightest; };
        return qRgba(raised(qRed(pixel)), raised(qGreen(pixel)), raised(qBlue(pixel)), brightest);
    });
}

}  // namespace quillmarker::metafile
