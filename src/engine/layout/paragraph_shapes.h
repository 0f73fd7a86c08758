#pragma once

#include "object_size.h"
#include "paragraph_layout.h"
#include "run_font.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillmarker
{

enum class SegmentKind : std::uint8_t {
    Text,
    Tab,
    Break,    // a line, page or column break character
    Object,   // a picture or another object
    Hidden,   // takes no room, and no caret stops in it
    Control,  // takes no room
};

/// A stretch of a paragraph that is one thing in one font and one direction.
struct Segment
{
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    SegmentKind kind = SegmentKind::Text;
    std::uint8_t level = 0;  // of the bidirectional algorithm
    const CharFormat* format = nullptr;
    RunFont font;

    bool IsRightToLeft() const { return (level & 1) != 0; }
};

/// Text that went through the shaper.
struct ShapedPart
{
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    ShapedText shaped;
};

/// An object and its room.
struct MeasuredObject
{
    std::uint32_t offset = 0;
    Shared<InlineObject> object;
    ObjectSize size;
};

/// What of a paragraph does not depend on the width of lines.
struct ParagraphShapes
{
    ParagraphShapes(const Paragraph& paragraph, const FormatTable& formats, FontHost& fonts);

    /// The segment of a unit.
    const Segment& SegmentAt(std::uint32_t offset) const;
    /// The shaped part that begins at or before a unit and reaches over it; none when the unit was not shaped.
    const ShapedPart* PartAt(std::uint32_t offset) const;

    /// The text as it is shown: with capitals where the format asks for them. Offsets are the paragraph's.
    std::u16string_view Text() const { return shown.empty() ? source : std::u16string_view(shown); }
    /// The text as line breaking reads it: what is hidden clings to what stands before it.
    std::u16string_view BreakingText() const { return breaking.empty() ? source : std::u16string_view(breaking); }

    std::u16string_view source;
    std::u16string shown;
    std::u16string breaking;
    std::vector<Segment> segments;
    std::vector<ShapedPart> parts;
    std::vector<MeasuredObject> objects;
    std::vector<std::int32_t> advances;  // of each unit, in 1024ths of a twip; tabs have 0 until a line is made
    RunFont markFont;
    const CharFormat* markFormat = nullptr;
    bool isRightToLeft = false;      // of the paragraph
    bool hasMixedDirection = false;  // some segment has another level than 0

    RunFont numberFont;
    ShapedText number;
    Fine numberWidth = 0;

    void ShapeNumber(const Numbering& numbering, const std::u16string& text, FontHost& fonts);

private:
    class Builder;
};

}  // namespace quillmarker
