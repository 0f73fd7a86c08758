#include "line_geometry.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

constexpr char16_t kSoftHyphen = u'\u00AD';

/// The separator of a decimal tab: a point where the language is known to write one, a comma where it is known to be
/// another, else either.
char16_t DecimalSeparator(std::uint16_t language)
{
    constexpr std::uint16_t kPrimary = 0x3FF;
    switch (language & kPrimary)
    {
    case 0:
        return 0;
    case 0x04:  // Chinese
    case 0x09:  // English
    case 0x0D:  // Hebrew
    case 0x11:  // Japanese
    case 0x12:  // Korean
    case 0x1E:  // Thai
        return u'.';
    default:
        return u',';
    }
}

/// Behind the number in front of a paragraph: the next stop, a blank's width, or nothing.
Fine BehindNumber(const Numbering& numbering, const ParagraphShapes& shapes, const LineRoom& room, Fine at)
{
    constexpr std::uint8_t kFollowedBySpace = 1;
    constexpr std::uint8_t kFollowedByNothing = 2;
    const Fine end = at + shapes.numberWidth;
    if (numbering.follow == kFollowedByNothing)
        return end;
    const RunFont& font = shapes.numberFont;
    const Fine blank = ScaledUnits(font.face->Simple(u' ').advance, font.size,
                                   std::int64_t{font.face->Metrics().unitsPerEm} * kAdvancesPerUnit);
    if (numbering.follow == kFollowedBySpace)
        return end + blank;
    if (room.tabs.hanging > end)
        return room.tabs.hanging;
    if (numbering.indent.value > 0 && at + ToFine(numbering.indent) > end)
        return at + ToFine(numbering.indent);
    if (numbering.indent.value > 0 || numbering.hanging)
        return end + blank;
    TabWalk walk(room.tabs, end);
    walk.AddTab(0);
    return walk.X();
}

Fine AlignedNumber(const Numbering& numbering, Fine at, Fine width)
{
    constexpr std::uint8_t kCentred = 1;
    constexpr std::uint8_t kRight = 2;
    if (numbering.align == kCentred)
        return at - width / 2;
    return numbering.align == kRight ? at - width : at;
}

bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\u3000'; }

}  // namespace

LineRoom RoomOf(const ParagraphFormat& format, const ParagraphContext& context, const ParagraphShapes& shapes,
                bool isFirstLine)
{
    // Indents are physical: the left one is on the left in either direction; only the first line's is at its start.
    const bool isMirrored = shapes.isRightToLeft && context.width.value > 0;
    const Fine startIndent = ToFine(isMirrored ? format.rightIndent : format.leftIndent);
    const Fine endIndent = ToFine(isMirrored ? format.leftIndent : format.rightIndent);
    LineRoom room;
    room.limit = context.width.value > 0 ? std::max<Fine>(ToFine(context.width) - endIndent, kFinePerTwip) : 0;
    room.start = startIndent + (isFirstLine ? ToFine(format.firstIndent) : 0);
    if (format.tabs)
        room.tabs.stops = *format.tabs;
    room.tabs.hanging = format.firstIndent.value < 0 ? startIndent : 0;
    room.tabs.interval = ToFine(context.defaultTab);
    room.tabs.limit = room.limit;
    room.tabs.decimal = DecimalSeparator(shapes.markFormat->language);
    room.numberAt = room.start;
    if (isFirstLine && format.numbering && !context.number.empty())
    {
        room.start = BehindNumber(*format.numbering, shapes, room, room.numberAt);
        room.numberAt = AlignedNumber(*format.numbering, room.numberAt, shapes.numberWidth);
    }
    return room;
}

Fine HyphenWidth(const Segment& segment)
{
    const SimpleGlyph hyphen = segment.font.face->Simple(u'-');
    return ScaledUnits(hyphen.advance, segment.font.size,
                       std::int64_t{segment.font.face->Metrics().unitsPerEm} * kAdvancesPerUnit);
}

LineMeasure Measure(const ParagraphShapes& shapes, const LineRoom& room, std::uint32_t begin, std::uint32_t end,
                    LineEnd ending)
{
    const bool hasBreak = ending == LineEnd::Break || ending == LineEnd::Page || ending == LineEnd::Column;
    LineMeasure measure;
    measure.textEnd = hasBreak ? end - 1 : end;
    while (measure.textEnd > begin)
    {
        const std::uint32_t last = measure.textEnd - 1;
        if (IsBlank(shapes.source[last]))
            measure.trailing += shapes.advances[--measure.textEnd];
        else if (const Segment& segment = shapes.SegmentAt(last); segment.kind == SegmentKind::Hidden)
            measure.textEnd = std::max(begin, segment.begin);
        else
            break;
    }
    TabWalk walk(room.tabs, room.start);
    for (std::uint32_t at = begin; at < measure.textEnd; ++at)
    {
        if (shapes.source[at] == u'\t' && shapes.SegmentAt(at).kind == SegmentKind::Tab)
            walk.AddTab(at);
        else
            walk.Add(shapes.source[at], shapes.advances[at]);
    }
    measure.endsWithHyphen = ending == LineEnd::Wrapped && end > begin && shapes.source[end - 1] == kSoftHyphen &&
                             shapes.SegmentAt(end - 1).kind == SegmentKind::Control;
    if (measure.endsWithHyphen)
        measure.hyphen = HyphenWidth(shapes.SegmentAt(end - 1));
    measure.tabs = walk.Tabs();
    measure.end = walk.X() + measure.hyphen;
    return measure;
}

}  // namespace quillmarker
