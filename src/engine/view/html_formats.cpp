#include "html_formats.h"

#include "html_style.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <QStringList>
#include <QTextList>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace quillmarker
{
namespace
{

constexpr double kTwipsPerPixel = 1440.0 / 96;
constexpr int kMaxNameUnits = 64;
constexpr int kMaxLinkUnits = 2048;
constexpr Twips kListIndent{360};

struct GenericFamily
{
    const char16_t* name;
    const char16_t* font;  // null: the name is a font's
    FontFamily family;
};

constexpr std::array kGenericFamilies = {
    GenericFamily{u"serif", u"Times New Roman", FontFamily::Roman},
    GenericFamily{u"sans-serif", u"Arial", FontFamily::Swiss},
    GenericFamily{u"monospace", u"Courier New", FontFamily::Modern},
    GenericFamily{u"cursive", nullptr, FontFamily::Script},
};

const GenericFamily* FindGeneric(const QString& name)
{
    const auto* found = std::ranges::find_if(kGenericFamilies, [&](const GenericFamily& row) {
        return name.compare(QStringView(row.name), Qt::CaseInsensitive) == 0;
    });
    return found == kGenericFamilies.end() ? nullptr : found;
}

Name NameOf(const QString& text) { return {text.left(kMaxNameUnits).toStdU16String()}; }

void SetFont(CharFormat& format, const QStringList& names)
{
    if (names.isEmpty() || names.front().trimmed().isEmpty())
        return;
    const QString first = names.front().trimmed();
    const GenericFamily* generic = FindGeneric(first);
    format.font = generic && generic->font ? Name(generic->font) : NameOf(first);
    format.charset = 0;
    format.family = FontFamily::Nil;
    for (const QString& name : names)
    {
        if (const GenericFamily* row = FindGeneric(name.trimmed()))
            format.family = row->family;
    }
}

/// Sizes of <font size>, headings and the like, in tenths of the default size, from "two smaller" on.
constexpr std::array kSteps = {7, 8, 10, 12, 15, 20, 24};
constexpr int kFirstStep = -2;

Twips Within(double twips)
{
    constexpr double kLargest = 1638 * 20;
    const double clamped = std::isfinite(twips) ? std::clamp(twips, 20.0, kLargest) : 200.0;
    return HalfPoints(ToHalfPoints({static_cast<std::int32_t>(std::lround(clamped))}));
}

void SetSize(CharFormat& format, const QTextCharFormat& from)
{
    if (from.hasProperty(QTextFormat::FontPointSize))
        format.size = Within(from.fontPointSize() * 20);
    else if (from.hasProperty(QTextFormat::FontPixelSize))
        format.size = Within(from.intProperty(QTextFormat::FontPixelSize) * kTwipsPerPixel);
    else if (from.hasProperty(QTextFormat::FontSizeAdjustment))
    {
        const int last = static_cast<int>(kSteps.size()) - 1;
        const int step = std::clamp(from.intProperty(QTextFormat::FontSizeAdjustment) - kFirstStep, 0, last);
        format.size = Within(format.size.value * kSteps[static_cast<std::size_t>(step)] / 10.0);
    }
}

/// The colour of a brush; automatic where there is none to be seen.
Colour ColourOf(const QBrush& brush)
{
    if (brush.style() == Qt::NoBrush || brush.color().alpha() == 0)
        return {};
    return {brush.color().rgb() & 0xFFFFFFU};
}

void SetColours(CharFormat& format, const QTextCharFormat& from)
{
    format.colour = ColourOf(from.foreground());
    format.highlight = ColourOf(from.background());
    // Qt takes links' colour from the palette of the moment.
    const bool hasLinkColour = from.isAnchor() && from.foreground() == QGuiApplication::palette().link();
    if (hasLinkColour)
        format.colour = Colour::Of(0, 0, 255);
}

std::u16string Quoted(const QString& text)
{
    std::u16string quoted = u"\"";
    for (const QChar unit : text)
    {
        if (unit == QLatin1Char('"') || unit == QLatin1Char('\\'))
            quoted += u'\\';
        quoted += unit.unicode();
    }
    return quoted + u"\"";
}

void SetLink(CharFormat& format, const QString& target)
{
    if (target.isEmpty() || target.size() > kMaxLinkUnits || !IsCommonLink(target.toStdU16String()))
        return;
    Field field;
    if (target.startsWith(QLatin1Char('#')))
        field.instruction = u"HYPERLINK \\l " + Quoted(target.mid(1));
    else
        field.instruction = u"HYPERLINK " + Quoted(target);
    format.field = Shared(std::move(field));
}

Script ScriptOf(const QTextCharFormat& from)
{
    switch (from.verticalAlignment())
    {
    case QTextCharFormat::AlignSuperScript:
        return Script::Super;
    case QTextCharFormat::AlignSubScript:
        return Script::Sub;
    default:
        return Script::None;
    }
}

Alignment AlignmentOf(Qt::Alignment from)
{
    if (from & Qt::AlignJustify)
        return Alignment::Justify;
    if (from & Qt::AlignHCenter)
        return Alignment::Centre;
    return from & Qt::AlignRight ? Alignment::Right : Alignment::Left;
}

struct ListStyle
{
    QTextListFormat::Style from;
    NumberKind kind;
    const char16_t* bullet;
};

constexpr std::array kListStyles = {
    ListStyle{QTextListFormat::ListDisc, NumberKind::Bullet, u"\u2022"},
    ListStyle{QTextListFormat::ListCircle, NumberKind::Bullet, u"\u25E6"},
    ListStyle{QTextListFormat::ListSquare, NumberKind::Bullet, u"\u25AA"},
    ListStyle{QTextListFormat::ListDecimal, NumberKind::Decimal, nullptr},
    ListStyle{QTextListFormat::ListLowerAlpha, NumberKind::LowerLetter, nullptr},
    ListStyle{QTextListFormat::ListUpperAlpha, NumberKind::UpperLetter, nullptr},
    ListStyle{QTextListFormat::ListLowerRoman, NumberKind::LowerRoman, nullptr},
    ListStyle{QTextListFormat::ListUpperRoman, NumberKind::UpperRoman, nullptr},
};

void SetNumbering(ParagraphFormat& format, const QTextList& list)
{
    const QTextListFormat from = list.format();
    const auto* style = std::ranges::find(kListStyles, from.style(), &ListStyle::from);
    if (style == kListStyles.end())
        return;
    constexpr int kDeepest = 8;
    Numbering numbering;
    numbering.kind = style->kind;
    numbering.level = std::clamp(from.indent() - 1, 0, kDeepest);
    numbering.indent = kListIndent;
    if (style->bullet)
        numbering.text = style->bullet;
    else
        numbering.text = {static_cast<char16_t>(numbering.level), u'.'};
    format.leftIndent = kListIndent * (numbering.level + 1);
    format.firstIndent = -kListIndent;
    format.numbering = Shared(std::move(numbering));
}

Twips InTwips(qreal pixels)
{
    constexpr double kWidest = 22 * 1440.0;
    return {static_cast<std::int32_t>(std::clamp(pixels * kTwipsPerPixel, -kWidest, kWidest))};
}

}  // namespace

CharFormat CharFormatOf(const QTextCharFormat& from, const CharFormat& base)
{
    CharFormat format = base;
    SetFont(format, from.fontFamilies().toStringList());
    SetSize(format, from);
    SetColours(format, from);
    SetLink(format, from.anchorHref());
    format.bold = from.fontWeight() >= QFont::DemiBold;
    format.italic = from.fontItalic();
    format.underline = from.fontUnderline() ? Underline::Single : Underline::None;
    format.strike = from.fontStrikeOut();
    format.script = ScriptOf(from);
    format.caps = from.fontCapitalization() == QFont::AllUppercase;
    format.smallCaps = from.fontCapitalization() == QFont::SmallCaps;
    return format;
}

ParagraphFormat ParagraphFormatOf(const QTextBlock& block)
{
    const QTextBlockFormat from = block.blockFormat();
    constexpr int kHeadingLevels = 6;
    ParagraphFormat format;
    format.alignment = AlignmentOf(from.alignment());
    format.rightToLeft = from.layoutDirection() == Qt::RightToLeft;
    format.leftIndent = InTwips(from.leftMargin());
    format.rightIndent = InTwips(from.rightMargin());
    format.firstIndent = InTwips(from.textIndent());
    format.outlineLevel = static_cast<std::uint8_t>(std::clamp(from.headingLevel(), 0, kHeadingLevels));
    if (const QTextList* list = block.textList())
        SetNumbering(format, *list);
    return format;
}

}  // namespace quillmarker
