#pragma once

#include "display_list.h"
#include "fine.h"
#include "font_host.h"

#include <quillmarker/document.h>
#include <quillmarker/pages/export.h>
#include <quillmarker/paragraph.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace quillmarker
{

struct ParagraphShapes;  // the runs, their faces, and what was shaped

/// What lies outside a paragraph and shapes its lines. A layout is valid as long as its paragraph and this are the same.
struct ParagraphContext
{
    Twips width;  // from the left edge, where indents count from, to the right margin; 0: lines are never wrapped
    Twips defaultTab = kDefaultTab;
    std::u16string number;  // the number or bullet in front
    // The neighbour has the same borders: no line and no room between the two, but for a line of the kind "between".
    bool joinsAbove = false;
    bool joinsBelow = false;
    // Contextual spacing beside a neighbour of the same style.
    bool dropsSpaceBefore = false;
    bool dropsSpaceAfter = false;

    bool operator==(const ParagraphContext&) const = default;
};

/// Which of two lines a place between them belongs to: the end of the one or the start of the next.
enum class LineSide : bool { Before, After };

enum class LineEnd : std::uint8_t {
    Wrapped,
    Break,   // a line break character (\line)
    Page,    // a page break character (\page)
    Column,  // a column break character (\column)
    Mark,    // the end of the paragraph
};

/// A line of a paragraph. Lengths are in 1024ths of a twip, from the paragraph's upper left corner.
struct Line
{
    std::uint32_t begin = 0;  // units of the paragraph's text; a break character belongs to the line it ends
    std::uint32_t end = 0;
    LineEnd ending = LineEnd::Mark;
    Fine top = 0;  // the space before the paragraph is above the first line's
    Fine height = 0;
    Fine baseline = 0;  // from the line's top
    Fine textTop = 0;   // where carets and selections begin, from the line's top: below extra line spacing
    Fine textHeight = 0;
    Fine left = 0;   // of what is shown, alignment respected
    Fine width = 0;  // of what is shown, without blanks at its end

    Fine Bottom() const { return top + height; }
    bool operator==(const Line&) const = default;
};

/// Where a caret stands in a line.
struct CaretPlace
{
    Fine x = 0;
    bool rightToLeft = false;  // of the text the caret belongs to
};

struct HitOffset
{
    std::uint32_t offset = 0;
    LineSide side = LineSide::After;
    bool isInside = false;  // the point is on the character, not beside the line
};

/// A stretch of a line, from left to right.
struct LineSpan
{
    Fine left = 0;
    Fine right = 0;

    bool operator==(const LineSpan&) const = default;
};

/// Whether the paragraphs with which one shares a frame are drawn beside it: at the ends of a page they are not.
struct FrameNeighbours
{
    bool above = true;
    bool below = true;
};

/// The lines of one paragraph in one context. Immutable; holds the paragraph. Offsets are units of the paragraph's
/// text; its length stands for the mark. The font host and the table of formats must outlive it.
class QUILLMARKER_PAGES_EXPORT ParagraphLayout
{
public:
    ParagraphLayout(ParagraphRef paragraph, const FormatTable& formats, FontHost& fonts, ParagraphContext context);
    ~ParagraphLayout();
    ParagraphLayout(const ParagraphLayout&) = delete;
    ParagraphLayout& operator=(const ParagraphLayout&) = delete;

    const Paragraph& Source() const { return *m_paragraph; }
    const ParagraphContext& Context() const { return m_context; }
    const ParagraphFormat& Format() const { return *m_format; }

    /// At least one line, from top to bottom. A paragraph that takes no room (hidden with its mark, or the mark of a
    /// table row) has lines of height 0.
    std::span<const Line> Lines() const { return m_lines; }
    Fine SpaceBefore() const { return m_spaceBefore; }
    Fine SpaceAfter() const { return m_spaceAfter; }
    /// Of the space before, what keeps the paragraph from the one above: without the border and its room.
    Fine SpaceBetween() const;
    /// With the space before and after.
    Fine Height() const { return m_height; }
    /// The right end of the widest line.
    Fine Extent() const { return m_extent; }

    /// The line to which a caret at `offset` belongs; `side` decides at a place between two lines.
    std::uint32_t LineOf(std::uint32_t offset, LineSide side = LineSide::After) const;

    CaretPlace CaretAt(std::uint32_t line, std::uint32_t offset) const;

    /// The caret place nearest to `x` in a line; never inside a character of several units, nor in hidden text.
    HitOffset OffsetAt(std::uint32_t line, Fine x) const;

    /// Where the characters from `begin` to `end` stand in a line; several stretches in text of mixed direction. A
    /// selected mark shows as a short stretch behind the text.
    std::vector<LineSpan> SpansOf(std::uint32_t line, std::uint32_t begin, std::uint32_t end) const;

    /// Adds what lies behind the text of the lines `first` up to, not including, `last`: shading, borders,
    /// highlights. `origin` is the paragraph's corner in the list, in twips. A frame goes on to its neighbours through
    /// the space between them.
    void DrawBackground(DisplayList& list, QPointF origin, std::uint32_t first, std::uint32_t last,
                        FrameNeighbours neighbours = {}) const;

    /// Adds the text itself: numbers, glyphs, lines under and through them, leaders, pictures, links.
    void DrawText(DisplayList& list, QPointF origin, std::uint32_t first, std::uint32_t last) const;

    const ParagraphShapes& Shapes() const { return *m_shapes; }

    /// What the layout costs to keep, about, in bytes.
    std::size_t Weight() const;

private:
    ParagraphRef m_paragraph;
    ParagraphContext m_context;
    const ParagraphFormat* m_format;
    std::vector<Line> m_lines;
    Fine m_spaceBefore = 0;
    Fine m_spaceAfter = 0;
    Fine m_height = 0;
    Fine m_extent = 0;
    std::unique_ptr<const ParagraphShapes> m_shapes;
};

}  // namespace quillmarker
