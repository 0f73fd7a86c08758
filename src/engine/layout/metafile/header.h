#pragma once

#include <QRectF>
#include <QSizeF>

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmarker::metafile
{

constexpr qreal kTwipsInInch = 1440;
constexpr qreal kHundredthsInInch = 2540;  // hundredths of a millimetre

/// What an EMF says of itself in its first record.
struct EmfHeader
{
    std::size_t size = 0;  // of the record: what follows it is played
    QRectF frame;          // of the picture, in pixels of the device it was drawn for
    QSizeF hundredths;     // the frame's size in hundredths of a millimetre; empty when it is not stated
    QSizeF pixelsInMillimetre{1, 1};
};

/// Empty when the bytes are no EMF, or have neither a frame nor bounds.
std::optional<EmfHeader> ReadEmfHeader(std::string_view bytes);

/// What a WMF says of itself.
struct WmfHeader
{
    std::size_t size = 0;
    QRectF box;      // of a placeable WMF, in logical units; its width or height may be negative
    qreal inch = 0;  // logical units in an inch
    bool IsPlaceable() const { return inch > 0; }
};

/// Empty when the bytes are no WMF.
std::optional<WmfHeader> ReadWmfHeader(std::string_view bytes);

}  // namespace quillmarker::metafile
