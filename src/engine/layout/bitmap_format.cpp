#include "bitmap_format.h"

#include "byte_order.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillmarker
{
namespace
{

using namespace std::string_view_literals;

struct Signature
{
    std::string_view begin;
    BitmapFormat format;
};

constexpr std::array kSignatures = {
    Signature{"\x89PNG\r\n\x1A\n"sv, BitmapFormat::Png},
    Signature{"\xFF\xD8\xFF"sv, BitmapFormat::Jpeg},
    Signature{"GIF87a"sv, BitmapFormat::Gif},
    Signature{"GIF89a"sv, BitmapFormat::Gif},
    Signature{"BM"sv, BitmapFormat::Bmp},
};

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kCoreHeader = 12;
constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kLargestHeader = 124;
constexpr std::uint32_t kBitFields = 3;
constexpr std::uint32_t kAlphaBitFields = 6;

constexpr qreal kUsualResolution = 96;
constexpr qreal kLeastResolution = 20;
constexpr qreal kMostResolution = 10000;
constexpr qreal kMetresPerInch = 0.0254;

// The colour masks that stand between a header of the oldest size and the palette.
std::size_t MaskSize(std::size_t headerSize, std::uint32_t compression)
{
    if (headerSize != kInfoHeader)
        return 0;
    return compression == kBitFields ? 12 : compression == kAlphaBitFields ? 16 : 0;
}

QSizeF Likely(qreal x, qreal y)
{
    const auto likely = [](qreal dots) {
        const qreal whole = std::round(dots);
        return whole >= kLeastResolution && whole <= kMostResolution ? whole : kUsualResolution;
    };
    return {likely(x), likely(y)};
}

QSizeF ResolutionOfPng(std::string_view bytes)
{
    std::size_t at = 8;
    while (at + 8 < bytes.size())
    {
        const auto length = BigEndianAt<std::uint32_t>(bytes, at);
        const std::string_view type = bytes.substr(at + 4, 4);
        if (type == "pHYs" && BigEndianAt<std::uint8_t>(bytes, at + 16) == 1)
            return Likely(BigEndianAt<std::uint32_t>(bytes, at + 8) * kMetresPerInch,
                          BigEndianAt<std::uint32_t>(bytes, at + 12) * kMetresPerInch);
        if (type == "IDAT" || length > bytes.size())
            break;
        at += std::size_t{length} + 12;
    }
    return {kUsualResolution, kUsualResolution};
}

QSizeF ResolutionOfJpeg(std::string_view bytes)
{
    const auto unit = BigEndianAt<std::uint8_t>(bytes, 13);
    if (bytes.substr(2, 2) != "\xFF\xE0" || bytes.substr(6, 4) != "JFIF" || unit == 0 || unit > 2)
        return {kUsualResolution, kUsualResolution};
    const qreal perInch = unit == 1 ? 1 : 2.54;
    return Likely(BigEndianAt<std::uint16_t>(bytes, 14) * perInch, BigEndianAt<std::uint16_t>(bytes, 16) * perInch);
}

}  // namespace

BitmapFormat FormatOf(std::string_view bytes)
{
    const auto* found =
        std::ranges::find_if(kSignatures, [&](const Signature& s) { return bytes.starts_with(s.begin); });
    return found == kSignatures.end() ? BitmapFormat::None : found->format;
}

std::optional<DibHeader> ReadDibHeader(std::string_view dib)
{
    const std::size_t size = LittleEndianAt<std::uint32_t>(dib, 0);
    const bool isCore = size == kCoreHeader;
    if ((!isCore && (size < kInfoHeader || size > kLargestHeader)) || size > dib.size())
        return std::nullopt;

    const std::int64_t width = isCore ? LittleEndianAt<std::uint16_t>(dib, 4) : LittleEndianAt<std::int32_t>(dib, 4);
    const std::int64_t height = isCore ? LittleEndianAt<std::uint16_t>(dib, 6) : LittleEndianAt<std::int32_t>(dib, 8);
    const unsigned depth = LittleEndianAt<std::uint16_t>(dib, isCore ? 10 : 14);
    const std::uint32_t compression = isCore ? 0 : LittleEndianAt<std::uint32_t>(dib, 16);
    const std::uint32_t used = isCore ? 0 : LittleEndianAt<std::uint32_t>(dib, 32);
    // A negative height only says that the rows begin at the top.
    if (width <= 0 || height == 0 || std::abs(height) > INT32_MAX || depth > 32 || used > 256)
        return std::nullopt;

    const std::size_t colours = used == 0 && depth <= 8 ? std::size_t{1} << depth : used;
    DibHeader header;
    header.bits = size + MaskSize(size, compression) + colours * (isCore ? 3 : 4);
    if (header.bits >= dib.size())
        return std::nullopt;
    header.pixels = QSize(static_cast<int>(width), static_cast<int>(std::abs(height)));
    if (!isCore)
        header.dotsPerMetre = QSizeF(LittleEndianAt<std::int32_t>(dib, 24), LittleEndianAt<std::int32_t>(dib, 28));
    return header;
}

std::string BmpFileOf(std::string_view dib, const DibHeader& header)
{
    std::string file(kFileHeader, '\0');
    file[0] = 'B';
    file[1] = 'M';
    qToLittleEndian(static_cast<std::uint32_t>(kFileHeader + dib.size()), file.data() + 2);
    qToLittleEndian(static_cast<std::uint32_t>(kFileHeader + header.bits), file.data() + 10);
    file += dib;
    return file;
}

QSizeF ResolutionOf(const DibHeader& header)
{
    return Likely(header.dotsPerMetre.width() * kMetresPerInch, header.dotsPerMetre.height() * kMetresPerInch);
}

QSizeF ResolutionOf(std::string_view bytes, BitmapFormat format)
{
    switch (format)
    {
    case BitmapFormat::Png:
        return ResolutionOfPng(bytes);
    case BitmapFormat::Jpeg:
        return ResolutionOfJpeg(bytes);
    case BitmapFormat::Bmp:
        if (const auto header = ReadDibHeader(bytes.substr(std::min(kFileHeader, bytes.size()))))
            return ResolutionOf(*header);
        break;
    case BitmapFormat::Gif:
    case BitmapFormat::None:
        break;
    }
    return {kUsualResolution, kUsualResolution};
}

}  // namespace quillmarker
