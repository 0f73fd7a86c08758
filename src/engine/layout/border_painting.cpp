#include "border_painting.h"

#include "stroke_painting.h"

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

/// A border that seems to stand out or to be sunk in: a light and a dark stroke side by side.
enum class Relief : std::uint8_t { None, LightFirst, DarkFirst };

struct BorderRow
{
    BorderStyle style;
    StrokeStyle stroke;
    Relief relief = Relief::None;
};

constexpr std::array kBorders = {
    BorderRow{BorderStyle::None, {}},
    BorderRow{BorderStyle::Single, {.count = 1}},
    BorderRow{BorderStyle::Thick, {.count = 1, .thickness = 2}},
    BorderRow{BorderStyle::Double, {.count = 2}},
    BorderRow{BorderStyle::Dotted, {.count = 1, .dashes = {1, 1}}},
    BorderRow{BorderStyle::Dashed, {.count = 1, .dashes = {4, 2}}},
    BorderRow{BorderStyle::Hairline, {.count = 1, .thickness = 0}},
    BorderRow{BorderStyle::DashSmall, {.count = 1, .dashes = {3, 1}}},
    BorderRow{BorderStyle::DotDash, {.count = 1, .dashes = {4, 2, 1, 2}}},
    BorderRow{BorderStyle::DotDotDash, {.count = 1, .dashes = {4, 2, 1, 2, 1, 2}}},
    BorderRow{BorderStyle::Triple, {.count = 3}},
    BorderRow{BorderStyle::Shadow, {.count = 1}},
    BorderRow{BorderStyle::Wavy, {.count = 1, .thickness = 0.75F, .shape = StrokeShape::Wave}},
    BorderRow{BorderStyle::DoubleWavy, {.count = 2, .thickness = 0.6F, .shape = StrokeShape::Wave}},
    BorderRow{BorderStyle::Striped, {.count = 1, .shape = StrokeShape::Slanted, .dashes = {2, 1}}},
    BorderRow{BorderStyle::Emboss, {.count = 1}, Relief::LightFirst},
    BorderRow{BorderStyle::Engrave, {.count = 1}, Relief::DarkFirst},
    BorderRow{BorderStyle::Inset, {.count = 1}, Relief::DarkFirst},
    BorderRow{BorderStyle::Outset, {.count = 1}, Relief::LightFirst},
};

consteval bool IsInOrder()
{
    for (std::size_t i = 0; i < kBorders.size(); ++i)
    {
        if (static_cast<std::size_t>(kBorders[i].style) != i)
            return false;
    }
    return true;
}
static_assert(IsInOrder() && kBorders.back().style == BorderStyle::Outset, "one row for each style, by number");

constexpr int kLighter = 125;  // per cent
constexpr int kDarker = 160;

// The two colours of a relief; those of an automatic border are greys between light and shadow.
void PaintRelief(const PaintSurface& surface, Stroke stroke, const BorderRow& row, bool isAutomatic)
{
    const QColor base = isAutomatic ? QColor(Qt::gray) : stroke.colour;
    const QColor light = base.lighter(kLighter);
    const QColor dark = base.darker(kDarker);
    const qreal middle = stroke.middle;
    stroke.colour = row.relief == Relief::LightFirst ? light : dark;
    stroke.middle = middle - stroke.thickness / 2;
    PaintStroke(surface, stroke, row.stroke);
    stroke.colour = row.relief == Relief::LightFirst ? dark : light;
    stroke.middle = middle + stroke.thickness / 2;
    PaintStroke(surface, stroke, row.stroke);
}

Stroke StrokeOf(const PaintSurface& surface, const BorderLine& line, const StrokeStyle& style, const QColor& colour)
{
    const QPointF from = surface.Mapped(line.from);
    const QPointF to = surface.Mapped(line.to);
    const bool isHorizontal = std::abs(to.x() - from.x()) >= std::abs(to.y() - from.y());
    const qreal thickness = std::max(line.border.width.value, 0) * surface.Scale();
    // A wave that reached further would leave its corner.
    const qreal reach = style.shape == StrokeShape::Wave ? 0 : thickness * static_cast<qreal>(style.thickness) / 2;
    const qreal a = isHorizontal ? from.x() : from.y();
    const qreal b = isHorizontal ? to.x() : to.y();
    const qreal all = reach * (style.count * 2 - 1);
    return {
        .orientation = isHorizontal ? Qt::Horizontal : Qt::Vertical,
        .begin = std::min(a, b) - all,
        .end = std::max(a, b) + all,
        .middle = isHorizontal ? (from.y() + to.y()) / 2 : (from.x() + to.x()) / 2,
        .thickness = thickness,
        .colour = colour,
    };
}

}  // namespace

void PaintBorder(const PaintSurface& surface, const BorderLine& line, const QColor& colour)
{
    const auto style = static_cast<std::size_t>(line.border.style);
    if (style >= kBorders.size())
        return;
    const BorderRow& row = kBorders[style];
    const Stroke stroke = StrokeOf(surface, line, row.stroke, colour);
    if (row.relief == Relief::None)
        PaintStroke(surface, stroke, row.stroke);
    else
        PaintRelief(surface, stroke, row, line.border.colour.IsAutomatic());
}

}  // namespace quillmarker
