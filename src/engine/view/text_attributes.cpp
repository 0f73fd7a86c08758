#include "text_attributes.h"

#include <array>
#include <cmath>

namespace quillmarker
{
namespace
{

class AttributeText
{
public:
    void Add(const char* name, const QString& value)
    {
        m_text += QLatin1String(name) + QLatin1Char(':') + value + QLatin1Char(';');
    }
    void Add(const char* name, const char* value) { Add(name, QString::fromLatin1(value)); }

    const QString& Text() const { return m_text; }

private:
    QString m_text;
};

/// A value that holds what separates attributes.
QString Escaped(const QString& value)
{
    QString escaped;
    for (const QChar unit : value)
    {
        if (QStringView(u"\\:,=;\"").contains(unit))
            escaped += QLatin1Char('\\');
        escaped += unit;
    }
    return escaped;
}

QString ColourText(const QColor& colour)
{
    return QStringLiteral("rgb(%1,%2,%3)").arg(colour.red()).arg(colour.green()).arg(colour.blue());
}

QColor ColourOf(Colour colour) { return QColor(colour.Red(), colour.Green(), colour.Blue()); }

const char* UnderlineStyle(Underline kind)
{
    switch (kind)
    {
    case Underline::Dotted:
    case Underline::ThickDotted:
        return "dotted";
    case Underline::Dash:
    case Underline::ThickDash:
        return "dash";
    case Underline::DashDot:
    case Underline::ThickDashDot:
        return "dot-dash";
    case Underline::DashDotDot:
    case Underline::ThickDashDotDot:
        return "dot-dot-dash";
    case Underline::LongDash:
    case Underline::ThickLongDash:
        return "long-dash";
    case Underline::Wave:
    case Underline::HeavyWave:
    case Underline::DoubleWave:
        return "wave";
    default:
        return "solid";
    }
}

void AddFont(AttributeText& text, const CharFormat& format)
{
    if (!format.font.IsEmpty())
        text.Add("font-family",
                 QLatin1Char('"') + Escaped(QString::fromStdU16String(format.font.Text())) + QLatin1Char('"'));
    text.Add("font-size", QString::number(format.size.value / 20.0) + QLatin1String("pt"));
    text.Add("font-weight", format.bold ? "bold" : "normal");
    text.Add("font-style", format.italic ? "italic" : "normal");
}

void AddLines(AttributeText& text, const CharFormat& format)
{
    if (format.underline != Underline::None)
    {
        const bool isDouble = format.underline == Underline::Double || format.underline == Underline::DoubleWave;
        text.Add("text-underline-style", UnderlineStyle(format.underline));
        text.Add("text-underline-type", isDouble ? "double" : "single");
    }
    if (format.strike || format.doubleStrike)
        text.Add("text-line-through-type", format.doubleStrike ? "double" : "single");
}

void AddPlace(AttributeText& text, const CharFormat& format)
{
    if (format.script != Script::None)
        text.Add("text-position", format.script == Script::Super ? "super" : "sub");
    else if (format.offset.value != 0)
        text.Add("text-position", QString::number(format.offset.value / 20.0) + QLatin1String("pt"));
    else
        text.Add("text-position", "baseline");
}

constexpr std::array kAlignNames = {"left", "right", "center", "justify", "justify"};

}  // namespace

QString TextAttributes(const CharFormat& format, const ParagraphFormat& paragraph, const QColor& textColour)
{
    AttributeText text;
    AddFont(text, format);
    AddLines(text, format);
    AddPlace(text, format);
    text.Add("color", ColourText(format.colour.IsAutomatic() ? textColour : ColourOf(format.colour)));
    if (!format.highlight.IsAutomatic())
        text.Add("background-color", ColourText(ColourOf(format.highlight)));
    if (format.hidden)
        text.Add("invisible", "true");
    text.Add("text-align", kAlignNames[static_cast<std::size_t>(paragraph.alignment)]);
    text.Add("writing-mode", paragraph.rightToLeft ? "rl" : "lr");
    return text.Text();
}

}  // namespace quillmarker
