#include "emf_records.h"
#include "shapes.h"

#include <array>
#include <cmath>
#include <numbers>

namespace quillmarker::metafile
{
namespace
{

Arc ReadArc(Player& player, ByteReader& record)
{
    Arc arc;
    arc.box = ReadBox(record);
    arc.from = ReadPoint(record);
    arc.to = ReadPoint(record);
    // A mapping that mirrors turns the direction too.
    arc.isClockwise = player.State().arcsAreClockwise != (player.ToTarget().determinant() < 0);
    return arc;
}

template <ArcEnd end>
void DrawArc(Player& player, ByteReader& record)
{
    player.Draw(PathOf(ReadArc(player, record), end), end == ArcEnd::Open ? Parts::Line : Parts::LineAndArea);
}

void RoundedRectangle(Player& player, ByteReader& record)
{
    const QRectF box = ReadBox(record);
    player.Draw(RoundedPath(box, ReadSize(record)), Parts::LineAndArea);
}

/// A line to the start of part of a circle, and that part.
void AngleArc(Player& player, ByteReader& record)
{
    const QPointF centre = ReadPoint(record);
    const qreal radius = record.U32();
    const qreal start = record.F32();
    const qreal sweep = record.F32();
    if (!std::isfinite(start) || !std::isfinite(sweep) || radius == 0)
        return;
    const QRectF box(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
    QPainterPath path;
    path.arcMoveTo(box, std::remainder(start, 360));
    path.arcTo(box, std::remainder(start, 360), std::clamp<qreal>(sweep, -360, 360));
    player.ArcTo(path);
}

void SetPixel(Player& player, ByteReader& record)
{
    const QPointF place = ReadPoint(record);
    player.FillWith(ColourOf(record.U32()), RectanglePath({place, QSizeF(1, 1)}));
}

struct GradientCorner
{
    QPointF place;
    QColor colour;
};

GradientCorner ReadCorner(ByteReader& record)
{
    GradientCorner corner{.place = ReadPoint(record)};
    const int red = record.U16() >> 8;
    const int green = record.U16() >> 8;
    corner.colour = {red, green, record.U16() >> 8};
    record.Skip(2);
    return corner;
}

/// Rectangles that change from one side's colour to the other's. Triangles between three colours are not played.
void GradientFill(Player& player, ByteReader& record)
{
    enum Direction : std::uint32_t { Across = 0, Down = 1 };
    constexpr std::size_t kCornerSize = 16;
    record.Skip(kBounds);
    const std::size_t cornerCount = record.U32();
    const std::size_t count = record.U32();
    const std::uint32_t direction = record.U32();
    if (direction > Down || cornerCount > record.Left() / kCornerSize)
        return;
    std::vector<GradientCorner> corners(cornerCount);
    for (GradientCorner& corner : corners)
        corner = ReadCorner(record);
    for (std::size_t i = 0; i < count && record.Left() >= 8; ++i)
    {
        const std::uint32_t first = record.U32();
        const std::uint32_t second = record.U32();
        if (first < cornerCount && second < cornerCount)
            player.FillGradient({corners[first].place, corners[second].place}, corners[first].colour,
                                corners[second].colour, direction == Across ? Qt::Horizontal : Qt::Vertical);
    }
}

constexpr std::array kRows = {
    EmfRow{15, 12, SetPixel},
    EmfRow{27, 8, [](Player& player, ByteReader& record) { player.MoveTo(ReadPoint(record)); }},
    EmfRow{41, 20, AngleArc},
    EmfRow{42, 16,
           [](Player& player, ByteReader& record) { player.Draw(EllipsePath(ReadBox(record)), Parts::LineAndArea); }},
    EmfRow{43, 16,
           [](Player& player, ByteReader& record) { player.Draw(RectanglePath(ReadBox(record)), Parts::LineAndArea); }},
    EmfRow{44, 24, RoundedRectangle},
    EmfRow{45, 32, DrawArc<ArcEnd::Open>},
    EmfRow{46, 32, DrawArc<ArcEnd::Chord>},
    EmfRow{47, 32, DrawArc<ArcEnd::Pie>},
    EmfRow{54, 8, [](Player& player, ByteReader& record) { player.LinesTo({ReadPoint(record)}); }},
    EmfRow{55, 32,
           [](Player& player, ByteReader& record) { player.ArcTo(PathOf(ReadArc(player, record), ArcEnd::Open)); }},
    EmfRow{118, 28, GradientFill},
};
static_assert(AreSorted(kRows));

}  // namespace

const EmfRow* EmfShapeRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
