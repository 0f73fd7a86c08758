#include "html_style.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cstdio>

namespace quillmarker
{
namespace
{

/// Twips as points, with as many places as needed.
std::string InPoints(Twips length)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%d.%02d", std::abs(length.value) / 20, std::abs(length.value) % 20 * 5);
    std::string points = text.data();
    points.erase(points.find_last_not_of('0') + 1);
    if (points.back() == '.')
        points.pop_back();
    return (length.value < 0 ? "-" : "") + points + "pt";
}

std::string InHex(Colour colour)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%06x", colour.rgb & 0xFFFFFFU);
    return text.data();
}

const char* GenericFamily(FontFamily family)
{
    switch (family)
    {
    case FontFamily::Roman:
        return ",serif";
    case FontFamily::Swiss:
        return ",sans-serif";
    case FontFamily::Modern:
        return ",monospace";
    case FontFamily::Script:
        return ",cursive";
    default:
        return "";
    }
}

/// A font's name in quotes, which cannot end inside of it.
std::string QuotedFamily(std::u16string_view name)
{
    std::u16string safe;
    for (const char16_t unit : name)
    {
        if (unit >= u' ' && unit != u'\'' && unit != u'"' && unit != u'\\')
            safe += unit;
    }
    return "'" + HtmlAttribute(safe) + "'";
}

const char* DecorationStyle(Underline kind)
{
    switch (kind)
    {
    case Underline::Double:
        return "double";
    case Underline::Dotted:
    case Underline::ThickDotted:
        return "dotted";
    case Underline::Dash:
    case Underline::DashDot:
    case Underline::DashDotDot:
    case Underline::ThickDash:
    case Underline::ThickDashDot:
    case Underline::ThickDashDotDot:
    case Underline::LongDash:
    case Underline::ThickLongDash:
        return "dashed";
    case Underline::Wave:
    case Underline::HeavyWave:
    case Underline::DoubleWave:
        return "wavy";
    default:
        return nullptr;
    }
}

void AddStyle(std::string& style, std::string_view name, std::string_view value)
{
    style.append(name).append(":").append(value).append(";");
}

std::string StyleOf(const CharFormat& format)
{
    std::string style;
    if (!format.font.IsEmpty())
        AddStyle(style, "font-family", QuotedFamily(format.font.Text()) + GenericFamily(format.family));
    if (format.size.value > 0)
        AddStyle(style, "font-size", InPoints(format.size));
    if (!format.colour.IsAutomatic())
        AddStyle(style, "color", InHex(format.colour));
    if (!format.highlight.IsAutomatic())
        AddStyle(style, "background-color", InHex(format.highlight));
    if (format.offset.value != 0)
        AddStyle(style, "vertical-align", InPoints(format.offset));
    if (format.caps)
        AddStyle(style, "text-transform", "uppercase");
    if (format.smallCaps)
        AddStyle(style, "font-variant", "small-caps");
    if (format.spacing.value != 0)
        AddStyle(style, "letter-spacing", InPoints(format.spacing));
    return style;
}

void Wrap(HtmlTags& tags, std::string_view name, std::string_view attributes = {})
{
    tags.open.append("<").append(name).append(attributes).append(">");
    tags.close.insert(0, "</" + std::string(name) + ">");
}

/// XML and HTML know no control characters; half of a pair is no character.
bool MayStand(char16_t unit) { return unit >= u' ' && unit != u'\u007F' && unit < u'\uFFFE'; }

std::string Escaped(std::u16string_view text, std::string_view lineBreak)
{
    std::string out;
    std::u16string plain;
    const auto flush = [&] {
        out += QString::fromStdU16String(plain).toStdString();
        plain.clear();
    };
    const auto put = [&](std::string_view special) {
        flush();
        out += special;
    };
    for (const char16_t unit : text)
    {
        switch (unit)
        {
        case u'&':
            put("&amp;");
            break;
        case u'<':
            put("&lt;");
            break;
        case u'>':
            put("&gt;");
            break;
        case u'"':
            put("&quot;");
            break;
        case u'\t':
            put("&#9;");
            break;
        case u'\v':
        case u'\f':
        case u'\u2028':
            put(lineBreak);
            break;
        default:
            if (MayStand(unit))
                plain += unit;
        }
    }
    flush();
    return out;
}

constexpr std::array kAlignNames = {"left", "right", "center", "justify", "justify"};

}  // namespace

std::string HtmlText(std::u16string_view text) { return Escaped(text, "<br>"); }

std::string HtmlAttribute(std::u16string_view text) { return Escaped(text, " "); }

HtmlTags TagsOf(const CharFormat& format)
{
    HtmlTags tags;
    if (const std::string style = StyleOf(format); !style.empty())
        Wrap(tags, "span", " style=\"" + style + "\"");
    if (format.bold)
        Wrap(tags, "b");
    if (format.italic)
        Wrap(tags, "i");
    if (format.underline != Underline::None)
    {
        const char* kind = DecorationStyle(format.underline);
        Wrap(tags, "u", kind ? std::string(" style=\"text-decoration-style:") + kind + "\"" : std::string());
    }
    if (format.strike || format.doubleStrike)
        Wrap(tags, "s");
    if (format.script != Script::None)
        Wrap(tags, format.script == Script::Super ? "sup" : "sub");
    return tags;
}

std::string StyleOf(const ParagraphFormat& format)
{
    std::string style;
    // Blanks and tabs are kept, and no distances added that the document does not have.
    AddStyle(style, "white-space", "pre-wrap");
    AddStyle(style, "margin",
             InPoints(format.spaceBefore) + " " + InPoints(format.rightIndent) + " " + InPoints(format.spaceAfter) +
                 " " + InPoints(format.leftIndent));
    if (format.firstIndent.value != 0)
        AddStyle(style, "text-indent", InPoints(format.firstIndent));
    if (format.alignment != Alignment::Left)
        AddStyle(style, "text-align", kAlignNames[static_cast<std::size_t>(format.alignment)]);
    if (format.lineSpacing.rule == LineRule::Multiple && format.lineSpacing.amount > 0)
        AddStyle(style, "line-height", std::to_string(format.lineSpacing.amount * 100LL / 240) + "%");
    return style;
}

bool IsCommonLink(std::u16string_view target)
{
    constexpr std::array<std::u16string_view, 6> kBeginnings = {u"http://", u"https://", u"ftp://",
                                                                u"mailto:", u"tel:",     u"#"};
    std::u16string start(target.substr(0, 8));
    std::ranges::transform(start, start.begin(),
                           [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; });
    return std::ranges::any_of(kBeginnings, [&](std::u16string_view name) { return start.starts_with(name); });
}

}  // namespace quillmarker
