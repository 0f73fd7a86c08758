#include "text_line_painting.h"

#include "stroke_painting.h"

namespace quillmarker
{
namespace
{

constexpr std::array<std::uint8_t, 6> kDots{1, 1};
constexpr std::array<std::uint8_t, 6> kDashes{4, 2};
constexpr std::array<std::uint8_t, 6> kDashDots{4, 2, 1, 2};
constexpr std::array<std::uint8_t, 6> kDashDotDots{4, 2, 1, 2, 1, 2};
constexpr std::array<std::uint8_t, 6> kLongDashes{9, 3};

struct UnderlineRow
{
    Underline kind;
    StrokeStyle style;
};

constexpr std::array kUnderlines = {
    UnderlineRow{Underline::None, {}},
    UnderlineRow{Underline::Single, {.count = 1}},
    UnderlineRow{Underline::Words, {.count = 1}},  // comes cut into words
    UnderlineRow{Underline::Double, {.count = 2, .thickness = 0.75F}},
    UnderlineRow{Underline::Dotted, {.count = 1, .dashes = kDots}},
    UnderlineRow{Underline::Dash, {.count = 1, .dashes = kDashes}},
    UnderlineRow{Underline::DashDot, {.count = 1, .dashes = kDashDots}},
    UnderlineRow{Underline::DashDotDot, {.count = 1, .dashes = kDashDotDots}},
    UnderlineRow{Underline::Thick, {.count = 1, .thickness = 2}},
    UnderlineRow{Underline::ThickDotted, {.count = 1, .thickness = 2, .dashes = kDots}},
    UnderlineRow{Underline::ThickDash, {.count = 1, .thickness = 2, .dashes = kDashes}},
    UnderlineRow{Underline::ThickDashDot, {.count = 1, .thickness = 2, .dashes = kDashDots}},
    UnderlineRow{Underline::ThickDashDotDot, {.count = 1, .thickness = 2, .dashes = kDashDotDots}},
    UnderlineRow{Underline::LongDash, {.count = 1, .dashes = kLongDashes}},
    UnderlineRow{Underline::ThickLongDash, {.count = 1, .thickness = 2, .dashes = kLongDashes}},
    UnderlineRow{Underline::Wave, {.count = 1, .thickness = 0.75F, .shape = StrokeShape::Wave}},
    UnderlineRow{Underline::HeavyWave, {.count = 1, .thickness = 1.25F, .shape = StrokeShape::Wave}},
    UnderlineRow{Underline::DoubleWave, {.count = 2, .thickness = 0.6F, .shape = StrokeShape::Wave}},
    UnderlineRow{Underline::Hairline, {.count = 1, .thickness = 0}},
};

consteval bool IsInOrder()
{
    for (std::size_t i = 0; i < kUnderlines.size(); ++i)
    {
        if (static_cast<std::size_t>(kUnderlines[i].kind) != i)
            return false;
    }
    return true;
}
static_assert(IsInOrder() && kUnderlines.back().kind == Underline::Hairline, "one row for each kind, by number");

}  // namespace

void PaintTextLine(const PaintSurface& surface, const TextLine& line, const QColor& colour)
{
    const auto kind = static_cast<std::size_t>(line.kind);
    if (kind >= kUnderlines.size())
        return;
    const StrokeStyle& style = kUnderlines[kind].style;
    const QPointF from = surface.Mapped(line.from);
    const qreal thickness = static_cast<qreal>(line.thickness) * surface.Scale();
    // A wave reaches further up than a line; lower, it stays clear of the letters.
    const qreal drop = style.shape == StrokeShape::Wave ? thickness : 0;
    const Stroke stroke = {
        .orientation = Qt::Horizontal,
        .begin = from.x(),
        .end = from.x() + static_cast<qreal>(line.length) * surface.Scale(),
        .middle = from.y() + drop,
        .thickness = thickness,
        .colour = colour,
    };
    PaintStroke(surface, stroke, style);
}

}  // namespace quillmarker
