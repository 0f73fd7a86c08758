#include "dib.h"
#include "shapes.h"
#include "wmf_records.h"

#include "engine/rtf/code_page.h"

#include <algorithm>
#include <array>

namespace quillmarker::metafile
{
namespace
{

constexpr std::size_t kLongestName = 32;
constexpr qreal kTenthsOfDegree = 10;
constexpr int kPatternOfTwoColours = 3;

void CreatePen(Player& player, ByteReader& record)
{
    const std::uint32_t style = record.U16();
    const qreal width = record.I16();
    record.Skip(2);
    Pen pen = PenOfStyle(style, width, ColourOf(record.U32()));
    pen.isGeometric = width > 0;
    player.Objects().PutInFirstFree(pen);
}

void CreateBrush(Player& player, ByteReader& record)
{
    const std::uint32_t style = record.U16();
    const QColor colour = ColourOf(record.U32());
    player.Objects().PutInFirstFree(BrushOfStyle(style, colour, record.U16()));
}

void CreateFont(Player& player, ByteReader& record)
{
    Font font;
    font.height = record.I16();
    font.width = record.I16();
    font.escapement = record.I16() / kTenthsOfDegree;
    record.Skip(2);
    font.weight = record.I16();
    font.isItalic = record.U8() != 0;
    font.isUnderlined = record.U8() != 0;
    font.isStruckOut = record.U8() != 0;
    font.charset = record.U8();
    record.Skip(3);
    font.familyKind = FamilyKindOf(record.U8());
    std::string_view name = record.Bytes(std::min(record.Left(), kLongestName));
    name = name.substr(0, name.find('\0'));
    // A font of symbols has an ordinary name.
    const CodePage page = CodePageOfCharset(font.charset);
    std::u16string units;
    DecoderFor(page == kSymbolPage ? kAnsiPage : page).Append(name, units);
    if (!units.empty())
        font.family = QString::fromStdU16String(units);
    player.Objects().PutInFirstFree(font);
}

void CreatePattern(Player& player, ByteReader& record)
{
    const int style = record.U16();
    const auto use = static_cast<ColourUse>(record.U16());
    const Dib dib = PackedDib(record.Bytes(record.Left()), use);
    Brush brush{.style = Qt::NoBrush};
    if (player.Surface().Budget().Spend(PixelsOf(dib) * WorkBudget::kPixelOfImage))
        brush.pattern = ReadDib(dib);
    if (!brush.pattern.isNull())
        brush.style = Qt::TexturePattern;
    brush.isTwoColoured = style == kPatternOfTwoColours && brush.pattern.format() == QImage::Format_Mono;
    player.Objects().PutInFirstFree(brush);
}

/// A region is a row of scans, each with its top, its bottom and pairs of ends.
void CreateRegion(Player& player, ByteReader& record)
{
    constexpr std::size_t kScansPlace = 22;
    Region region;
    record.MoveTo(kScansPlace);
    while (record.Left() >= 8)
    {
        const int ends = record.U16();
        const qreal top = record.I16();
        const qreal bottom = record.I16();
        for (int i = 0; i + 1 < ends && !record.HasFailed(); i += 2)
        {
            const qreal left = record.I16();
            const qreal right = record.I16();
            region.rectangles.emplace_back(QPointF(left, top), QPointF(right, bottom));
        }
        record.Skip(2);
    }
    player.Objects().PutInFirstFree(record.HasFailed() ? Region{} : region);
}

/// It takes a handle, and that is all.
void CreateUnplayed(Player& player, ByteReader& /*record*/) { player.Objects().PutInFirstFree(Unplayed{}); }

QPainterPath AreaOf(const GraphicsObject* object)
{
    QPainterPath area;
    if (const auto* const region = object ? std::get_if<Region>(object) : nullptr)
    {
        for (const QRectF& rectangle : region->rectangles)
            area.addRect(rectangle);
    }
    return area;
}

void FillRegion(Player& player, ByteReader& record)
{
    const QPainterPath area = AreaOf(player.Objects().Find(record.U16()));
    const GraphicsObject* const object = player.Objects().Find(record.U16());
    if (const auto* const brush = object ? std::get_if<Brush>(object) : nullptr)
        player.FillWith(*brush, area, player.State().mix);
}

void PaintRegion(Player& player, ByteReader& record)
{
    player.FillWith(player.State().brush, AreaOf(player.Objects().Find(record.U16())), player.State().mix);
}

/// Without a region of this handle the clip is taken away.
void SelectClipRegion(Player& player, ByteReader& record)
{
    const GraphicsObject* const object = player.Objects().Find(record.U16());
    if (object && std::holds_alternative<Region>(*object))
        player.Select(*object);
    else
        player.State().clip.Reset();
}

void SelectObject(Player& player, ByteReader& record)
{
    if (const GraphicsObject* const object = player.Objects().Find(record.U16()))
        player.Select(*object);
}

constexpr std::array kRows = {
    WmfRow{0x00F7, 0, CreateUnplayed},  // palette
    WmfRow{0x012B, 2, PaintRegion},
    WmfRow{0x012C, 2, SelectClipRegion},
    WmfRow{0x012D, 2, SelectObject},
    WmfRow{0x0142, 4, CreatePattern},
    WmfRow{0x01F0, 2, [](Player& player, ByteReader& record) { player.Objects().Remove(record.U16()); }},
    WmfRow{0x01F9, 0, CreateUnplayed},  // pattern of a device's own bitmap
    WmfRow{0x0228, 4, FillRegion},
    WmfRow{0x02FA, 10, CreatePen},
    WmfRow{0x02FB, 18, CreateFont},
    WmfRow{0x02FC, 8, CreateBrush},
    WmfRow{0x02FD, 0, CreateUnplayed},  // bitmaps
    WmfRow{0x06FE, 0, CreateUnplayed},
    WmfRow{0x06FF, 0, CreateRegion},
};
static_assert(AreSorted(kRows));

}  // namespace

const WmfRow* WmfObjectRow(std::uint32_t number) { return RowOf(kRows, number); }

}  // namespace quillmarker::metafile
