#include "paragraph_layout.h"

#include "line_maker.h"
#include "line_pieces.h"

#include <algorithm>
#include <limits>

namespace quillmarker
{
namespace
{

// How far a selected mark shows behind the text.
constexpr Fine kMarkWidth = 100 * kFinePerTwip;

// Lengths below 0 would place a paragraph over the one above it.
Fine NotNegative(Twips length) { return std::max<Fine>(ToFine(length), 0); }

Fine BorderRoom(const Border& border)
{
    return border.style == BorderStyle::None ? 0 : NotNegative(border.width) + NotNegative(border.space);
}

ParagraphEdges EdgesOf(const ParagraphFormat& format, const ParagraphContext& context)
{
    ParagraphEdges edges;
    edges.above = context.dropsSpaceBefore ? 0 : NotNegative(format.spaceBefore);
    edges.below = context.dropsSpaceAfter ? 0 : NotNegative(format.spaceAfter);
    if (!format.borders)
        return edges;
    const Borders& borders = *format.borders;
    if (!context.joinsAbove)
        edges.above += BorderRoom(borders[BorderSide::Top]);
    edges.below += BorderRoom(borders[context.joinsBelow ? BorderSide::Between : BorderSide::Bottom]);
    return edges;
}

bool TakesNoRoom(const std::vector<Line>& lines)
{
    return std::all_of(lines.begin(), lines.end(), [](const Line& line) { return line.height == 0; });
}

/// Text that shows between two others of the same segment.
bool IsCaretStop(const ParagraphShapes& shapes, const Piece& piece, std::uint32_t offset)
{
    if (piece.segment->kind == SegmentKind::Hidden)
        return false;
    if (piece.segment->kind != SegmentKind::Text || !piece.part)
        return true;
    return shapes.advances[offset] > 0 || offset == piece.part->begin;
}

}  // namespace

ParagraphLayout::ParagraphLayout(ParagraphRef paragraph, const FormatTable& formats, FontHost& fonts,
                                 ParagraphContext context)
    : m_paragraph(std::move(paragraph)), m_context(std::move(context)), m_format(&formats[m_paragraph->Ending().format])
{
    auto shapes = std::make_unique<ParagraphShapes>(*m_paragraph, formats, fonts);
    if (m_format->numbering && !m_context.number.empty())
        shapes->ShapeNumber(*m_format->numbering, m_context.number, fonts);
    const ParagraphEdges edges = EdgesOf(*m_format, m_context);
    m_lines = MakeLines(*m_paragraph, *shapes, *m_format, m_context, edges);
    m_shapes = std::move(shapes);
    if (TakesNoRoom(m_lines))
    {
        for (Line& line : m_lines)
            line.top = 0;
        return;
    }
    m_spaceBefore = edges.above;
    m_spaceAfter = edges.below;
    m_height = m_lines.back().Bottom() + edges.below;
    for (const Line& line : m_lines)
        m_extent = std::max(m_extent, line.left + line.width);
}

ParagraphLayout::~ParagraphLayout() = default;

Fine ParagraphLayout::SpaceBetween() const
{
    return m_height == 0 || m_context.dropsSpaceBefore ? 0 : NotNegative(m_format->spaceBefore);
}

std::uint32_t ParagraphLayout::LineOf(std::uint32_t offset, LineSide side) const
{
    const auto found = std::upper_bound(m_lines.begin(), m_lines.end(), offset,
                                        [](std::uint32_t at, const Line& line) { return at < line.end; });
    auto line = static_cast<std::uint32_t>(std::min(found - m_lines.begin(), std::ssize(m_lines) - 1));
    if (side == LineSide::Before && line > 0 && m_lines[line].begin == offset &&
        m_lines[line - 1].ending == LineEnd::Wrapped)
        --line;
    return line;
}

CaretPlace ParagraphLayout::CaretAt(std::uint32_t line, std::uint32_t offset) const
{
    const LinePieces pieces(*this, line);
    const Piece* last = nullptr;
    for (const Piece& piece : pieces.Pieces())
    {
        if (offset >= piece.begin && offset < piece.end)
            return {pieces.Edge(piece, offset), piece.IsRightToLeft()};
        if (!last || piece.end > last->end)
            last = &piece;
    }
    if (last && offset >= last->end)
        return {pieces.Edge(*last, last->end), last->IsRightToLeft()};
    return {m_lines[line].left, m_shapes->isRightToLeft};
}

HitOffset ParagraphLayout::OffsetAt(std::uint32_t line, Fine x) const
{
    const LinePieces pieces(*this, line);
    const Line& at = m_lines[line];
    const bool hasBreak = at.ending != LineEnd::Mark && at.ending != LineEnd::Wrapped;
    HitOffset hit{at.begin, LineSide::After, false};
    Fine nearest = std::numeric_limits<Fine>::max();
    std::uint32_t last = at.begin;
    const auto offer = [&](std::uint32_t offset, Fine edge) {
        if (const Fine distance = x < edge ? edge - x : x - edge; distance < nearest)
        {
            nearest = distance;
            hit.offset = offset;
        }
    };
    const Piece* final = nullptr;
    for (const Piece& piece : pieces.Pieces())
    {
        if (!final || piece.end > final->end)
            final = &piece;
        if (x >= piece.x && x < piece.x + piece.width && piece.segment->kind != SegmentKind::Break)
            hit.isInside = true;
        Fine before = 0;
        for (std::uint32_t offset = piece.begin; offset < piece.end; ++offset)
        {
            if (IsCaretStop(*m_shapes, piece, offset))
                offer(offset, piece.IsRightToLeft() ? piece.x + piece.width - before : piece.x + before);
            before += pieces.Advance(offset);
        }
        last = std::max(last, piece.end);
    }
    if (final && !hasBreak)
        offer(last, pieces.Edge(*final, final->end));
    hit.side = hit.offset == at.end && at.ending == LineEnd::Wrapped ? LineSide::Before : LineSide::After;
    return hit;
}

std::vector<LineSpan> ParagraphLayout::SpansOf(std::uint32_t line, std::uint32_t begin, std::uint32_t end) const
{
    const LinePieces pieces(*this, line);
    const Line& at = m_lines[line];
    std::vector<LineSpan> spans;
    const auto add = [&spans](LineSpan span) {
        if (span.left == span.right)
            return;
        if (!spans.empty() && spans.back().right == span.left)
            spans.back().right = span.right;
        else
            spans.push_back(span);
    };
    Fine textEnd = at.left;
    for (const Piece& piece : pieces.Pieces())
    {
        textEnd = std::max(textEnd, piece.x + piece.width);
        const std::uint32_t first = std::max(begin, piece.begin);
        const std::uint32_t last = std::min(end, piece.end);
        if (first >= last)
            continue;
        const Fine a = pieces.Edge(piece, first);
        const Fine b = pieces.Edge(piece, last);
        add({std::min(a, b), std::max(a, b)});
    }
    const bool hasBreak = at.ending != LineEnd::Mark && at.ending != LineEnd::Wrapped;
    const std::uint32_t markAt = hasBreak ? at.end - 1 : at.end;
    if (at.ending != LineEnd::Wrapped && begin <= markAt && end > markAt && at.height > 0)
        add(m_shapes->isRightToLeft && m_context.width.value > 0 ? LineSpan{at.left - kMarkWidth, at.left}
                                                                 : LineSpan{textEnd, textEnd + kMarkWidth});
    return spans;
}

std::size_t ParagraphLayout::Weight() const
{
    constexpr std::size_t kGlyph = sizeof(ShapedGlyph) + sizeof(std::int32_t);
    std::size_t weight = sizeof(*this) + sizeof(ParagraphShapes) + m_lines.size() * sizeof(Line);
    weight += m_shapes->segments.size() * sizeof(Segment) + m_shapes->advances.size() * sizeof(std::int32_t);
    for (const ShapedPart& part : m_shapes->parts)
        weight += sizeof(part) + part.shaped.glyphs.size() * kGlyph;
    return weight + (m_shapes->shown.size() + m_shapes->breaking.size()) * sizeof(char16_t);
}

}  // namespace quillmarker
