#include "emf_records.h"

#include <array>

namespace quillmarker::metafile
{
namespace
{

// Flattening and widening a path change nothing that is seen when it is then filled or stroked: they are not played.
constexpr std::array kRows = {
    EmfRow{59, 0, [](Player& player, ByteReader&) { player.BeginPath(); }},
    EmfRow{60, 0, [](Player& player, ByteReader&) { player.EndPath(); }},
    EmfRow{61, 0, [](Player& player, ByteReader&) { player.CloseFigure(); }},
    EmfRow{62, 0, [](Player& player, ByteReader&) { player.DrawPath(Parts::Area); }},
    EmfRow{63, 0, [](Player& player, ByteReader&) { player.DrawPath(Parts::LineAndArea); }},
    EmfRow{64, 0, [](Player& player, ByteReader&) { player.DrawPath(Parts::Line); }},
    EmfRow{67, 4, [](Player& player, ByteReader& record) { player.ClipToPath(static_cast<ClipMode>(record.U32())); }},
    EmfRow{68, 0, [](Player& player, ByteReader&) { player.AbortPath(); }},
};
static_assert(AreSorted(kRows));

}  // namespace

const EmfRow* EmfPathRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
