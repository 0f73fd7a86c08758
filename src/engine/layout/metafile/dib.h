#pragma once

#include <QImage>

#include <cstdint>
#include <string_view>

namespace quillmarker::metafile
{

/// What a bitmap's table of colours holds.
enum class ColourUse : std::uint32_t { Colours = 0, PaletteEntries = 1, Nothing = 2 };

/// A device-independent bitmap: its header with masks and colours, and its pixels.
struct Dib
{
    std::string_view header;
    std::string_view pixels;
    ColourUse use = ColourUse::Colours;
};

/// A bitmap whose pixels stand right behind its header.
Dib PackedDib(std::string_view bytes, ColourUse use);

/// Null when it is damaged, or larger than what its bytes can hold.
QImage ReadDib(const Dib& dib);

/// The same for a bitmap of 32 bits whose fourth byte is how opaque a pixel is.
QImage ReadTransparentDib(const Dib& dib);

/// Pixels that reading would make, for what it costs; 0 when the header is damaged.
double PixelsOf(const Dib& dib);

}  // namespace quillmarker::metafile
