#include "shapes.h"
#include "wmf_records.h"

#include <algorithm>
#include <array>

namespace quillmarker::metafile
{
namespace
{

constexpr std::size_t kPointSize = 4;

/// As many points as were promised and are there.
std::vector<QPointF> ReadPoints(ByteReader& record, std::size_t count)
{
    std::vector<QPointF> points(std::min(count, record.Left() / kPointSize));
    for (QPointF& point : points)
    {
        point.setX(record.I16());
        point.setY(record.I16());
    }
    return points;
}

void Polygon(Player& player, ByteReader& record)
{
    const std::size_t count = record.U16();
    player.Draw(PolygonPath(ReadPoints(record, count)), Parts::LineAndArea);
}

void Polyline(Player& player, ByteReader& record)
{
    const std::size_t count = record.U16();
    player.Draw(LinePath(ReadPoints(record, count)), Parts::Line);
}

void PolyPolygon(Player& player, ByteReader& record)
{
    std::vector<std::size_t> counts(std::min<std::size_t>(record.U16(), record.Left() / 2));
    for (std::size_t& count : counts)
        count = record.U16();
    QPainterPath path;
    for (const std::size_t count : counts)
        path.addPath(PolygonPath(ReadPoints(record, count)));
    player.Draw(path, Parts::LineAndArea);
}

void RoundedRectangle(Player& player, ByteReader& record)
{
    const QSizeF corner = ReadBackwardSize(record);
    player.Draw(RoundedPath(ReadBackwardBox(record), corner), Parts::LineAndArea);
}

void SetPixel(Player& player, ByteReader& record)
{
    const QColor colour = ColourOf(record.U32());
    player.FillWith(colour, RectanglePath({ReadBackwardPoint(record), QSizeF(1, 1)}));
}

template <ArcEnd end>
void DrawArc(Player& player, ByteReader& record)
{
    Arc arc;
    arc.to = ReadBackwardPoint(record);
    arc.from = ReadBackwardPoint(record);
    arc.box = ReadBackwardBox(record);
    // A mapping that mirrors turns the direction too.
    arc.isClockwise = player.ToTarget().determinant() < 0;
    player.Draw(PathOf(arc, end), end == ArcEnd::Open ? Parts::Line : Parts::LineAndArea);
}

constexpr std::array kRows = {
    WmfRow{0x0213, 4, [](Player& player, ByteReader& record) { player.LinesTo({ReadBackwardPoint(record)}); }},
    WmfRow{0x0214, 4, [](Player& player, ByteReader& record) { player.MoveTo(ReadBackwardPoint(record)); }},
    WmfRow{0x0324, 2, Polygon},
    WmfRow{0x0325, 2, Polyline},
    WmfRow{0x0418, 8,
           [](Player& player, ByteReader& record) {
               player.Draw(EllipsePath(ReadBackwardBox(record)), Parts::LineAndArea);
           }},
    WmfRow{0x041B, 8,
           [](Player& player, ByteReader& record) {
               player.Draw(RectanglePath(ReadBackwardBox(record)), Parts::LineAndArea);
           }},
    WmfRow{0x041F, 8, SetPixel},
    WmfRow{0x0538, 2, PolyPolygon},
    WmfRow{0x061C, 12, RoundedRectangle},
    WmfRow{0x0817, 16, DrawArc<ArcEnd::Open>},
    WmfRow{0x081A, 16, DrawArc<ArcEnd::Pie>},
    WmfRow{0x0830, 16, DrawArc<ArcEnd::Chord>},
};
static_assert(AreSorted(kRows));

}  // namespace

const WmfRow* WmfShapeRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
