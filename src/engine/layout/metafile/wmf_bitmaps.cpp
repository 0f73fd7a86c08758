#include "blit.h"
#include "wmf_records.h"

#include <array>

namespace quillmarker::metafile
{
namespace
{

void PatternBlit(Player& player, ByteReader& record)
{
    Blit blit{.operation = record.U32()};
    blit.target = ReadBackwardExtent(record);
    FillByOperation(player, blit);
}

// The bitmap records have two forms: with a bitmap, and with a word more of arguments without one. The second copies from
// what is there, which is not played, or needs no bitmap.

void DibBlit(Player& player, ByteReader& record)
{
    constexpr std::size_t kArguments = 16;
    constexpr std::size_t kArgumentsWithoutBitmap = 18;
    Blit blit{.operation = record.U32()};
    const bool hasBitmap = record.Left() + 4 > kArgumentsWithoutBitmap;
    static_assert(kArguments < kArgumentsWithoutBitmap);
    const QPointF source = ReadBackwardPoint(record);
    if (!hasBitmap && record.Left() + 8 == kArgumentsWithoutBitmap)
        record.Skip(2);
    blit.target = ReadBackwardExtent(record);
    blit.source = {source, blit.target.size()};
    if (hasBitmap)
        Draw(player, blit, PackedDib(record.Bytes(record.Left()), ColourUse::Colours));
    else if (!NeedsSource(blit.operation))
        FillByOperation(player, blit);
}

void DibStretch(Player& player, ByteReader& record)
{
    constexpr std::size_t kArgumentsWithoutBitmap = 22;
    Blit blit{.operation = record.U32()};
    const bool hasBitmap = record.Left() + 4 > kArgumentsWithoutBitmap;
    blit.source = ReadBackwardExtent(record);
    if (!hasBitmap && record.Left() + 12 == kArgumentsWithoutBitmap)
        record.Skip(2);
    blit.target = ReadBackwardExtent(record);
    if (hasBitmap)
        Draw(player, blit, PackedDib(record.Bytes(record.Left()), ColourUse::Colours));
    else if (!NeedsSource(blit.operation))
        FillByOperation(player, blit);
}

void StretchDib(Player& player, ByteReader& record)
{
    Blit blit{.operation = record.U32(), .countsFromBelow = true};
    const auto use = static_cast<ColourUse>(record.U16());
    blit.source = ReadBackwardExtent(record);
    blit.target = ReadBackwardExtent(record);
    Draw(player, blit, PackedDib(record.Bytes(record.Left()), use));
}

void SetDibToDevice(Player& player, ByteReader& record)
{
    constexpr std::uint32_t kCopy = 0x00CC0020;
    Blit blit{.operation = kCopy, .countsFromBelow = true};
    const auto use = static_cast<ColourUse>(record.U16());
    record.Skip(4);
    const QPointF source = ReadBackwardPoint(record);
    blit.target = ReadBackwardExtent(record);
    blit.source = {source, blit.target.size()};
    Draw(player, blit, PackedDib(record.Bytes(record.Left()), use));
}

constexpr std::array kRows = {
    WmfRow{0x061D, 12, PatternBlit},    WmfRow{0x0940, 16, DibBlit},    WmfRow{0x0B41, 20, DibStretch},
    WmfRow{0x0D33, 18, SetDibToDevice}, WmfRow{0x0F43, 22, StretchDib},
};
static_assert(AreSorted(kRows));

}  // namespace

const WmfRow* WmfBitmapRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
