#include "graphics_objects.h"

#include <array>

namespace quillmarker::metafile
{
namespace
{

constexpr std::uint32_t kStyleMask = 0x0F;
constexpr std::uint32_t kGeometric = 0x10000;

constexpr std::array kPenStyles = {
    Qt::SolidLine,       // 0
    Qt::DashLine,        // 1
    Qt::DotLine,         // 2
    Qt::DashDotLine,     // 3
    Qt::DashDotDotLine,  // 4
    Qt::NoPen,           // 5
    Qt::SolidLine,       // 6: inside the frame
    Qt::CustomDashLine,  // 7
    Qt::DotLine,         // 8: every other pixel
};

constexpr std::array kHatches = {Qt::HorPattern,   Qt::VerPattern,   Qt::FDiagPattern,
                                 Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};

enum BrushStyle : std::uint32_t { Solid = 0, Null = 1, Hatched = 2 };

constexpr std::array<QRgb, 5> kStockBrushes = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};

enum StockNumber : std::uint32_t {
    NullBrush = 5,
    WhitePen = 6,
    BlackPen = 7,
    NullPen = 8,
    FirstFont = 10,
    LastFont = 17,
    FixedFontOfMaker = 10,
    FixedFont = 11,
    DefaultPalette = 15,
    FixedSystemFont = 16,
    DevicePen = 19,
    DeviceBrush = 18
};

Font StockFont(std::uint32_t number)
{
    Font font;
    font.height = 16;
    if (number == FixedFontOfMaker || number == FixedFont || number == FixedSystemFont)
        font.family = QStringLiteral("Courier New");
    return font;
}

Qt::PenCapStyle CapOf(std::uint32_t style)
{
    constexpr std::array kCaps = {Qt::RoundCap, Qt::SquareCap, Qt::FlatCap, Qt::RoundCap};
    return kCaps[style >> 8 & 3U];
}

Qt::PenJoinStyle JoinOf(std::uint32_t style)
{
    constexpr std::array kJoins = {Qt::RoundJoin, Qt::BevelJoin, Qt::MiterJoin, Qt::RoundJoin};
    return kJoins[style >> 12 & 3U];
}

}  // namespace

const GraphicsObject* ObjectTable::Find(std::uint32_t handle) const
{
    const auto found = m_objects.find(handle);
    return found == m_objects.end() ? nullptr : &found->second;
}

void ObjectTable::Put(std::uint32_t handle, GraphicsObject object)
{
    m_objects.insert_or_assign(handle, std::move(object));
}

void ObjectTable::PutInFirstFree(GraphicsObject object)
{
    if (m_freed.empty())
    {
        Put(m_next++, std::move(object));
        return;
    }
    Put(*m_freed.begin(), std::move(object));
    m_freed.erase(m_freed.begin());
}

void ObjectTable::Remove(std::uint32_t handle)
{
    if (m_objects.erase(handle) > 0 && handle < m_next)
        m_freed.insert(handle);
}

std::optional<GraphicsObject> StockObject(std::uint32_t number)
{
    if (number < kStockBrushes.size())
        return Brush{.colour = QColor(kStockBrushes[number])};
    switch (number)
    {
    case NullBrush:
        return Brush{.style = Qt::NoBrush};
    case WhitePen:
        return Pen{.colour = Qt::white};
    case BlackPen:
    case DevicePen:
        return Pen{};
    case NullPen:
        return Pen{.style = Qt::NoPen};
    case DeviceBrush:
        return Brush{};
    case DefaultPalette:
        return Unplayed{};
    default:
        break;
    }
    if (number >= FirstFont && number <= LastFont)
        return StockFont(number);
    return std::nullopt;
}

Pen PenOfStyle(std::uint32_t style, qreal width, QColor colour)
{
    Pen pen{.colour = colour, .width = width, .cap = CapOf(style), .join = JoinOf(style)};
    const std::uint32_t number = style & kStyleMask;
    pen.style = number < kPenStyles.size() ? kPenStyles[number] : Qt::SolidLine;
    pen.isGeometric = (style & kGeometric) != 0;
    return pen;
}

Brush BrushOfStyle(std::uint32_t style, QColor colour, std::uint32_t hatch)
{
    Brush brush{.colour = colour};
    if (style == Null)
        brush.style = Qt::NoBrush;
    else if (style == Hatched && hatch < kHatches.size())
        brush.style = kHatches[hatch];
    return brush;
}

FamilyKind FamilyKindOf(std::uint32_t pitchAndFamily)
{
    enum Family : std::uint32_t { Roman = 1, Modern = 3 };
    switch (pitchAndFamily >> 4)
    {
    case Roman:
        return FamilyKind::Serif;
    case Modern:
        return FamilyKind::Fixed;
    default:
        return FamilyKind::Sans;
    }
}

QColor ColourOf(std::uint32_t stored)
{
    return {static_cast<int>(stored & 0xFF), static_cast<int>(stored >> 8 & 0xFF),
            static_cast<int>(stored >> 16 & 0xFF)};
}

}  // namespace quillmarker::metafile
