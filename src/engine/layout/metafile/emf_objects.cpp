#include "emf_dib.h"
#include "emf_records.h"

#include <QImage>

#include <algorithm>
#include <array>

namespace quillmarker::metafile
{
namespace
{

constexpr std::uint32_t kStock = 0x80000000;
constexpr qreal kTenthsOfDegree = 10;
constexpr std::size_t kLongestName = 32;
constexpr std::size_t kMostDashes = 16;

void SelectObject(Player& player, ByteReader& record)
{
    const std::uint32_t handle = record.U32();
    if ((handle & kStock) != 0)
    {
        if (const std::optional<GraphicsObject> stock = StockObject(handle & ~kStock))
            player.Select(*stock);
    }
    else if (const GraphicsObject* const object = player.Objects().Find(handle))
        player.Select(*object);
}

void CreatePen(Player& player, ByteReader& record)
{
    const std::uint32_t handle = record.U32();
    const std::uint32_t style = record.U32();
    const qreal width = record.I32();
    record.Skip(4);
    Pen pen = PenOfStyle(style, width, ColourOf(record.U32()));
    pen.isGeometric = width > 0;
    player.Objects().Put(handle, pen);
}

/// The brush of such a pen is a colour, or a hatch that lines hardly show.
void ExtCreatePen(Player& player, ByteReader& record)
{
    constexpr std::uint32_t kNoBrush = 1;
    const std::uint32_t handle = record.U32();
    record.Skip(16);
    const std::uint32_t style = record.U32();
    const qreal width = record.U32();
    const std::uint32_t brushStyle = record.U32();
    Pen pen = PenOfStyle(style, width, ColourOf(record.U32()));
    record.Skip(4);
    if (brushStyle == kNoBrush)
        pen.style = Qt::NoPen;
    pen.dashes.resize(std::min<std::size_t>({record.U32(), record.Left() / 4, kMostDashes}));
    std::generate(pen.dashes.begin(), pen.dashes.end(), [&] { return record.U32(); });
    player.Objects().Put(handle, pen);
}

void CreateBrush(Player& player, ByteReader& record)
{
    const std::uint32_t handle = record.U32();
    const std::uint32_t style = record.U32();
    const QColor colour = ColourOf(record.U32());
    player.Objects().Put(handle, BrushOfStyle(style, colour, record.U32()));
}

template <bool isTwoColoured>
void CreatePattern(Player& player, ByteReader& record)
{
    const std::uint32_t handle = record.U32();
    const auto use = static_cast<ColourUse>(record.U32());
    const Dib dib = ReadDibPlaces(record, use);
    Brush brush{.style = Qt::NoBrush};
    if (player.Surface().Budget().Spend(PixelsOf(dib) * WorkBudget::kPixelOfImage))
        brush.pattern = ReadDib(dib);
    if (!brush.pattern.isNull())
        brush.style = Qt::TexturePattern;
    brush.isTwoColoured = isTwoColoured && brush.pattern.format() == QImage::Format_Mono;
    player.Objects().Put(handle, brush);
}

void CreateFont(Player& player, ByteReader& record)
{
    const std::uint32_t handle = record.U32();
    Font font;
    font.height = record.I32();
    font.width = record.I32();
    font.escapement = record.I32() / kTenthsOfDegree;
    record.Skip(4);
    font.weight = record.I32();
    font.isItalic = record.U8() != 0;
    font.isUnderlined = record.U8() != 0;
    font.isStruckOut = record.U8() != 0;
    font.charset = record.U8();
    record.Skip(3);
    font.familyKind = FamilyKindOf(record.U8());
    QString name;
    for (std::size_t i = 0; i < kLongestName && record.Left() >= 2; ++i)
    {
        const char16_t unit = record.U16();
        if (unit == 0)
            break;
        name += QChar(unit);
    }
    if (!name.isEmpty())
        font.family = name;
    player.Objects().Put(handle, font);
}

constexpr std::array kRows = {
    EmfRow{37, 4, SelectObject},
    EmfRow{38, 20, CreatePen},
    EmfRow{39, 16, CreateBrush},
    EmfRow{40, 4, [](Player& player, ByteReader& record) { player.Objects().Remove(record.U32()); }},
    EmfRow{82, 32, CreateFont},
    EmfRow{93, 24, CreatePattern<true>},
    EmfRow{94, 24, CreatePattern<false>},
    EmfRow{95, 44, ExtCreatePen},
};
static_assert(AreSorted(kRows));

}  // namespace

const EmfRow* EmfObjectRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
