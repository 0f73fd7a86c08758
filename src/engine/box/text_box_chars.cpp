#include "engine/box/box_state.h"
#include "engine/document/font_family.h"

#include <quillmarker/text_box.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillmarker
{
namespace
{

constexpr std::int32_t kMaxTwips = 4'000'000;
constexpr float kMaxPoints = 1'638;

/// What `project` makes of the selection's characters; empty when it differs among them.
template <class Project>
auto CharValue(const Document& document, TextRange range, const CharFormat& toInsert, Project project)
{
    CommonValue<std::decay_t<decltype(project(toInsert))>> value;
    if (range.IsEmpty())
        value.Add(project(toInsert));
    VisitCharFormats(document, range, [&](const CharFormat& format) { value.Add(project(format)); });
    return value.Result();
}

}  // namespace

std::optional<bool> TextBox::SelBold() const
{
    return CharValue(m_state->document, m_state->Range(), m_state->FormatToInsert(),
                     [](const CharFormat& f) { return f.bold; });
}

void TextBox::SetSelBold(int on) { m_state->SetChars({.bold = on != 0}); }

std::optional<bool> TextBox::SelItalic() const
{
    return CharValue(m_state->document, m_state->Range(), m_state->FormatToInsert(),
                     [](const CharFormat& f) { return f.italic; });
}

void TextBox::SetSelItalic(int on) { m_state->SetChars({.italic = on != 0}); }

std::optional<bool> TextBox::SelUnderline() const
{
    return CharValue(m_state->document, m_state->Range(), m_state->FormatToInsert(),
                     [](const CharFormat& f) { return f.underline != Underline::None; });
}

void TextBox::SetSelUnderline(int on)
{
    m_state->SetChars({.underline = on != 0 ? Underline::Single : Underline::None});
}

std::optional<bool> TextBox::SelStrikeThru() const
{
    return CharValue(m_state->document, m_state->Range(), m_state->FormatToInsert(),
                     [](const CharFormat& f) { return f.strike; });
}

void TextBox::SetSelStrikeThru(int on) { m_state->SetChars({.strike = on != 0}); }

std::optional<bool> TextBox::SelProtected() const
{
    return CharValue(m_state->document, m_state->Range(), m_state->FormatToInsert(),
                     [](const CharFormat& f) { return f.protectedText; });
}

void TextBox::SetSelProtected(int on) { m_state->SetChars({.protectedText = on != 0}); }

std::optional<std::int32_t> TextBox::SelCharOffset() const
{
    return CharValue(m_state->document, m_state->Range(), m_state->FormatToInsert(),
                     [](const CharFormat& f) { return f.offset.value; });
}

void TextBox::SetSelCharOffset(std::int32_t twips)
{
    m_state->SetChars({.offset = Twips{std::clamp(twips, -kMaxTwips, kMaxTwips)}});
}

std::optional<std::u16string> TextBox::SelFontName() const
{
    return CharValue(m_state->document, m_state->Range(), m_state->FormatToInsert(),
                     [](const CharFormat& f) { return f.font.Text(); });
}

void TextBox::SetSelFontName(std::u16string_view name)
{
    constexpr std::size_t kMaxName = 256;
    name.remove_prefix(std::min(name.find_first_not_of(u' '), name.size()));
    name = name.substr(0, std::min(name.find_last_not_of(u' ') + 1, kMaxName));
    std::u16string text(name);
    std::erase_if(text, [](char16_t unit) { return unit < 0x20; });
    if (text.empty())
        return;
    const Name font(text);
    const FontFamily family = FamilyOf(text);
    const bool isSymbol = IsSymbolFont(text);
    m_state->ChangeChars([&](CharFormat format) {
        format.font = font;
        format.family = family;
        constexpr std::uint8_t kSymbolCharset = 2;
        if (isSymbol)
            format.charset = kSymbolCharset;
        else if (format.charset == kSymbolCharset)
            format.charset = 0;
        return format;
    });
}

std::optional<float> TextBox::SelFontSize() const
{
    return CharValue(m_state->document, m_state->Range(), m_state->FormatToInsert(),
                     [](const CharFormat& f) { return static_cast<float>(f.size.value) / 20; });
}

void TextBox::SetSelFontSize(float points)
{
    if (!(points > 0))
        return;
    const auto twips = static_cast<std::int32_t>(std::lround(std::min(points, kMaxPoints) * 20));
    m_state->SetChars({.size = Twips{std::max(twips, 1)}});
}

std::optional<Colour> TextBox::SelColor() const
{
    return CharValue(m_state->document, m_state->Range(), m_state->FormatToInsert(),
                     [](const CharFormat& f) { return f.colour; });
}

void TextBox::SetSelColor(Colour colour) { m_state->SetChars({.colour = colour}); }

PartialCharFormat TextBox::SelCharFormat() const
{
    return m_state->selection.length == 0 ? AllOf(m_state->FormatToInsert())
                                          : CharFormatOver(m_state->document, m_state->Range());
}

void TextBox::SetSelCharFormat(const PartialCharFormat& format) { m_state->SetChars(format); }

}  // namespace quillmarker
