#include "dib.h"

#include "byte_reader.h"

#include <QByteArray>
#include <QSize>

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace quillmarker::metafile
{
namespace
{

enum Compression : std::uint32_t { Plain = 0, Rle8 = 1, Rle4 = 2, Masks = 3, Jpeg = 4, Png = 5 };

constexpr std::uint32_t kCoreHeader = 12;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kLargestHeader = 256;
constexpr std::int64_t kMostSide = 32767;
constexpr std::int64_t kMostPixels = 64 * 1024 * 1024;
// A run of two bytes is 255 pixels; what a bitmap skips costs nothing to store, so there is a bound beside.
constexpr std::int64_t kPixelsOfByte = 1000;

struct DibHeader
{
    std::uint32_t size = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    bool isTopDown = false;
    int bits = 0;
    std::uint32_t compression = Plain;
    std::uint32_t colours = 0;  // in the table
    std::size_t colourSize = 4;

    std::size_t MaskBytes() const { return compression == Masks && size == kInfoHeader ? 12 : 0; }
    std::size_t TablePlace() const { return size + MaskBytes(); }
    std::size_t PixelPlace() const { return TablePlace() + colours * colourSize; }
    std::int64_t Stride() const { return (width * bits + 31) / 32 * 4; }
    bool IsRunLength() const { return compression == Rle8 || compression == Rle4; }
};

bool IsDepth(int bits) { return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32; }

std::optional<DibHeader> ReadHeader(std::string_view bytes, ColourUse use)
{
    ByteReader reader(bytes);
    DibHeader header{.size = reader.U32()};
    const bool isCore = header.size == kCoreHeader;
    header.width = isCore ? reader.U16() : reader.I32();
    header.height = isCore ? reader.U16() : reader.I32();
    header.isTopDown = header.height < 0;
    header.height = std::abs(header.height);
    reader.Skip(2);
    header.bits = reader.U16();
    std::uint32_t stated = 0;
    if (!isCore)
    {
        header.compression = reader.U32();
        reader.Skip(12);
        stated = reader.U32();
        reader.Skip(4);
    }
    const bool isSize = isCore || (header.size >= kInfoHeader && header.size <= kLargestHeader);
    if (reader.HasFailed() || !isSize || header.width <= 0 || header.height <= 0 || header.width > kMostSide ||
        header.height > kMostSide || header.width * header.height > kMostPixels)
        return std::nullopt;
    if (header.compression == Jpeg || header.compression == Png)
        return header;
    if (!IsDepth(header.bits) || header.compression > Masks)
        return std::nullopt;
    if (header.bits <= 8)
    {
        const std::uint32_t most = 1U << header.bits;
        header.colours = stated == 0 ? most : std::min(stated, most);
    }
    else
        header.colours = std::min<std::uint32_t>(stated, 256);
    header.colourSize = isCore ? 3 : 4;
    if (use == ColourUse::PaletteEntries)
        header.colourSize = 2;
    else if (use == ColourUse::Nothing)
        header.colours = 0;
    return header;
}

void Append(QByteArray& out, std::uint32_t number, int size = 4)
{
    for (int i = 0; i < size; ++i)
        out.append(static_cast<char>(number >> (8 * i) & 0xFF));
}

void AppendBytes(QByteArray& out, std::string_view bytes)
{
    out.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

/// All colours a depth can name, four bytes each. Without a palette its entries are shades from black to white.
void AppendColours(QByteArray& out, const DibHeader& header, const Dib& dib)
{
    const std::uint32_t count = 1U << header.bits;
    ByteReader table(dib.header);
    table.MoveTo(header.TablePlace());
    for (std::uint32_t i = 0; i < count; ++i)
    {
        const std::uint32_t shade = i * 255 / (count - 1);
        std::uint32_t colour = shade | shade << 8 | shade << 16;
        if (dib.use == ColourUse::Colours)
        {
            colour = 0;
            if (i < header.colours)
                colour = table.U8() | static_cast<std::uint32_t>(table.U8()) << 8 |
                         static_cast<std::uint32_t>(table.U8()) << 16;
            if (header.colourSize == 4)
                table.Skip(1);
        }
        Append(out, colour);
    }
}

/// A file of the one kind that Qt reads: a usual header, and a full table of colours.
QByteArray AsFile(const DibHeader& header, const Dib& dib, std::string_view pixels)
{
    QByteArray rest;
    Append(rest, kInfoHeader);
    Append(rest, static_cast<std::uint32_t>(header.width));
    Append(rest, static_cast<std::uint32_t>(header.isTopDown ? -header.height : header.height));
    Append(rest, 1, 2);
    Append(rest, static_cast<std::uint32_t>(header.bits), 2);
    Append(rest, header.compression);
    for (int i = 0; i < 5; ++i)
        Append(rest, 0);
    if (header.bits <= 8)
        AppendColours(rest, header, dib);
    else if (header.compression == Masks)
        AppendBytes(rest, dib.header.substr(kInfoHeader, 12));

    constexpr std::uint32_t kFileHeader = 14;
    const std::uint32_t pixelPlace = kFileHeader + static_cast<std::uint32_t>(rest.size());
    QByteArray file("BM");
    Append(file, pixelPlace + static_cast<std::uint32_t>(pixels.size()));
    Append(file, 0);
    Append(file, pixelPlace);
    file.append(rest);
    AppendBytes(file, pixels);
    return file;
}

}  // namespace

Dib PackedDib(std::string_view bytes, ColourUse use)
{
    Dib dib{.header = bytes, .use = use};
    const std::optional<DibHeader> header = ReadHeader(bytes, use);
    if (!header || header->PixelPlace() > bytes.size())
        return dib;
    dib.header = bytes.substr(0, header->PixelPlace());
    dib.pixels = bytes.substr(header->PixelPlace());
    return dib;
}

QImage ReadDib(const Dib& dib)
{
    const std::optional<DibHeader> header = ReadHeader(dib.header, dib.use);
    if (!header)
        return {};
    const auto size = static_cast<std::int64_t>(dib.pixels.size());
    const std::int64_t pixels = header->width * header->height;
    if (header->compression == Jpeg || header->compression == Png)
    {
        const QImage image = QImage::fromData(reinterpret_cast<const uchar*>(dib.pixels.data()), static_cast<int>(size),
                                              header->compression == Jpeg ? "JPG" : "PNG");
        return image.size() == QSize(static_cast<int>(header->width), static_cast<int>(header->height)) ? image
                                                                                                        : QImage();
    }
    if (header->compression == Masks && dib.header.size() < kInfoHeader + 12)
        return {};
    if (header->IsRunLength())
    {
        if (pixels > size * kPixelsOfByte)
            return {};
        return QImage::fromData(AsFile(*header, dib, dib.pixels), "BMP");
    }
    // Some writers leave out what fills the last row up.
    const std::int64_t needed = header->Stride() * header->height;
    const std::int64_t least = needed - header->Stride() + (header->width * header->bits + 7) / 8;
    if (size < least)
        return {};
    QByteArray file = AsFile(*header, dib, dib.pixels.substr(0, static_cast<std::size_t>(std::min(size, needed))));
    if (size < needed)
        file.append(QByteArray(static_cast<qsizetype>(needed - size), '\0'));
    return QImage::fromData(file, "BMP");
}

QImage ReadTransparentDib(const Dib& dib)
{
    const std::optional<DibHeader> header = ReadHeader(dib.header, dib.use);
    if (!header || header->bits != 32 || header->IsRunLength())
        return ReadDib(dib);
    const std::int64_t needed = header->Stride() * header->height;
    if (static_cast<std::int64_t>(dib.pixels.size()) < needed)
        return {};
    QImage image(static_cast<int>(header->width), static_cast<int>(header->height),
                 QImage::Format_ARGB32_Premultiplied);
    ByteReader pixels(dib.pixels);
    for (int row = 0; row < image.height(); ++row)
    {
        const int y = header->isTopDown ? row : image.height() - 1 - row;
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
        {
            // A colour brighter than its opacity is no premultiplied pixel.
            const QRgb pixel = pixels.U32();
            const int opacity = qAlpha(pixel);
            line[x] = qRgba(std::min(qRed(pixel), opacity), std::min(qGreen(pixel), opacity),
                            std::min(qBlue(pixel), opacity), opacity);
        }
    }
    return image;
}

double PixelsOf(const Dib& dib)
{
    const std::optional<DibHeader> header = ReadHeader(dib.header, dib.use);
    return header ? static_cast<double>(header->width * header->height) : 0;
}

}  // namespace quillmarker::metafile
