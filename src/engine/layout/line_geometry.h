#pragma once

#include "paragraph_shapes.h"
#include "tab_walk.h"

#include <optional>

namespace quillmarker
{

/// The room of a line, from the paragraph's starting edge: the left one, or the right one of a paragraph that runs from
/// right to left.
struct LineRoom
{
    Fine start = 0;     // where its text begins
    Fine numberAt = 0;  // where the number in front begins, in the first line
    Fine limit = 0;     // where it ends; 0: nowhere
    TabRuler tabs;
};

LineRoom RoomOf(const ParagraphFormat& format, const ParagraphContext& context, const ParagraphShapes& shapes,
                bool isFirstLine);

/// How far the units of a line reach.
struct LineMeasure
{
    std::vector<ResolvedTab> tabs;
    Fine end = 0;                 // from the starting edge, blanks at the line's end not counted
    Fine trailing = 0;            // the width of these blanks
    std::uint32_t textEnd = 0;    // where these blanks (and the break) begin
    bool endsWithHyphen = false;  // a soft hyphen is shown at the end
    Fine hyphen = 0;              // its width, part of `end`
};

LineMeasure Measure(const ParagraphShapes& shapes, const LineRoom& room, std::uint32_t begin, std::uint32_t end,
                    LineEnd ending);

/// The width of the hyphen that a soft hyphen shows at a line's end.
Fine HyphenWidth(const Segment& segment);

}  // namespace quillmarker
