#include "line_pieces.h"

#include "text_direction.h"

#include <algorithm>

namespace quillmarker
{

LinePieces::LinePieces(const ParagraphLayout& layout, std::uint32_t line)
    : m_layout(layout),
      m_shapes(layout.Shapes()),
      m_line(layout.Lines()[line]),
      m_begin(m_line.begin),
      m_end(m_line.end),
      m_room(RoomOf(layout.Format(), layout.Context(), m_shapes, line == 0)),
      m_measure(Measure(m_shapes, m_room, m_begin, m_end, m_line.ending)),
      m_advances(m_shapes.advances.begin() + m_begin, m_shapes.advances.begin() + m_end)
{
    ResolveTabs();
    StretchBlanks();
    CutLogical();
    PlaceVisually();
}

void LinePieces::ResolveTabs()
{
    for (const ResolvedTab& tab : m_measure.tabs)
        m_advances[tab.offset - m_begin] = tab.width;
}

/// Justified lines share what is left of the room among their blanks behind the last tab. What ends with a break or with
/// the paragraph is left as it is, unless the text is distributed.
void LinePieces::StretchBlanks()
{
    const Alignment alignment = m_layout.Format().alignment;
    const bool isStretched =
        (alignment == Alignment::Justify && m_line.ending == LineEnd::Wrapped) || alignment == Alignment::Distribute;
    const Fine rest = m_room.limit - m_measure.end;
    if (!isStretched || m_room.limit <= 0 || rest <= 0)
        return;
    const std::uint32_t first = m_measure.tabs.empty() ? m_begin : m_measure.tabs.back().offset;
    std::vector<std::uint32_t> blanks;
    for (std::uint32_t at = first; at < m_measure.textEnd; ++at)
        if (m_shapes.source[at] == u' ' && m_advances[at - m_begin] > 0)
            blanks.push_back(at);
    const auto count = static_cast<Fine>(blanks.size());
    for (Fine i = 0; i < count; ++i)
        m_advances[blanks[static_cast<std::size_t>(i)] - m_begin] += rest * (i + 1) / count - rest * i / count;
}

void LinePieces::AddPiece(Piece piece)
{
    for (std::uint32_t at = piece.begin; at < piece.end; ++at)
        piece.width += Advance(at);
    m_pieces.push_back(piece);
}

/// Text is cut where what was shaped begins and ends, and into words and blanks where it runs from right to left.
void LinePieces::CutText(const Segment& segment, std::uint32_t begin, std::uint32_t end)
{
    while (begin < end)
    {
        Piece piece{
            .begin = begin, .end = end, .segment = &segment, .part = m_shapes.PartAt(begin), .level = segment.level};
        if (piece.part)
        {
            piece.end = std::min(end, piece.part->end);
        }
        else
        {
            const auto next =
                std::upper_bound(m_shapes.parts.begin(), m_shapes.parts.end(), begin,
                                 [](std::uint32_t at, const ShapedPart& part) { return at < part.begin; });
            if (next != m_shapes.parts.end())
                piece.end = std::min(end, next->begin);
        }
        // The blanks at a line's end go in the paragraph's own direction.
        if (begin >= m_measure.textEnd)
            piece.level = m_shapes.isRightToLeft ? 1 : 0;
        else
            piece.end = std::min(piece.end, std::max(m_measure.textEnd, begin + 1));
        begin = piece.end;
        AddPiece(piece);
    }
}

void LinePieces::CutLogical()
{
    const auto& segments = m_shapes.segments;
    auto segment = std::upper_bound(segments.begin(), segments.end(), m_begin,
                                    [](std::uint32_t at, const Segment& other) { return at < other.end; });
    auto tab = m_measure.tabs.begin();
    for (; segment != segments.end() && segment->begin < m_end; ++segment)
    {
        const std::uint32_t begin = std::max(segment->begin, m_begin);
        const std::uint32_t end = std::min(segment->end, m_end);
        if (segment->kind == SegmentKind::Text)
        {
            CutText(*segment, begin, end);
            continue;
        }
        Piece piece{.begin = begin, .end = end, .segment = &*segment, .level = segment->level};
        if (segment->kind == SegmentKind::Tab && tab != m_measure.tabs.end())
            piece.leader = tab++->leader;
        if (m_measure.endsWithHyphen && end == m_end && segment->kind == SegmentKind::Control)
        {
            piece.isHyphen = true;
            m_advances[end - 1 - m_begin] = m_measure.hyphen;
        }
        AddPiece(piece);
    }
}

void LinePieces::PlaceVisually()
{
    if (m_shapes.hasMixedDirection)
    {
        std::vector<std::uint8_t> levels;
        levels.reserve(m_pieces.size());
        for (const Piece& piece : m_pieces)
            levels.push_back(piece.level);
        std::vector<Piece> ordered;
        ordered.reserve(m_pieces.size());
        for (const std::int32_t index : VisualOrder(levels))
            ordered.push_back(m_pieces[static_cast<std::size_t>(index)]);
        m_pieces = std::move(ordered);
    }
    // Blanks that hang over the end hang over on the left where the paragraph runs from right to left.
    Fine x = m_line.left - (m_shapes.isRightToLeft ? m_measure.trailing : 0);
    Fine stretched = 0;
    for (std::uint32_t at = m_begin; at < m_measure.textEnd; ++at)
        stretched += Advance(at);
    if (m_shapes.isRightToLeft)
        x -= std::max<Fine>(stretched - m_line.width, 0);
    for (Piece& piece : m_pieces)
    {
        piece.x = x;
        x += piece.width;
    }
}

Fine LinePieces::Edge(const Piece& piece, std::uint32_t offset) const
{
    Fine before = 0;
    for (std::uint32_t at = piece.begin; at < std::min(offset, piece.end); ++at)
        before += Advance(at);
    return piece.IsRightToLeft() ? piece.x + piece.width - before : piece.x + before;
}

}  // namespace quillmarker
