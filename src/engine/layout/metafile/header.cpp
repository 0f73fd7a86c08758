#include "header.h"

#include "byte_reader.h"

#include <cmath>

namespace quillmarker::metafile
{
namespace
{

constexpr std::uint32_t kEmfHeaderRecord = 1;
constexpr std::uint32_t kEmfSignature = 0x464D4520;  // " EMF"
constexpr std::size_t kEmfSignaturePlace = 40;
constexpr std::size_t kEmfDevicePlace = 72;
constexpr std::size_t kEmfMicrometresPlace = 100;
constexpr std::size_t kLeastEmfHeader = 88;

constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr std::size_t kPlaceableSize = 22;
constexpr std::size_t kWmfHeaderSize = 18;
constexpr int kWmfHeaderWords = 9;

// When a file does not say for which device it was drawn.
constexpr qreal kUsualPixelsInMillimetre = 96 / 25.4;

/// Left, top, right, bottom.
QRectF Rectangle(ByteReader& reader)
{
    const qreal left = reader.I32();
    const qreal top = reader.I32();
    const qreal right = reader.I32();
    const qreal bottom = reader.I32();
    return {QPointF(left, top), QPointF(right, bottom)};
}

qreal PixelsInMillimetre(qreal pixels, qreal micrometres)
{
    return pixels > 0 && micrometres > 0 ? pixels * 1000 / micrometres : kUsualPixelsInMillimetre;
}

/// The later form of the header states the device's size in micrometres, which is exact.
QSizeF PixelsInMillimetre(std::string_view header)
{
    ByteReader reader(header);
    reader.MoveTo(kEmfDevicePlace);
    const qreal pixelsWide = reader.I32();
    const qreal pixelsHigh = reader.I32();
    qreal wide = reader.I32() * 1000.0;
    qreal high = reader.I32() * 1000.0;
    if (header.size() >= kEmfMicrometresPlace + 8)
    {
        reader.MoveTo(kEmfMicrometresPlace);
        const qreal exactWide = reader.I32();
        const qreal exactHigh = reader.I32();
        // Some writers leave nonsense there: it may only refine what the millimetres say.
        if (std::abs(exactWide - wide) <= 1000 && std::abs(exactHigh - high) <= 1000)
        {
            wide = exactWide;
            high = exactHigh;
        }
    }
    return {PixelsInMillimetre(pixelsWide, wide), PixelsInMillimetre(pixelsHigh, high)};
}

}  // namespace

std::optional<EmfHeader> ReadEmfHeader(std::string_view bytes)
{
    ByteReader reader(bytes);
    const std::uint32_t record = reader.U32();
    const std::size_t size = reader.U32();
    const QRectF bounds = Rectangle(reader);
    const QRectF frame = Rectangle(reader);
    reader.MoveTo(kEmfSignaturePlace);
    const std::uint32_t signature = reader.U32();
    if (record != kEmfHeaderRecord || signature != kEmfSignature || size < kLeastEmfHeader || size > bytes.size())
        return std::nullopt;

    EmfHeader header{.size = size, .pixelsInMillimetre = PixelsInMillimetre(bytes.substr(0, size))};
    const qreal across = header.pixelsInMillimetre.width() / 100;
    const qreal down = header.pixelsInMillimetre.height() / 100;
    if (frame.width() > 0 && frame.height() > 0)
    {
        header.frame = {frame.x() * across, frame.y() * down, frame.width() * across, frame.height() * down};
        header.hundredths = frame.size();
        return header;
    }
    // The bounds include their last pixel.
    header.frame = bounds.adjusted(0, 0, 1, 1);
    if (header.frame.width() <= 0 || header.frame.height() <= 0)
        return std::nullopt;
    return header;
}

std::optional<WmfHeader> ReadWmfHeader(std::string_view bytes)
{
    WmfHeader header;
    ByteReader reader(bytes);
    if (reader.U32() == kPlaceableKey)
    {
        reader.Skip(2);
        const qreal left = reader.I16();
        const qreal top = reader.I16();
        const qreal right = reader.I16();
        const qreal bottom = reader.I16();
        header.box = {QPointF(left, top), QPointF(right, bottom)};
        header.inch = reader.U16();
        header.size = kPlaceableSize;
    }
    reader.MoveTo(header.size);
    const int type = reader.U16();
    const int words = reader.U16();
    reader.Skip(kWmfHeaderSize - 4);
    if (reader.HasFailed() || type < 1 || type > 2 || words != kWmfHeaderWords)
        return std::nullopt;
    header.size += kWmfHeaderSize;
    if (header.box.width() == 0 || header.box.height() == 0)
        header.inch = 0;
    return header;
}

}  // namespace quillmarker::metafile
