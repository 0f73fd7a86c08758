#include "emf_records.h"

#include <algorithm>
#include <array>

namespace quillmarker::metafile
{
namespace
{

/// A region is a header and rectangles. `size` is what the record says it takes.
QPainterPath ReadRegion(ByteReader& record, std::size_t size)
{
    constexpr std::size_t kRectangleSize = 16;
    ByteReader region(record.Bytes(std::min(size, record.Left())));
    const std::size_t headerSize = region.U32();
    region.Skip(4);
    const std::size_t count = region.U32();
    region.MoveTo(headerSize);
    QPainterPath area;
    area.setFillRule(Qt::WindingFill);
    for (std::size_t i = 0; i < count && region.Left() >= kRectangleSize && !region.HasFailed(); ++i)
        area.addRect(ReadBox(region).normalized());
    return area;
}

/// In pixels of the device. Without a region a clip that would be replaced is taken away.
void SelectClip(Player& player, ByteReader& record)
{
    const std::size_t size = record.U32();
    const auto mode = static_cast<ClipMode>(record.U32());
    if (size == 0 && mode == ClipMode::Replace)
        player.State().clip.Reset();
    else
        player.ClipToDevice(ReadRegion(record, size), mode);
}

void FillRegion(Player& player, ByteReader& record)
{
    record.Skip(kBounds);
    const std::size_t size = record.U32();
    const GraphicsObject* const object = player.Objects().Find(record.U32());
    if (const auto* const brush = object ? std::get_if<Brush>(object) : nullptr)
        player.FillWith(*brush, ReadRegion(record, size), player.State().mix);
}

void PaintRegion(Player& player, ByteReader& record)
{
    record.Skip(kBounds);
    const std::size_t size = record.U32();
    player.FillWith(player.State().brush, ReadRegion(record, size), player.State().mix);
}

void InvertRegion(Player& player, ByteReader& record)
{
    record.Skip(kBounds);
    const std::size_t size = record.U32();
    player.FillWith(Brush{}, ReadRegion(record, size), MixMode::Not);
}

constexpr std::array kRows = {
    EmfRow{71, 24, FillRegion},
    EmfRow{73, 20, InvertRegion},
    EmfRow{74, 20, PaintRegion},
    EmfRow{75, 8, SelectClip},
};
static_assert(AreSorted(kRows));

}  // namespace

const EmfRow* EmfRegionRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
