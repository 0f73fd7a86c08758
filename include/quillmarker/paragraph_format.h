#pragma once

#include <quillmarker/char_format.h>
#include <quillmarker/shared_value.h>
#include <quillmarker/twips.h>

#include <array>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

namespace quillmarker
{

enum class Alignment : std::uint8_t { Left, Right, Centre, Justify, Distribute };

enum class LineRule : std::uint8_t { Single, AtLeast, Exactly, Multiple };

/// Distance of lines. `amount` is twips for AtLeast and Exactly, and 240ths of a line for Multiple (360 is one and a
/// half lines), as RTF counts.
struct LineSpacing
{
    LineRule rule = LineRule::Single;
    std::int32_t amount = 0;

    bool operator==(const LineSpacing&) const = default;
};

enum class TabKind : std::uint8_t { Left, Right, Centre, Decimal, Bar };
enum class TabLeader : std::uint8_t { None, Dots, MiddleDots, Hyphens, Underline, Thick, Equals };

struct TabStop
{
    Twips position;
    TabKind kind = TabKind::Left;
    TabLeader leader = TabLeader::None;

    bool operator==(const TabStop&) const = default;
};

/// As many stops as a paragraph keeps; further ones are dropped.
constexpr std::size_t kMaxTabStops = 64;

enum class NumberKind : std::uint8_t {
    None,
    Bullet,
    Decimal,
    LowerLetter,
    UpperLetter,
    LowerRoman,
    UpperRoman,
    Ordinal,
    CardinalText,
    OrdinalText
};

/// A bullet or a number in front of a paragraph.
struct Numbering
{
    NumberKind kind = NumberKind::Bullet;
    std::int32_t start = 1;
    std::int32_t level = 0;  // 0 is the outermost
    std::int32_t list = 0;   // the list (\ls) the paragraph belongs to; 0: it continues what stands before it
    Twips indent;            // from the number's edge to the text; 0 leaves it to the paragraph's indents
    std::u16string text;     // what is shown; the characters U+0000 to U+0008 stand for the numbers of these levels
    Name font;               // of the number or bullet; empty: as the paragraph's mark
    std::uint8_t fontCharset = 0;
    bool hanging = false;     // the number hangs in the margin of the text (\pnhang)
    std::uint8_t align = 0;   // 0 left, 1 centred, 2 right
    std::uint8_t follow = 0;  // 0 a tab, 1 a space, 2 nothing

    bool operator==(const Numbering&) const = default;
};

/// As much of a number's text as is kept.
constexpr std::size_t kMaxNumberText = 32;

enum class BorderStyle : std::uint8_t {
    None,
    Single,
    Thick,
    Double,
    Dotted,
    Dashed,
    Hairline,
    DashSmall,
    DotDash,
    DotDotDash,
    Triple,
    Shadow,
    Wavy,
    DoubleWavy,
    Striped,
    Emboss,
    Engrave,
    Inset,
    Outset
};

struct Border
{
    BorderStyle style = BorderStyle::None;
    Twips width;
    Twips space;
    Colour colour;

    bool operator==(const Border&) const = default;
};

enum class BorderSide : std::uint8_t { Top, Left, Bottom, Right, Between, Bar };

/// Borders by side; a row uses Between and Bar for its inner horizontal and vertical lines.
struct Borders
{
    std::array<Border, 6> sides{};

    Border& operator[](BorderSide side) { return sides[static_cast<std::size_t>(side)]; }
    const Border& operator[](BorderSide side) const { return sides[static_cast<std::size_t>(side)]; }
    bool operator==(const Borders&) const = default;
};

/// A background: `hundredths` of a per cent of `foreground` over `fill`.
struct Shading
{
    Colour fill;
    Colour foreground;
    std::int32_t hundredths = 0;

    bool operator==(const Shading&) const = default;
};

/// The format of a paragraph, carried by its mark; full and partial as for characters.
template <template <class> class Wrap>
struct ParagraphFields
{
    Wrap<Alignment> alignment{};
    Wrap<Twips> firstIndent{};  // of the first line, relative to leftIndent (\fi)
    Wrap<Twips> leftIndent{};   // of all lines (\li); may be negative
    Wrap<Twips> rightIndent{};
    Wrap<Twips> spaceBefore{};
    Wrap<Twips> spaceAfter{};
    Wrap<LineSpacing> lineSpacing{};
    Wrap<Shared<std::vector<TabStop>>> tabs{};  // ascending; empty when there are none
    Wrap<Shared<Numbering>> numbering{};
    Wrap<bool> keepLines{};
    Wrap<bool> keepWithNext{};
    Wrap<bool> pageBreakBefore{};
    Wrap<bool> widowControl{};
    Wrap<bool> contextualSpacing{};
    Wrap<bool> noHyphenation{};
    Wrap<bool> rightToLeft{};
    Wrap<Shared<Borders>> borders{};
    Wrap<Shared<Shading>> shading{};
    Wrap<std::uint8_t> outlineLevel{};  // 0 body text, 1 to 9 a heading's level
    Wrap<Name> style{};
    Wrap<Shared<std::string>> kept{};  // control words that are not shown but saved again (frames)

    bool operator==(const ParagraphFields&) const = default;
};

using ParagraphFormat = ParagraphFields<Stated>;
using PartialParagraphFormat = ParagraphFields<std::optional>;

/// Every field of a paragraph format, once, in the order of a dump.
inline constexpr auto kParagraphFields = std::tuple{
    FormatField{"align", &ParagraphFormat::alignment, &PartialParagraphFormat::alignment},
    FormatField{"first", &ParagraphFormat::firstIndent, &PartialParagraphFormat::firstIndent},
    FormatField{"left", &ParagraphFormat::leftIndent, &PartialParagraphFormat::leftIndent},
    FormatField{"right", &ParagraphFormat::rightIndent, &PartialParagraphFormat::rightIndent},
    FormatField{"before", &ParagraphFormat::spaceBefore, &PartialParagraphFormat::spaceBefore},
    FormatField{"after", &ParagraphFormat::spaceAfter, &PartialParagraphFormat::spaceAfter},
    FormatField{"line", &ParagraphFormat::lineSpacing, &PartialParagraphFormat::lineSpacing},
    FormatField{"tabs", &ParagraphFormat::tabs, &PartialParagraphFormat::tabs},
    FormatField{"numbering", &ParagraphFormat::numbering, &PartialParagraphFormat::numbering},
    FormatField{"keep-lines", &ParagraphFormat::keepLines, &PartialParagraphFormat::keepLines},
    FormatField{"keep-next", &ParagraphFormat::keepWithNext, &PartialParagraphFormat::keepWithNext},
    FormatField{"page-before", &ParagraphFormat::pageBreakBefore, &PartialParagraphFormat::pageBreakBefore},
    FormatField{"widow-control", &ParagraphFormat::widowControl, &PartialParagraphFormat::widowControl},
    FormatField{"contextual", &ParagraphFormat::contextualSpacing, &PartialParagraphFormat::contextualSpacing},
    FormatField{"no-hyphenation", &ParagraphFormat::noHyphenation, &PartialParagraphFormat::noHyphenation},
    FormatField{"right-to-left", &ParagraphFormat::rightToLeft, &PartialParagraphFormat::rightToLeft},
    FormatField{"borders", &ParagraphFormat::borders, &PartialParagraphFormat::borders},
    FormatField{"shading", &ParagraphFormat::shading, &PartialParagraphFormat::shading},
    FormatField{"outline-level", &ParagraphFormat::outlineLevel, &PartialParagraphFormat::outlineLevel},
    FormatField{"style", &ParagraphFormat::style, &PartialParagraphFormat::style},
    FormatField{"kept", &ParagraphFormat::kept, &PartialParagraphFormat::kept},
};

}  // namespace quillmarker
