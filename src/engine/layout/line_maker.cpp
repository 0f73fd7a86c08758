#include "line_maker.h"

#include "line_breaks.h"
#include "line_geometry.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

constexpr char16_t kSoftHyphen = u'\u00AD';

LineEnd EndingOf(char16_t unit)
{
    if (unit == kPageBreak)
        return LineEnd::Page;
    return unit == kColumnBreak ? LineEnd::Column : LineEnd::Break;
}

class LineMaker
{
public:
    LineMaker(const Paragraph& paragraph, const ParagraphShapes& shapes, const ParagraphFormat& format,
              const ParagraphContext& context, const ParagraphEdges& edges)
        : m_paragraph(paragraph),
          m_shapes(shapes),
          m_format(format),
          m_context(context),
          m_top(edges.above),
          m_breaks(shapes.BreakingText(), shapes.markFormat->language)
    {
    }

    std::vector<Line> Make()
    {
        const auto length = static_cast<std::uint32_t>(m_shapes.source.size());
        std::uint32_t begin = 0;
        do
        {
            m_room = RoomOf(m_format, m_context, m_shapes, m_lines.empty());
            const Line line = NextLine(begin);
            Place(line);
            begin = line.end;
            // Behind a break character stands one line more, even when only the mark is left for it.
        } while (begin < length ||
                 (m_lines.back().ending != LineEnd::Mark && m_lines.back().ending != LineEnd::Wrapped));
        return std::move(m_lines);
    }

private:
    /// The line that begins at `begin`, without its place.
    Line NextLine(std::uint32_t begin)
    {
        TabWalk walk(m_room.tabs, m_room.start);
        for (auto segment = SegmentFrom(begin); segment != m_shapes.segments.end(); ++segment)
        {
            const std::uint32_t first = std::max(begin, segment->begin);
            switch (segment->kind)
            {
            case SegmentKind::Break:
                return {.begin = begin, .end = segment->end, .ending = EndingOf(m_shapes.source[segment->begin])};
            case SegmentKind::Tab:
                if (IsFullWithTab(walk, first) && first > FirstShown(begin, first))
                    return {.begin = begin, .end = first, .ending = LineEnd::Wrapped};
                break;
            case SegmentKind::Hidden:
                break;
            default:
                if (const std::uint32_t full = FirstBeyond(walk, first, segment->end); full < segment->end)
                    return WrappedLine(begin, BreakBefore(full, begin));
            }
        }
        return WrappedLine(begin, static_cast<std::uint32_t>(m_shapes.source.size()));
    }

    /// A line that reaches to the text's end is the last one, also when it does not fit.
    Line WrappedLine(std::uint32_t begin, std::uint32_t end) const
    {
        return {.begin = begin, .end = end, .ending = end == m_shapes.source.size() ? LineEnd::Mark : LineEnd::Wrapped};
    }

    std::vector<Segment>::const_iterator SegmentFrom(std::uint32_t offset) const
    {
        return std::upper_bound(m_shapes.segments.begin(), m_shapes.segments.end(), offset,
                                [](std::uint32_t at, const Segment& segment) { return at < segment.end; });
    }

    /// A tab reaches beyond the margin only when no stop is left before it.
    bool IsFull(const TabWalk& walk) const { return m_room.limit > 0 && walk.X() > m_room.limit; }

    /// A tab at the margin or behind it would take no room.
    bool IsFullWithTab(TabWalk& walk, std::uint32_t offset) const
    {
        const bool isAtMargin = m_room.limit > 0 && walk.X() >= m_room.limit;
        walk.AddTab(offset);
        return isAtMargin || IsFull(walk);
    }

    /// The first unit of a stretch that reaches beyond the margin; blanks may.
    std::uint32_t FirstBeyond(TabWalk& walk, std::uint32_t begin, std::uint32_t end) const
    {
        for (std::uint32_t at = begin; at < end; ++at)
        {
            walk.Add(m_shapes.source[at], m_shapes.advances[at]);
            if (IsFull(walk) && m_shapes.source[at] != u' ' && m_shapes.source[at] != u'\u3000')
                return at;
        }
        return end;
    }

    /// Where the line that begins at `begin` is broken, when the unit at `full` does not fit. Always takes something.
    std::uint32_t BreakBefore(std::uint32_t full, std::uint32_t begin)
    {
        // To look for room measures the line: after so many hyphens without any, no other is tried.
        constexpr int kMostTries = 32;
        int tries = 0;
        std::uint32_t at = m_breaks.LastUpTo(full, begin);
        while (at > begin && m_shapes.source[at - 1] == kSoftHyphen &&
               (++tries > kMostTries || !HasRoomForHyphen(begin, at)))
            at = m_breaks.LastUpTo(at - 1, begin);
        if (at > begin)
            return at;
        const std::uint32_t first = FirstShown(begin, full);
        return WithBlanks(std::max(m_breaks.LastCharacterUpTo(full, first), first + 1));
    }

    /// A line of hidden text alone would be none.
    std::uint32_t FirstShown(std::uint32_t begin, std::uint32_t full) const
    {
        for (auto segment = SegmentFrom(begin); segment != m_shapes.segments.end(); ++segment)
            if (segment->kind != SegmentKind::Hidden)
                return std::min(std::max(begin, segment->begin), full);
        return begin;
    }

    /// A word that is longer than a line takes the blanks behind it along.
    std::uint32_t WithBlanks(std::uint32_t end) const
    {
        while (end < m_shapes.source.size() && m_shapes.source[end] == u' ')
            ++end;
        return end;
    }

    bool HasRoomForHyphen(std::uint32_t begin, std::uint32_t end) const
    {
        return Measure(m_shapes, m_room, begin, end, LineEnd::Wrapped).end <= m_room.limit;
    }

    void Place(Line line)
    {
        const LineMeasure measure = Measure(m_shapes, m_room, line.begin, line.end, line.ending);
        line.width = std::max<Fine>(measure.end - m_room.start, 0);
        line.left = LeftOf(line, measure);
        SetHeight(line);
        line.top = m_top;
        m_top += line.height;
        m_lines.push_back(line);
    }

    /// The left end of what a line shows, as its paragraph is aligned. Where text runs from right to left, blanks at the
    /// line's end stand on the left of it.
    Fine LeftOf(const Line& line, const LineMeasure& measure) const
    {
        if (m_room.limit <= 0)
            return m_room.start + (m_shapes.isRightToLeft ? measure.trailing : 0);
        const bool isMirrored = m_shapes.isRightToLeft;
        const Fine full = ToFine(m_context.width);
        const Fine left = isMirrored ? full - m_room.limit : m_room.start;
        const Fine right = isMirrored ? full - m_room.start : m_room.limit;
        switch (m_format.alignment)
        {
        case Alignment::Centre:
            return left + std::max<Fine>(right - left - line.width, 0) / 2;
        case Alignment::Right:
            return std::max(right - line.width, isMirrored ? right - line.width : left);
        default:
            // "Left" means where lines begin, as with the indents of first lines: on the right in a paragraph that runs from
            // right to left.
            return isMirrored ? right - line.width : left;
        }
    }

    void SetHeight(Line& line) const
    {
        Fine ascent = 0;
        Fine descent = 0;
        Fine gap = 0;
        bool isEmpty = true;
        const auto grow = [&](const RunFont& font) {
            ascent = std::max(ascent, font.ascent + font.raise);
            descent = std::max(descent, font.descent - font.raise);
            gap = std::max(gap, font.lineGap);
            isEmpty = false;
        };
        for (auto segment = SegmentFrom(line.begin); segment != m_shapes.segments.end() && segment->begin < line.end;
             ++segment)
        {
            if (segment->kind != SegmentKind::Hidden)
                grow(segment->font);
        }
        if (line.begin == 0 && m_shapes.numberWidth > 0)
            grow(m_shapes.numberFont);
        const bool isLast = line.ending == LineEnd::Mark;
        if (isLast && m_paragraph.Ending().kind != Mark::Row && !m_shapes.markFormat->hidden)
            grow(m_shapes.markFont);
        if (isEmpty)
            return;  // takes no room
        Space(line, ascent, descent, gap);
    }

    /// The line's height by the paragraph's line spacing. What is more than the text needs stands above it, but for a
    /// multiple, whose rest stands below, so that first lines keep their place.
    void Space(Line& line, Fine ascent, Fine descent, Fine gap) const
    {
        constexpr Fine kWholeLine = 240;
        const Fine natural = ascent + descent + gap;
        const Fine amount = m_format.lineSpacing.amount;
        line.height = natural;
        line.baseline = ascent;
        switch (m_format.lineSpacing.rule)
        {
        case LineRule::Single:
            break;
        case LineRule::AtLeast:
            line.height = std::max(natural, amount * kFinePerTwip);
            line.baseline += line.height - natural;
            break;
        case LineRule::Exactly:
            line.height = std::max(amount * kFinePerTwip, kFinePerTwip);
            line.baseline += line.height - natural;
            break;
        case LineRule::Multiple:
            line.height = std::max(natural * amount / kWholeLine, kFinePerTwip);
            line.baseline += std::min<Fine>(line.height - natural, 0);
            break;
        }
        line.textTop = line.baseline - ascent;
        line.textHeight = ascent + descent;
    }

    const Paragraph& m_paragraph;
    const ParagraphShapes& m_shapes;
    const ParagraphFormat& m_format;
    const ParagraphContext& m_context;
    Fine m_top;
    LineBreaks m_breaks;
    LineRoom m_room;
    std::vector<Line> m_lines;
};

}  // namespace

std::vector<Line> MakeLines(const Paragraph& paragraph, const ParagraphShapes& shapes, const ParagraphFormat& format,
                            const ParagraphContext& context, const ParagraphEdges& edges)
{
    return LineMaker(paragraph, shapes, format, context, edges).Make();
}

}  // namespace quillmarker
