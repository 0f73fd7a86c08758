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

/// A line's caret shows in a line that has a height: in the nearest one of the paragraph, those above first.
std::uint32_t ShownLine(std::span<const Line> lines, std::uint32_t line)
{
    for (std::uint32_t above = line + 1; above > 0; --above)
        if (lines[above - 1].height > 0)
            return above - 1;
    for (std::uint32_t below = line + 1; below < lines.size(); ++below)
        if (lines[below].height > 0)
            return below;
    return line;
}

/// The caret at an offset of a line, moved out of hidden text and characters of several units. A line may begin inside
/// such a character: before a mark that stands on a blank.
CaretPosition CaretIn(const Document& document, const ParagraphLayout& layout, Position start, std::uint32_t line,
                      const HitOffset& hit)
{
    const auto offset = static_cast<std::int32_t>(hit.offset);
    const ParagraphStops stops(document, layout.Source());
    std::int32_t stop = stops.StopUpTo(offset);
    if (stop < static_cast<std::int32_t>(layout.Lines()[line].begin))
        stop = stops.StopFrom(offset);
    return {start + stop, stop == offset ? hit.side : LineSide::After};
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
    const ParagraphLayout& layout = LayoutOf(location.paragraph);
    const std::uint32_t line = layout.LineOf(OffsetOf(Value(), location), caret.side);
    return {location.paragraph, ShownLine(layout.Lines(), line)};
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
    found.caret = CaretIn(Value(), layout, start, index, hit);
    found.character = found.caret.position;
    found.isInside = hit.isInside && distance >= line.top && distance < line.Bottom();
    if (found.isInside)
        found.character = start + CharacterAt(Value(), layout, index, x, found.caret.position - start);
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
    const ParagraphLayout& layout = LayoutOf(line.paragraph);
    const HitOffset start{layout.Lines()[line.line].begin, LineSide::After};
    return CaretIn(Value(), layout, Value().StartOf(line.paragraph), line.line, start);
}

CaretPosition DocumentFlow::EndOf(FlowLine line)
{
    const ParagraphLayout& layout = LayoutOf(line.paragraph);
    const Line& at = layout.Lines()[line.line];
    HitOffset end{at.end, LineSide::After};
    if (at.ending == LineEnd::Wrapped)
        end.side = LineSide::Before;
    else if (at.ending != LineEnd::Mark)
        --end.offset;
    return CaretIn(Value(), layout, Value().StartOf(line.paragraph), line.line, end);
}

CaretPosition DocumentFlow::NearestIn(FlowLine line, Fine x)
{
    const ParagraphLayout& layout = LayoutOf(line.paragraph);
    return CaretIn(Value(), layout, Value().StartOf(line.paragraph), line.line, layout.OffsetAt(line.line, x));
}

}  // namespace quillmarker
