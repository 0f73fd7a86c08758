#include "engine/box/box_state.h"
#include "engine/document/tree.h"
#include "engine/document/unit_search.h"
#include "engine/document/utf.h"

#include <quillmarker/text_box.h>

#include <algorithm>
#include <string>

namespace quillmarker
{
namespace
{

bool HasProtected(const Document& document, TextRange range)
{
    const auto protectedText = CharFormatOver(document, range).protectedText;
    return !protectedText || *protectedText;
}

/// The character before or behind a position: a line end and a pair of surrogates are one.
TextRange CharacterBefore(const Document& document, Position at)
{
    const std::u16string text = document.Text({at - 2, at});
    return {at - std::min(BeginsWithPair(text) ? 2 : 1, at.value), at};
}

TextRange CharacterBehind(const Document& document, Position at)
{
    const std::u16string text = document.Text({at, at + 2});
    return {at, at + std::min<std::int32_t>(BeginsWithPair(text) ? 2 : 1, static_cast<std::int32_t>(text.size()))};
}

/// Whether `range` is the end of a cell or of a row, which a key does not delete.
bool IsTableMark(const Document& document, TextRange range)
{
    const Location at = document.Locate(range.begin);
    const Paragraph& paragraph = document.ParagraphAt(at.paragraph);
    return at.offset >= static_cast<std::int32_t>(paragraph.Text().size()) && paragraph.Ending().kind != Mark::Break;
}

/// What is written where something was deleted is in a field or hidden only if it stands inside of it.
void LeaveWhatEnds(const Document& document, Position at, CharFormat& format)
{
    const Location place = document.Locate(at);
    const Paragraph& paragraph = document.ParagraphAt(place.paragraph);
    const auto offset = static_cast<std::uint32_t>(place.offset);
    const CharFormat* before = offset > 0 ? &document.FormatOf(paragraph.FormatAt(offset - 1)) : nullptr;
    const CharFormat& behind = document.FormatOf(paragraph.FormatAt(offset));
    if (!before || !(before->field == format.field) || !(behind.field == format.field))
        format.field = {};
    format.hidden = format.hidden && before && before->hidden && behind.hidden;
}

}  // namespace

bool TextBox::State::MayEdit(TextRange range) const
{
    if (locked)
        return false;
    if (!range.IsEmpty())
        return !HasProtected(document, range);
    // Between two protected characters, not at their edge: what stands beside protected text may be written.
    const Position end = std::min(range.begin + 1, Position{document.Size()});
    const bool isAtEdge = range.begin.value == 0 || end == range.begin;
    return isAtEdge || !HasProtected(document, CharacterBefore(document, range.begin)) ||
           !HasProtected(document, {range.begin, end});
}

void TextBox::State::WriteUnprotected()
{
    CharFormat format = FormatToInsert();
    if (!format.protectedText)
        return;
    format.protectedText = false;
    insertion = format;
}

std::u16string_view TextBox::State::WithinMaxLength(std::u16string_view text, std::int32_t over) const
{
    return maxLength <= 0 ? text : StartThatFits(text, maxLength - (document.Size() - over));
}

std::int32_t TextBox::State::UserRoom(std::int32_t wanted) const
{
    return maxLength <= 0 ? wanted : maxLength - (document.Size() - selection.length);
}

bool TextBox::State::DeleteAsUser(TextRange range)
{
    if (range.IsEmpty() || !MayEdit(range))
        return false;
    const Location begin = document.Locate(range.begin);
    CharFormat format =
        document.FormatOf(document.ParagraphAt(begin.paragraph).FormatAt(static_cast<std::uint32_t>(begin.offset)));
    Document next = WithText(document, range, u"", {});
    LeaveWhatEnds(next, range.begin, format);
    Edit(std::move(next), {range.begin.value, 0}, StepKind::Typing, format);
    return true;
}

bool TextBox::Type(std::u16string_view text)
{
    if (!m_state->MayEdit(m_state->Range()))
        return false;
    const std::u16string_view fitting = m_state->WithinMaxLength(text, m_state->selection.length);
    if (fitting.empty() && m_state->selection.length == 0)
        return text.empty();
    m_state->WriteUnprotected();
    m_state->PutText(fitting, StepKind::Typing);
    return fitting.size() == text.size();
}

bool TextBox::TypeBackspace()
{
    if (m_state->selection.length > 0)
        return m_state->DeleteAsUser(m_state->Range());
    const TextRange before = CharacterBefore(m_state->document, {m_state->selection.start});
    return !IsTableMark(m_state->document, before) && m_state->DeleteAsUser(before);
}

bool TextBox::TypeDelete()
{
    if (m_state->selection.length > 0)
        return m_state->DeleteAsUser(m_state->Range());
    const TextRange behind = CharacterBehind(m_state->document, {m_state->selection.start});
    return !IsTableMark(m_state->document, behind) && m_state->DeleteAsUser(behind);
}

bool TextBox::TypeOver(TextRange range, std::u16string_view text)
{
    const TextRange snapped = Snapped(m_state->document, range);
    if (text.empty())
        return m_state->DeleteAsUser(snapped);
    if (!m_state->MayEdit(snapped))
        return false;
    const std::u16string_view fitting = m_state->WithinMaxLength(text, snapped.Length());
    const std::int32_t length = LengthInDocument(fitting);
    if (length == 0 || m_state->document.Size() - snapped.Length() > kMaxTextUnits - length)
        return false;
    const Location at = m_state->document.Locate(snapped.begin);
    const Paragraph& paragraph = m_state->document.ParagraphAt(at.paragraph);
    // At the caret it is typing like any other; elsewhere the text takes the format of what it replaces.
    const bool isAtCaret = m_state->Range() == TextRange{snapped.begin, snapped.begin};
    CharFormat format = isAtCaret
                            ? m_state->FormatToInsert()
                            : m_state->document.FormatOf(paragraph.FormatAt(static_cast<std::uint32_t>(at.offset)));
    format.protectedText = false;
    Document next = WithText(m_state->document, snapped, fitting, m_state->document.SharedFormats().Intern(format));
    m_state->Edit(std::move(next), {snapped.begin.value + length, 0}, StepKind::Typing);
    return fitting.size() == text.size();
}

bool TextBox::PasteText(std::u16string_view text)
{
    if (!m_state->MayEdit(m_state->Range()))
        return false;
    const std::u16string_view fitting = m_state->WithinMaxLength(text, m_state->selection.length);
    if (!fitting.empty() || m_state->selection.length > 0)
    {
        m_state->WriteUnprotected();
        m_state->PutText(fitting, StepKind::Separate);
    }
    return fitting.size() == text.size();
}

bool TextBox::PasteRTF(std::u16string_view rtf)
{
    // What may not be put in is not read either.
    return m_state->MayEdit(m_state->Range()) && PasteFragment(ReadRtf(rtf, m_state->ReadingHere()));
}

bool TextBox::PasteRTFBytes(std::string_view rtf)
{
    return m_state->MayEdit(m_state->Range()) && PasteFragment(ReadRtf(rtf, m_state->ReadingHere()));
}

bool TextBox::PasteFragment(const Document& fragment)
{
    if (!m_state->MayEdit(m_state->Range()))
        return false;
    const std::int32_t room = m_state->UserRoom(fragment.Size());
    if (fragment.Size() <= room)
    {
        m_state->PutFragment(fragment, StepKind::Separate);
        return true;
    }
    m_state->PutFragment(Slice(fragment, {{0}, {std::max(room, 0)}}), StepKind::Separate);
    return false;
}

bool TextBox::PasteObject(InlineObject object)
{
    if (!m_state->MayEdit(m_state->Range()) || !m_state->HasRoomFor(1) || m_state->UserRoom(1) < 1)
        return false;
    m_state->WriteUnprotected();
    InsertObject(std::move(object));
    return true;
}

void TextBox::Span(std::u16string_view characters, SpanDirection direction, CharacterSet set)
{
    // Over what is in the set means up to what is not.
    const UnitSet others(characters, set == CharacterSet::Listed ? UnitSet::Holds::Others : UnitSet::Holds::Listed);
    const Document& document = m_state->document;
    TextRange range = m_state->Range();
    if (direction == SpanDirection::Forward)
        range.end = FirstOf(others, document, range.end).value_or(Position{TextLength()});
    else
        range.begin = BehindLastOf(others, document, range.begin).value_or(Position{0});
    range = Snapped(document, range);
    m_state->Select({range.begin.value, range.Length()});
}

void TextBox::UpTo(std::u16string_view characters, SpanDirection direction, CharacterSet set)
{
    const UnitSet wanted(characters, set == CharacterSet::Listed ? UnitSet::Holds::Listed : UnitSet::Holds::Others);
    const TextRange range = m_state->Range();
    const auto found = direction == SpanDirection::Forward ? FirstOf(wanted, m_state->document, range.end)
                                                           : BehindLastOf(wanted, m_state->document, range.begin);
    if (found)
        SetSelStart(found->value);
}

}  // namespace quillmarker
