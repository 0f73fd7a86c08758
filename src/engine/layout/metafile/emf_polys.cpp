#include "emf_records.h"
#include "shapes.h"

#include <algorithm>
#include <array>

namespace quillmarker::metafile
{
namespace
{

/// How many bytes the two numbers of a point take: each record of points comes in both.
enum class PointSize : std::size_t { Small = 4, Large = 8 };

template <PointSize size>
QPointF ReadSized(ByteReader& record)
{
    if constexpr (size == PointSize::Large)
        return ReadPoint(record);
    const qreal x = record.I16();
    return {x, static_cast<qreal>(record.I16())};
}

/// As many points as were promised and are there.
template <PointSize size>
std::vector<QPointF> ReadPoints(ByteReader& record, std::size_t count)
{
    std::vector<QPointF> points(std::min(count, record.Left() / static_cast<std::size_t>(size)));
    std::generate(points.begin(), points.end(), [&] { return ReadSized<size>(record); });
    return points;
}

template <PointSize size>
std::vector<QPointF> ReadOne(ByteReader& record)
{
    record.Skip(kBounds);
    const std::size_t count = record.U32();
    return ReadPoints<size>(record, count);
}

using MakePath = QPainterPath (*)(const std::vector<QPointF>& points);

template <PointSize size, MakePath make, Parts parts>
void DrawOne(Player& player, ByteReader& record)
{
    player.Draw(make(ReadOne<size>(record)), parts);
}

template <PointSize size>
void LinesTo(Player& player, ByteReader& record)
{
    player.LinesTo(ReadOne<size>(record));
}

template <PointSize size>
void CurvesTo(Player& player, ByteReader& record)
{
    player.CurvesTo(ReadOne<size>(record));
}

template <PointSize size, MakePath make, Parts parts>
void DrawMany(Player& player, ByteReader& record)
{
    record.Skip(kBounds);
    const std::size_t polys = record.U32();
    record.Skip(4);
    std::vector<std::size_t> counts(std::min(polys, record.Left() / 4));
    std::generate(counts.begin(), counts.end(), [&] { return record.U32(); });
    QPainterPath path;
    for (const std::size_t count : counts)
        path.addPath(make(ReadPoints<size>(record, count)));
    player.Draw(path, parts);
}

/// Lines and curves in one row of points; a byte for each says which it is.
template <PointSize size>
void PolyDraw(Player& player, ByteReader& record)
{
    enum PointKind : std::uint8_t { Closes = 1, Line = 2, Curve = 4, Move = 6 };
    const std::vector<QPointF> points = ReadOne<size>(record);
    const std::string_view kinds = record.Bytes(std::min(points.size(), record.Left()));
    QPainterPath path(player.State().position);
    for (std::size_t i = 0; i < kinds.size(); ++i)
    {
        std::size_t last = i;
        switch (static_cast<unsigned char>(kinds[i]) & ~static_cast<unsigned>(Closes))
        {
        case Move:
            path.moveTo(points[i]);
            break;
        case Line:
            path.lineTo(points[i]);
            break;
        case Curve:
            last = i + 2;
            if (last >= kinds.size())
                return player.Draw(path, Parts::Line);
            path.cubicTo(points[i], points[i + 1], points[last]);
            break;
        default:
            return player.Draw(path, Parts::Line);
        }
        player.State().position = points[last];
        if ((static_cast<unsigned char>(kinds[last]) & Closes) != 0)
            path.closeSubpath();
        i = last;
    }
    player.Draw(path, Parts::Line);
}

constexpr PointSize kLarge = PointSize::Large;
constexpr PointSize kSmall = PointSize::Small;

constexpr std::array kRows = {
    EmfRow{2, 20, DrawOne<kLarge, CurvePath, Parts::Line>},
    EmfRow{3, 20, DrawOne<kLarge, PolygonPath, Parts::LineAndArea>},
    EmfRow{4, 20, DrawOne<kLarge, LinePath, Parts::Line>},
    EmfRow{5, 20, CurvesTo<kLarge>},
    EmfRow{6, 20, LinesTo<kLarge>},
    EmfRow{7, 24, DrawMany<kLarge, LinePath, Parts::Line>},
    EmfRow{8, 24, DrawMany<kLarge, PolygonPath, Parts::LineAndArea>},
    EmfRow{56, 20, PolyDraw<kLarge>},
    EmfRow{85, 20, DrawOne<kSmall, CurvePath, Parts::Line>},
    EmfRow{86, 20, DrawOne<kSmall, PolygonPath, Parts::LineAndArea>},
    EmfRow{87, 20, DrawOne<kSmall, LinePath, Parts::Line>},
    EmfRow{88, 20, CurvesTo<kSmall>},
    EmfRow{89, 20, LinesTo<kSmall>},
    EmfRow{90, 24, DrawMany<kSmall, LinePath, Parts::Line>},
    EmfRow{91, 24, DrawMany<kSmall, PolygonPath, Parts::LineAndArea>},
    EmfRow{92, 20, PolyDraw<kSmall>},
};
static_assert(AreSorted(kRows));

}  // namespace

const EmfRow* EmfPolyRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
