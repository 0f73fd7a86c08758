#include "pre_edit.h"

#include "engine/document/edit.h"
#include "engine/document/format_edit.h"

#include <QBrush>

#include <algorithm>

namespace quillmarker
{
namespace
{

Colour ColourOf(const QBrush& brush)
{
    const QColor colour = brush.color();
    return brush.style() == Qt::NoBrush ? Colour() : Colour::Of(colour.red(), colour.green(), colour.blue());
}

/// What an input method says about the look of a stretch of its text.
PartialCharFormat LookOf(const QTextCharFormat& format)
{
    PartialCharFormat look;
    if (format.hasProperty(QTextFormat::BackgroundBrush))
        look.highlight = ColourOf(format.background());
    if (format.hasProperty(QTextFormat::ForegroundBrush))
        look.colour = ColourOf(format.foreground());
    if (format.underlineStyle() == QTextCharFormat::DashUnderline)
        look.underline = Underline::Dash;
    else if (format.underlineStyle() == QTextCharFormat::DotLine)
        look.underline = Underline::Dotted;
    else if (format.underlineStyle() == QTextCharFormat::WaveUnderline ||
             format.underlineStyle() == QTextCharFormat::SpellCheckUnderline)
        look.underline = Underline::Wave;
    return look;
}

}  // namespace

void PreEdit::Take(const QInputMethodEvent& event)
{
    Clear();
    m_text = event.preeditString();
    m_caret = static_cast<int>(m_text.size());
    for (const QInputMethodEvent::Attribute& attribute : event.attributes())
    {
        if (attribute.type == QInputMethodEvent::Cursor)
        {
            m_caret = std::clamp(attribute.start, 0, static_cast<int>(m_text.size()));
            m_showsCaret = attribute.length != 0;
        }
        else if (attribute.type == QInputMethodEvent::TextFormat)
            m_stretches.push_back(
                {attribute.start, attribute.length, qvariant_cast<QTextFormat>(attribute.value).toCharFormat()});
    }
}

Document PreEdit::Shown(const TextBox& box) const
{
    if (IsEmpty())
        return box.Value();
    CharFormat format = Patched(DefaultCharFormat(), box.SelCharFormat());
    format.underline = Underline::Single;
    format.hidden = false;
    const Position begin{box.SelStart()};
    const Document& document = box.Value();
    // Line ends would be other positions than the input method counts.
    std::u16string text = m_text.toStdU16String();
    std::ranges::replace_if(
        text, [](char16_t unit) { return unit < u' '; }, u' ');
    Document shown = WithText(document, {begin, begin}, text, document.SharedFormats().Intern(format));
    const auto size = static_cast<int>(text.size());
    for (const Stretch& stretch : m_stretches)
    {
        const int from = std::clamp(stretch.start, 0, size);
        const int to = std::clamp(from + std::max(stretch.length, 0), from, size);
        if (from < to)
            shown = WithCharFormat(shown, {begin + from, begin + to}, LookOf(stretch.format));
    }
    return shown;
}

Position PreEdit::ToShown(Position position, Position caret) const
{
    return position > caret ? position + static_cast<std::int32_t>(m_text.size()) : position;
}

Position PreEdit::FromShown(Position position, Position caret) const
{
    return position > caret ? std::max(caret, position - static_cast<std::int32_t>(m_text.size())) : position;
}

}  // namespace quillmarker
