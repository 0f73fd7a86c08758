#include "shapes.h"
#include "wmf_records.h"

#include <array>

namespace quillmarker::metafile
{
namespace
{

constexpr std::uint32_t kTransparentGround = 1;
constexpr std::uint32_t kWinding = 2;

// The viewport is the target, whatever a file says: records that would move it are not played. So are the mapping modes
// that depend on it.
void SetMapMode(Player& player, ByteReader& record)
{
    const std::uint32_t mode = record.U16();
    const bool isFixed =
        mode > static_cast<std::uint32_t>(MapMode::Text) && mode < static_cast<std::uint32_t>(MapMode::Isotropic);
    player.State().mapping.mode = isFixed ? static_cast<MapMode>(mode) : MapMode::Anisotropic;
}

void ScaleWindow(Player& player, ByteReader& record)
{
    const qreal downBelow = record.I16();
    const qreal downAbove = record.I16();
    const qreal acrossBelow = record.I16();
    const qreal acrossAbove = record.I16();
    Mapping& mapping = player.State().mapping;
    mapping.SetWindowExtent(Scaled(mapping.windowExtent, {acrossAbove, downAbove}, {acrossBelow, downBelow}));
}

constexpr std::array kRows = {
    WmfRow{0x001E, 0, [](Player& player, ByteReader&) { player.Save(); }},
    WmfRow{0x0102, 2,
           [](Player& player, ByteReader& record) { player.State().isOpaque = record.U16() != kTransparentGround; }},
    WmfRow{0x0103, 2, SetMapMode},
    WmfRow{0x0104, 2,
           [](Player& player, ByteReader& record) { player.State().mix = static_cast<MixMode>(record.U16()); }},
    WmfRow{0x0106, 2,
           [](Player& player, ByteReader& record) {
               player.State().fillRule = record.U16() == kWinding ? Qt::WindingFill : Qt::OddEvenFill;
           }},
    WmfRow{0x0108, 2, [](Player& player, ByteReader& record) { player.State().characterExtra = record.I16(); }},
    WmfRow{0x0127, 2, [](Player& player, ByteReader& record) { player.Restore(record.I16()); }},
    WmfRow{0x012E, 2, [](Player& player, ByteReader& record) { player.State().textAlignment = record.U16(); }},
    WmfRow{0x0201, 4, [](Player& player, ByteReader& record) { player.State().background = ColourOf(record.U32()); }},
    WmfRow{0x0209, 4, [](Player& player, ByteReader& record) { player.State().textColour = ColourOf(record.U32()); }},
    WmfRow{0x020B, 4,
           [](Player& player, ByteReader& record) { player.State().mapping.windowOrigin = ReadBackwardPoint(record); }},
    WmfRow{
        0x020C, 4,
        [](Player& player, ByteReader& record) { player.State().mapping.SetWindowExtent(ReadBackwardSize(record)); }},
    WmfRow{
        0x020F, 4,
        [](Player& player, ByteReader& record) { player.State().mapping.windowOrigin += ReadBackwardPoint(record); }},
    WmfRow{0x0220, 4, [](Player& player, ByteReader& record) { player.OffsetClip(ReadBackwardPoint(record)); }},
    WmfRow{0x0410, 8, ScaleWindow},
    WmfRow{0x0415, 8,
           [](Player& player, ByteReader& record) {
               player.ClipTo(RectanglePath(ReadBackwardBox(record)), ClipMode::Exclude);
           }},
    WmfRow{0x0416, 8,
           [](Player& player, ByteReader& record) {
               player.ClipTo(RectanglePath(ReadBackwardBox(record)), ClipMode::Intersect);
           }},
};
static_assert(AreSorted(kRows));

}  // namespace

const WmfRow* WmfStateRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
