#include "paragraph_shapes.h"

#include "object_size.h"
#include "text_direction.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <limits>

namespace quillmarker
{
namespace
{

// A stretch that is longer than this goes to the shaper in pieces; words never are.
constexpr std::uint32_t kMostShaped = 512;

// What breaking reads instead of a hidden unit: a combining mark clings to what stands before it.
constexpr char16_t kClinging = u'\u0300';

constexpr char16_t kSoftHyphen = u'\u00AD';

SegmentKind KindOf(char16_t unit)
{
    switch (unit)
    {
    case u'\t':
        return SegmentKind::Tab;
    case kLineBreak:
    case kPageBreak:
    case kColumnBreak:
        return SegmentKind::Break;
    case kObjectCharacter:
        return SegmentKind::Object;
    default:
        return unit < u' ' || unit == kSoftHyphen ? SegmentKind::Control : SegmentKind::Text;
    }
}

/// Upper case of a unit where that is one unit too.
char16_t Capital(char16_t unit)
{
    const UChar32 upper = U16_IS_SURROGATE(unit) ? unit : u_toupper(unit);
    return upper <= 0xFFFF ? static_cast<char16_t>(upper) : unit;
}

std::int32_t Bounded(Fine advance)
{
    return static_cast<std::int32_t>(
        std::clamp<Fine>(advance, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

/// Fills Shapes: segments first, then advances.
class ParagraphShapes::Builder
{
public:
    Builder(ParagraphShapes& shapes, const Paragraph& paragraph, const FormatTable& formats, FontHost& fonts)
        : m_shapes(shapes), m_paragraph(paragraph), m_formats(formats), m_fonts(fonts)
    {
    }

    void Build()
    {
        const auto length = static_cast<std::uint32_t>(m_shapes.source.size());
        if (m_shapes.isRightToLeft || !IsPlainlyLeftToRight(m_shapes.source))
            m_levels = BidiLevels(m_shapes.source, m_shapes.isRightToLeft);
        m_shapes.advances.resize(length);
        std::uint32_t begin = 0;
        for (const Run& run : m_paragraph.Runs())
        {
            AddRun(begin, run.end, m_formats[run.format]);
            begin = run.end;
        }
    }

private:
    void AddRun(std::uint32_t begin, std::uint32_t end, const CharFormat& format)
    {
        if (format.hidden)
        {
            Cling(begin, end);
            AddSegment({begin, end, SegmentKind::Hidden, LevelAt(begin), &format, {}});
            return;
        }
        const RunFont font = RunFontOf(format, m_fonts);
        if (format.caps || format.smallCaps)
            Capitalise(begin, end);
        while (begin < end)
        {
            const std::uint32_t segmentEnd = EndOfSegment(begin, end, format);
            Segment segment{begin, segmentEnd, KindOf(m_shapes.source[begin]), LevelAt(begin), &format, font};
            if (IsSmall(begin, format))
                segment.font = WithSize(font, SmallCapsSize(font.size));
            AddSegment(segment);
            Measure(segment);
            begin = segmentEnd;
        }
    }

    std::uint32_t EndOfSegment(std::uint32_t begin, std::uint32_t end, const CharFormat& format) const
    {
        const SegmentKind kind = KindOf(m_shapes.source[begin]);
        const std::uint8_t level = LevelAt(begin);
        const bool isSmall = IsSmall(begin, format);
        std::uint32_t at = begin + 1;
        if (kind == SegmentKind::Tab || kind == SegmentKind::Break || kind == SegmentKind::Object)
            return at;
        while (at < end && KindOf(m_shapes.source[at]) == kind && LevelAt(at) == level &&
               IsSmall(at, format) == isSmall)
            ++at;
        return at;
    }

    bool IsSmall(std::uint32_t offset, const CharFormat& format) const
    {
        return format.smallCaps && !format.caps && Capital(m_shapes.source[offset]) != m_shapes.source[offset];
    }

    std::uint8_t LevelAt(std::uint32_t offset) const { return m_levels.empty() ? std::uint8_t{0} : m_levels[offset]; }

    void AddSegment(const Segment& segment)
    {
        m_shapes.hasMixedDirection = m_shapes.hasMixedDirection || segment.level != 0;
        m_shapes.segments.push_back(segment);
    }

    void Cling(std::uint32_t begin, std::uint32_t end)
    {
        if (m_shapes.breaking.empty())
            m_shapes.breaking = m_shapes.source;
        std::fill(m_shapes.breaking.begin() + begin, m_shapes.breaking.begin() + end, kClinging);
    }

    void Capitalise(std::uint32_t begin, std::uint32_t end)
    {
        if (m_shapes.shown.empty())
            m_shapes.shown = m_shapes.source;
        std::transform(m_shapes.shown.begin() + begin, m_shapes.shown.begin() + end, m_shapes.shown.begin() + begin,
                       Capital);
    }

    void Measure(const Segment& segment)
    {
        if (segment.kind == SegmentKind::Text)
            MeasureText(segment);
        else if (segment.kind == SegmentKind::Object)
            MeasureObject(segment.begin);
    }

    /// An object stands on the baseline.
    void MeasureObject(std::uint32_t offset)
    {
        const auto& placedObjects = m_paragraph.Extras().objects;
        auto placed = std::lower_bound(
            placedObjects.begin(), placedObjects.end(), offset,
            [](const PlacedObject& other, std::uint32_t at) { return static_cast<std::uint32_t>(other.offset) < at; });
        for (; placed != placedObjects.end() && static_cast<std::uint32_t>(placed->offset) == offset; ++placed)
        {
            const ObjectSize size = SizeOf(placed->object);
            m_shapes.advances[offset] = Bounded(size.width);
            m_shapes.objects.push_back({offset, placed->object, size});
            RunFont& font = m_shapes.segments.back().font;
            font.ascent = size.height;
            font.descent = 0;
            font.lineGap = 0;
        }
    }

    /// The advance in a segment: scaled, stretched, spaced.
    std::int32_t Scaled(std::int32_t advance, const Segment& segment) const
    {
        const FaceMetrics& metrics = segment.font.face->Metrics();
        Fine fine = ScaledUnits(advance, segment.font.size, std::int64_t{metrics.unitsPerEm} * kAdvancesPerUnit);
        if (segment.format->widthPercent != 0)
            fine = fine * segment.format->widthPercent / 100;
        return Bounded(std::max<Fine>(fine + ToFine(segment.format->spacing), 0));
    }

    void MeasureText(const Segment& segment)
    {
        const std::u16string_view text = m_shapes.Text();
        const bool isKerned = segment.format->kerning.value > 0 && segment.format->size >= segment.format->kerning;
        for (std::uint32_t at = segment.begin; at < segment.end;)
        {
            const SimpleGlyph simple = segment.font.face->Simple(text[at]);
            const bool isBlank = text[at] == u' ';
            if (simple.isSimple && (isBlank || (!isKerned && !segment.IsRightToLeft())))
            {
                m_shapes.advances[at] = Scaled(simple.advance, segment);
                ++at;
                continue;
            }
            at = ShapeWordAt(segment, at, text);
        }
    }

    /// Shapes the word around a unit, back to what was shaped before. The end of it.
    std::uint32_t ShapeWordAt(const Segment& segment, std::uint32_t at, std::u16string_view text)
    {
        const std::uint32_t least =
            m_shapes.parts.empty() ? segment.begin : std::max(segment.begin, m_shapes.parts.back().end);
        std::uint32_t begin = at;
        while (begin > least && text[begin - 1] != u' ' && at - begin < kMostShaped / 2)
            --begin;
        if (begin > least && U16_IS_TRAIL(text[begin]) && U16_IS_LEAD(text[begin - 1]))
            --begin;
        std::uint32_t end = at + 1;
        while (end < segment.end && text[end] != u' ' && end - begin < kMostShaped)
            ++end;
        if (end < segment.end && U16_IS_TRAIL(text[end]) && U16_IS_LEAD(text[end - 1]))
            ++end;
        const bool isKerned = segment.format->kerning.value > 0 && segment.format->size >= segment.format->kerning;
        ShapedPart part{
            begin, end,
            segment.font.face->Shape(text.substr(begin, end - begin),
                                     segment.IsRightToLeft() ? TextDirection::RightToLeft : TextDirection::LeftToRight,
                                     isKerned ? Kerning::On : Kerning::Off)};
        for (std::uint32_t unit = begin; unit < end; ++unit)
        {
            const std::int32_t advance = part.shaped.advances[unit - begin];
            m_shapes.advances[unit] = advance == 0 ? 0 : Scaled(advance, segment);
        }
        GrowForFallback(part.shaped);
        m_shapes.parts.push_back(std::move(part));
        return end;
    }

    /// A line is as tall as the faces that really show its text.
    void GrowForFallback(const ShapedText& shaped)
    {
        RunFont& font = m_shapes.segments.back().font;
        const std::int32_t unitsPerEm = font.face->Metrics().unitsPerEm;
        font.ascent = std::max(font.ascent, ScaledUnits(shaped.fallbackAscent, font.size, unitsPerEm));
        font.descent = std::max(font.descent, ScaledUnits(shaped.fallbackDescent, font.size, unitsPerEm));
    }

    ParagraphShapes& m_shapes;
    const Paragraph& m_paragraph;
    const FormatTable& m_formats;
    FontHost& m_fonts;
    std::vector<std::uint8_t> m_levels;
};

ParagraphShapes::ParagraphShapes(const Paragraph& paragraph, const FormatTable& formats, FontHost& fonts)
    : source(paragraph.Text()), isRightToLeft(formats[paragraph.Ending().format].rightToLeft)
{
    markFormat = &formats[paragraph.Ending().charFormat];
    markFont = RunFontOf(*markFormat, fonts);
    Builder(*this, paragraph, formats, fonts).Build();
}

const Segment& ParagraphShapes::SegmentAt(std::uint32_t offset) const
{
    return *std::upper_bound(segments.begin(), segments.end(), offset,
                             [](std::uint32_t at, const Segment& segment) { return at < segment.end; });
}

const ShapedPart* ParagraphShapes::PartAt(std::uint32_t offset) const
{
    const auto part = std::upper_bound(parts.begin(), parts.end(), offset,
                                       [](std::uint32_t at, const ShapedPart& other) { return at < other.end; });
    return part != parts.end() && part->begin <= offset ? &*part : nullptr;
}

void ParagraphShapes::ShapeNumber(const Numbering& numbering, const std::u16string& text, FontHost& fonts)
{
    CharFormat format = *markFormat;
    format.script = Script::None;
    format.offset = {};
    if (!numbering.font.IsEmpty())
    {
        format.font = numbering.font;
        format.charset = numbering.fontCharset;
        format.family = FontFamily::Nil;
    }
    else if (!text.empty() && text[0] >= u'\uF000' && text[0] <= u'\uF0FF')
    {
        // A sign of a symbol font whose name was lost.
        constexpr std::uint8_t kSymbolCharset = 2;
        format.font = Name(u"Symbol");
        format.charset = kSymbolCharset;
    }
    numberFont = RunFontOf(format, fonts);
    const TextDirection direction = isRightToLeft ? TextDirection::RightToLeft : TextDirection::LeftToRight;
    number = numberFont.face->Shape(text, direction, Kerning::Off);
    numberWidth = ScaledUnits(number.width, numberFont.size,
                              std::int64_t{numberFont.face->Metrics().unitsPerEm} * kAdvancesPerUnit);
}

}  // namespace quillmarker
