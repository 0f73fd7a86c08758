#pragma once

#include <quillmarker/inline_object.h>

#include <QSize>
#include <QSizeF>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmarker
{

enum class BitmapFormat : std::uint8_t { None, Png, Jpeg, Gif, Bmp };

/// The format that bytes begin with.
BitmapFormat FormatOf(std::string_view bytes);

/// What the header of a device-independent bitmap says: a BMP file without its file header.
struct DibHeader
{
    std::size_t bits = 0;  // where the pixels begin
    QSize pixels;
    QSizeF dotsPerMetre;
};

/// None when the header is damaged or says that the pixels begin behind the bytes.
std::optional<DibHeader> ReadDibHeader(std::string_view dib);

/// A bitmap as the BMP file it would be.
std::string BmpFileOf(std::string_view dib, const DibHeader& header);

/// The resolution that a bitmap of a format states, in dots per inch, each way; 96 where it states none that is likely.
QSizeF ResolutionOf(std::string_view bytes, BitmapFormat format);
QSizeF ResolutionOf(const DibHeader& header);

}  // namespace quillmarker
