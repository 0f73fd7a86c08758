#include "document_flow.h"

#include "paragraph_stops.h"
#include "text_breaks.h"

#include <algorithm>

// Places in the column: carets, lines, and what is under a point.

namespace quillmarker
{
namespace
{

std::uint32_t OffsetOf(const Document& document, const Location& location)
{
    const std::size_t length = document.ParagraphAt(location.paragraph).Text().size();
    return static_cast<std::uint32_t>(std::min(static_cast<std::size_t>(location.offset), length));
}

bool Holds(const ParagraphLayout& layout, std::uint32_t line, std::int32_t begin, std::int32_t end, Fine x)
{
    const std::vector<LineSpan> spans =
        layout.SpansOf(line, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end));
    return std::any_of(spans.begin(), spans.end(),
                       [x](const LineSpan& span) { return x >= span.left && x < span.right; });
}

/// The character at `x`, which is behind or before the caret place nearest to it.
std::int32_t CharacterAt(const Document& document, const ParagraphLayout& layout, std::uint32_t line, Fine x,
                         std::int32_t nearest)
{
    const ParagraphStops stops(document, layout.Source());
    const std::int32_t behind = stops.PastHiddenBehind(nearest);
    if (behind < stops.Length() && Holds(layout, line, behind, NextCharacterBreak(stops.Text(), behind), x))
        return behind;
    return PreviousCharacterBreak(stops.Text(), stops.PastHiddenBefore(nearest));
}

/// The line of a layout at a distance from its top, or the nearest one that has a height.
std::uint32_t LineNearest(const ParagraphLayout& layout, Fine distance)
{
    std::uint32_t nearest = 0;
    std::uint32_t index = 0;
    for (const Line& line : layout.Lines())
    {
        if (line.height > 0 && (line.top <= distance || layout.Lines()[nearest].height == 0))
            nearest = index;
        ++index;
    }
    return nearest;
}

}  // namespace

FlowLine DocumentFlow::LineOf(CaretPosition caret)
{
    const Location location = Value().Locate(caret.position);
    return {location.paragraph, LayoutOf(location.paragraph).LineOf(OffsetOf(Value(), location), caret.side)};
}

CaretBox DocumentFlow::BoxOf(CaretPosition caret)
{
    const Location location = Value().Locate(caret.position);
    const FlowLine at = LineOf(caret);
    const ParagraphLayout& layout = LayoutOf(at.paragraph);
    const Line& line = layout.Lines()[at.line];
    const CaretPlace place = layout.CaretAt(at.line, OffsetOf(Value(), location));
    return {place.x, TopOf(at.paragraph) + line.top + line.textTop, line.textHeight, place.rightToLeft};
}

FlowHit DocumentFlow::HitAt(Fine x, Fine y)
{
    std::int32_t paragraph = ParagraphAt(y);
    LayoutOf(paragraph);
    // Laying out may show that another paragraph stands there.
    for (std::int32_t at = ParagraphAt(y); at != paragraph; at = ParagraphAt(y))
        LayoutOf(paragraph = at);
    const ParagraphLayout& layout = LayoutOf(paragraph);
    const Fine distance = y - TopOf(paragraph);
    const std::uint32_t index = LineNearest(layout, distance);
    const Line& line = layout.Lines()[index];
    const HitOffset hit = layout.OffsetAt(index, x);
    const Position start = Value().StartOf(paragraph);
    FlowHit found;
    found.caret = {start + static_cast<std::int32_t>(hit.offset), hit.side};
    found.character = found.caret.position;
    found.isInside = hit.isInside && distance >= line.top && distance < line.Bottom();
    if (found.isInside)
        found.character = start + CharacterAt(Value(), layout, index, x, static_cast<std::int32_t>(hit.offset));
    return found;
}

std::optional<FlowLine> DocumentFlow::LineAbove(FlowLine line)
{
    std::int32_t paragraph = line.paragraph;
    std::uint32_t end = line.line;
    while (true)
    {
        const auto lines = LayoutOf(paragraph).Lines();
        for (std::uint32_t at = end; at > 0; --at)
            if (lines[at - 1].height > 0)
                return FlowLine{paragraph, at - 1};
        const Fine top = TopOf(paragraph);
        if (top <= 0)
            return {};
        paragraph = ParagraphAt(top - 1);
        end = static_cast<std::uint32_t>(LayoutOf(paragraph).Lines().size());
    }
}

std::optional<FlowLine> DocumentFlow::LineBelow(FlowLine line)
{
    std::int32_t paragraph = line.paragraph;
    std::uint32_t begin = line.line + 1;
    while (true)
    {
        const auto lines = LayoutOf(paragraph).Lines();
        for (std::uint32_t at = begin; at < lines.size(); ++at)
            if (lines[at].height > 0)
                return FlowLine{paragraph, at};
        const Fine bottom = TopOf(paragraph + 1);
        if (bottom >= TopOf(Value().ParagraphCount()))
            return {};
        paragraph = ParagraphAt(bottom);
        begin = 0;
    }
}

Fine DocumentFlow::TopOf(FlowLine line)
{
    const Fine top = LineAt(line).top;
    return TopOf(line.paragraph) + top;
}

const Line& DocumentFlow::LineAt(FlowLine line) { return LayoutOf(line.paragraph).Lines()[line.line]; }

CaretPosition DocumentFlow::StartOf(FlowLine line)
{
    return {Value().StartOf(line.paragraph) + static_cast<std::int32_t>(LineAt(line).begin), LineSide::After};
}

CaretPosition DocumentFlow::EndOf(FlowLine line)
{
    const Line& at = LineAt(line);
    const Position end = Value().StartOf(line.paragraph) + static_cast<std::int32_t>(at.end);
    switch (at.ending)
    {
    case LineEnd::Wrapped:
        return {end, LineSide::Before};
    case LineEnd::Mark:
        return {end, LineSide::After};
    case LineEnd::Break:
    case LineEnd::Page:
    case LineEnd::Column:
        return {end - 1, LineSide::After};
    }
    return {end, LineSide::After};
}

CaretPosition DocumentFlow::NearestIn(FlowLine line, Fine x)
{
    const HitOffset hit = LayoutOf(line.paragraph).OffsetAt(line.line, x);
    return {Value().StartOf(line.paragraph) + static_cast<std::int32_t>(hit.offset), hit.side};
}

}  // namespace quillmarker
