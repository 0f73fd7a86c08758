#include "emf_records.h"
#include "shapes.h"

#include <array>

namespace quillmarker::metafile
{
namespace
{

constexpr std::uint32_t kTransparentGround = 1;
constexpr std::uint32_t kWinding = 2;
constexpr std::uint32_t kClockwise = 2;

QTransform ReadTransform(ByteReader& record)
{
    const qreal m11 = record.F32();
    const qreal m12 = record.F32();
    const qreal m21 = record.F32();
    const qreal m22 = record.F32();
    const qreal dx = record.F32();
    return {m11, m12, m21, m22, dx, record.F32()};
}

void ModifyWorld(Player& player, ByteReader& record)
{
    enum Modification : std::uint32_t { Identity = 1, Before = 2, After = 3, Set = 4 };
    const QTransform transform = ReadTransform(record);
    Mapping& mapping = player.State().mapping;
    switch (record.U32())
    {
    case Identity:
        mapping.world = {};
        break;
    case Before:
        mapping.SetWorld(transform * mapping.world);
        break;
    case After:
        mapping.SetWorld(mapping.world * transform);
        break;
    case Set:
        mapping.SetWorld(transform);
        break;
    default:
        break;
    }
}

void SetMapMode(Player& player, ByteReader& record)
{
    const std::uint32_t mode = record.U32();
    if (mode >= static_cast<std::uint32_t>(MapMode::Text) && mode <= static_cast<std::uint32_t>(MapMode::Anisotropic))
        player.State().mapping.mode = static_cast<MapMode>(mode);
}

/// x, then y: each a numerator and a denominator.
QSizeF ReadScaled(ByteReader& record, QSizeF extent)
{
    const qreal acrossAbove = record.I32();
    const qreal acrossBelow = record.I32();
    const qreal downAbove = record.I32();
    return Scaled(extent, {acrossAbove, downAbove}, {acrossBelow, static_cast<qreal>(record.I32())});
}

void SetMiterLimit(Player& player, ByteReader& record) { player.State().miterLimit = record.U32(); }

constexpr std::array kRows = {
    EmfRow{9, 8, [](Player& player, ByteReader& record) { player.State().mapping.SetWindowExtent(ReadSize(record)); }},
    EmfRow{10, 8, [](Player& player, ByteReader& record) { player.State().mapping.windowOrigin = ReadPoint(record); }},
    EmfRow{11, 8,
           [](Player& player, ByteReader& record) { player.State().mapping.SetViewportExtent(ReadSize(record)); }},
    EmfRow{12, 8,
           [](Player& player, ByteReader& record) { player.State().mapping.viewportOrigin = ReadPoint(record); }},
    EmfRow{17, 4, SetMapMode},
    EmfRow{18, 4,
           [](Player& player, ByteReader& record) { player.State().isOpaque = record.U32() != kTransparentGround; }},
    EmfRow{19, 4,
           [](Player& player, ByteReader& record) {
               player.State().fillRule = record.U32() == kWinding ? Qt::WindingFill : Qt::OddEvenFill;
           }},
    EmfRow{20, 4, [](Player& player, ByteReader& record) { player.State().mix = static_cast<MixMode>(record.U32()); }},
    EmfRow{22, 4, [](Player& player, ByteReader& record) { player.State().textAlignment = record.U32(); }},
    EmfRow{24, 4, [](Player& player, ByteReader& record) { player.State().textColour = ColourOf(record.U32()); }},
    EmfRow{25, 4, [](Player& player, ByteReader& record) { player.State().background = ColourOf(record.U32()); }},
    EmfRow{26, 8, [](Player& player, ByteReader& record) { player.OffsetClip(ReadPoint(record)); }},
    EmfRow{
        29, 16,
        [](Player& player, ByteReader& record) { player.ClipTo(RectanglePath(ReadBox(record)), ClipMode::Exclude); }},
    EmfRow{
        30, 16,
        [](Player& player, ByteReader& record) { player.ClipTo(RectanglePath(ReadBox(record)), ClipMode::Intersect); }},
    EmfRow{31, 16,
           [](Player& player, ByteReader& record) {
               Mapping& mapping = player.State().mapping;
               mapping.SetViewportExtent(ReadScaled(record, mapping.viewportExtent));
           }},
    EmfRow{32, 16,
           [](Player& player, ByteReader& record) {
               Mapping& mapping = player.State().mapping;
               mapping.SetWindowExtent(ReadScaled(record, mapping.windowExtent));
           }},
    EmfRow{33, 0, [](Player& player, ByteReader&) { player.Save(); }},
    EmfRow{34, 4, [](Player& player, ByteReader& record) { player.Restore(record.I32()); }},
    EmfRow{35, 24, [](Player& player, ByteReader& record) { player.State().mapping.SetWorld(ReadTransform(record)); }},
    EmfRow{36, 28, ModifyWorld},
    EmfRow{57, 4,
           [](Player& player, ByteReader& record) { player.State().arcsAreClockwise = record.U32() == kClockwise; }},
    EmfRow{58, 4, SetMiterLimit},
};
static_assert(AreSorted(kRows));

}  // namespace

const EmfRow* EmfStateRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
