#include "paragraph_frame.h"

#include "paragraph_shapes.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

/// The rectangle between the indents that shading and borders share.
QRectF Frame(const ParagraphLayout& layout, QPointF origin, std::uint32_t first, std::uint32_t last)
{
    const auto lines = layout.Lines();
    const ParagraphFormat& format = layout.Format();
    // A first line that hangs out does so where lines begin.
    const double hanging = std::min(format.firstIndent.value, 0);
    const double left = format.leftIndent.value + (IsMirrored(layout) ? 0 : hanging);
    const double right = layout.Context().width.value > 0 ? layout.Context().width.value - format.rightIndent.value -
                                                                (IsMirrored(layout) ? hanging : 0)
                                                          : InTwips(layout.Extent());
    const double top = InTwips(lines[first].top);
    const double bottom = InTwips(lines[last - 1].Bottom());
    return {QPointF(origin.x() + left, origin.y() + top),
            QPointF(origin.x() + std::max(right, left), origin.y() + bottom)};
}

/// The same, up to the paragraphs that share it.
QRectF JoinedFrame(const ParagraphLayout& layout, QPointF origin, std::uint32_t first, std::uint32_t last,
                   FrameNeighbours neighbours)
{
    QRectF frame = Frame(layout, origin, first, last);
    if (neighbours.above && first == 0 && layout.Context().joinsAbove)
        frame.setTop(origin.y());
    if (neighbours.below && last == layout.Lines().size() && layout.Context().joinsBelow)
        frame.setBottom(origin.y() + InTwips(layout.Height()));
    return frame;
}

/// Room that a border's line takes beside the text, to the line's middle.
double Outside(const Border& border)
{
    return border.style == BorderStyle::None ? 0
                                             : std::max(border.space.value, 0) + std::max(border.width.value, 0) / 2.0;
}

}  // namespace

bool IsMirrored(const ParagraphLayout& layout)
{
    return layout.Shapes().isRightToLeft && layout.Context().width.value > 0;
}

void DrawShading(const ParagraphLayout& layout, DisplayList& list, QPointF origin, std::uint32_t first,
                 std::uint32_t last, FrameNeighbours neighbours)
{
    const Shading& shading = *layout.Format().shading;
    if (!shading.fill.IsAutomatic() || shading.hundredths > 0)
        list.Add(FilledRectangle{.rectangle = JoinedFrame(layout, origin, first, last, neighbours),
                                 .colour = shading.fill,
                                 .ground = Ground::Background,
                                 .mixed = shading.hundredths,
                                 .pattern = shading.foreground});
}

void DrawBorders(const ParagraphLayout& layout, DisplayList& list, QPointF origin, std::uint32_t first,
                 std::uint32_t last, FrameNeighbours neighbours)
{
    const Borders& borders = *layout.Format().borders;
    const ParagraphContext& context = layout.Context();
    QRectF frame = JoinedFrame(layout, origin, first, last, neighbours);
    const bool hasTop = first == 0 && !context.joinsAbove;
    const bool hasEnd = last == layout.Lines().size();
    const Border& atEnd = borders[context.joinsBelow ? BorderSide::Between : BorderSide::Bottom];
    frame.adjust(-Outside(borders[BorderSide::Left]), hasTop ? -Outside(borders[BorderSide::Top]) : 0,
                 Outside(borders[BorderSide::Right]), 0);
    const double end = Frame(layout, origin, first, last).bottom() + Outside(atEnd);
    if (hasEnd)
        frame.setBottom(std::max(frame.bottom(), end));
    const auto add = [&list](const Border& border, QPointF from, QPointF to) {
        if (border.style != BorderStyle::None)
            list.Add(BorderLine{from, to, border});
    };
    if (hasTop)
        add(borders[BorderSide::Top], frame.topLeft(), frame.topRight());
    add(borders[BorderSide::Left], frame.topLeft(), frame.bottomLeft());
    add(borders[BorderSide::Right], frame.topRight(), frame.bottomRight());
    add(borders[BorderSide::Bar], frame.topLeft(), frame.bottomLeft());
    if (hasEnd)
        add(atEnd, {frame.left(), end}, {frame.right(), end});
}

void DrawBars(const ParagraphLayout& layout, DisplayList& list, QPointF origin, std::uint32_t first, std::uint32_t last)
{
    constexpr Twips kBarWidth{15};
    const QRectF frame = Frame(layout, origin, first, last);
    for (const TabStop& stop : *layout.Format().tabs)
    {
        if (stop.kind != TabKind::Bar)
            continue;
        const double position = stop.position.value;
        const double x = origin.x() + (IsMirrored(layout) ? layout.Context().width.value - position : position);
        list.Add(BorderLine{{x, frame.top()}, {x, frame.bottom()}, {BorderStyle::Single, kBarWidth, {}, {}}});
    }
}

}  // namespace quillmarker
