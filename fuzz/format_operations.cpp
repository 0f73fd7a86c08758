// Formats: the flags against the naive text; of everything else, that it reads back and leaves the rest alone.

#include "edit_session.h"
#include "require.h"

#include <iterator>

namespace quillmarker
{
namespace
{

constexpr int kSwitches[] = {0, 1, -1, 256};

std::int32_t Length(ByteScript& script) { return (static_cast<std::int32_t>(script.Byte()) - 60) * 20; }

void PutBit(TextBox& box, std::uint8_t bit, int on)
{
    switch (bit)
    {
    case kNaiveBold:
        return box.SetSelBold(on);
    case kNaiveItalic:
        return box.SetSelItalic(on);
    case kNaiveUnderline:
        return box.SetSelUnderline(on);
    case kNaiveStrike:
        return box.SetSelStrikeThru(on);
    case kNaiveProtected:
        return box.SetSelProtected(on);
    default:
        break;
    }
    PartialCharFormat patch;
    patch.hidden = on != 0;
    box.SetSelCharFormat(patch);
}

}  // namespace

void EditSession::PutFlag(ByteScript& script)
{
    const std::uint8_t bit = kNaiveBits[script.Below(kNaiveBits.size())];
    const int on = kSwitches[script.Below(std::size(kSwitches))];
    PutBit(m_box, bit, on);
    if (m_selection.length > 0)
        return m_text.Put(m_selection, bit, on != 0);
    const unsigned old = InsertionFormat();
    m_insertion = static_cast<std::uint8_t>(on != 0 ? old | bit : old & ~unsigned{bit});
}

void EditSession::PutCharValue(ByteScript& script)
{
    if (m_selection.length == 0)
        m_insertion = InsertionFormat();
    switch (script.Below(5))
    {
    case 0:
    {
        const std::int32_t offset = (static_cast<std::int32_t>(script.Below(61)) - 30) * 10;
        m_box.SetSelCharOffset(offset);
        return Require(m_box.SelCharOffset() == offset, "SelCharOffset reads back");
    }
    case 1:
    {
        const float points = static_cast<float>(1 + script.Below(144)) / 2;
        m_box.SetSelFontSize(points);
        return Require(m_box.SelFontSize() == points, "SelFontSize reads back");
    }
    case 2:
    {
        const std::optional<float> before = m_box.SelFontSize();
        m_box.SetSelFontSize(-static_cast<float>(script.Below(2)));
        return Require(m_box.SelFontSize() == before, "a size of 0 or less is refused");
    }
    case 3:
    {
        const std::u16string name = script.Below(2) == 0 ? u"Courier New" : u"No Such; Font";
        m_box.SetSelFontName(name);
        return Require(m_box.SelFontName() == name, "SelFontName reads back");
    }
    default:
    {
        const Colour colour = script.Below(4) == 0 ? Colour() : Colour::Of(255, 0, static_cast<int>(script.Byte()));
        m_box.SetSelColor(colour);
        return Require(m_box.SelColor() == colour, "SelColor reads back");
    }
    }
}

void EditSession::PutParagraphValue(ByteScript& script)
{
    switch (script.Below(7))
    {
    case 0:
    {
        const int alignment = static_cast<int>(script.Below(4));
        m_box.SetSelAlignment(alignment);
        return Require(m_box.SelAlignment() == alignment, "SelAlignment reads back");
    }
    case 1:
    {
        const int on = kSwitches[script.Below(std::size(kSwitches))];
        m_box.SetSelBullet(on);
        return Require(m_box.SelBullet() == (on != 0), "SelBullet reads back");
    }
    case 2:
    {
        const std::int32_t twips = Length(script);
        m_box.SetSelIndent(twips);
        return Require(m_box.SelIndent() == twips, "SelIndent reads back");
    }
    case 3:
    {
        const std::int32_t twips = Length(script);
        m_box.SetSelHangingIndent(twips);
        return Require(m_box.SelHangingIndent() == twips, "SelHangingIndent reads back");
    }
    case 4:
    {
        const std::int32_t twips = Length(script);
        m_box.SetSelRightIndent(twips);
        return Require(m_box.SelRightIndent() == twips, "SelRightIndent reads back");
    }
    case 5:
    {
        const int count = static_cast<int>(script.Below(6));
        m_box.SetSelTabCount(count);
        return Require(m_box.SelTabCount() == count, "SelTabCount reads back");
    }
    default:
    {
        const int index = static_cast<int>(script.Below(7)) - 1;
        m_box.SetSelTabs(index, 100 + Length(script));
        return Require(index >= 0 || !m_box.SelTabs(index), "there is no tab stop below the first");
    }
    }
}

}  // namespace quillmarker
