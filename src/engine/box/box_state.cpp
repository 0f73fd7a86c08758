#include "engine/box/box_state.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

/// Runs a handler that may be replaced, or may destroy the box, while it runs: whoever goes on behind it asks first
/// whether the box is still there.
void Raise(const std::function<void()>& handler)
{
    if (const std::function<void()> current = handler)
        current();
}

}  // namespace

CharFormat TextBox::State::FormatToInsert() const
{
    if (insertion)
        return *insertion;
    const Location at = document.Locate({selection.start});
    const Paragraph& paragraph = document.ParagraphAt(at.paragraph);
    const auto offset = static_cast<std::uint32_t>(at.offset);
    if (selection.length > 0 || offset == 0)
        return document.FormatOf(paragraph.FormatAt(offset));
    CharFormat format = document.FormatOf(paragraph.FormatAt(offset - 1));
    // A field's result and hidden text end where they end: only what is put inside them belongs to them.
    const CharFormat& behind = document.FormatOf(paragraph.FormatAt(offset));
    if (!(behind.field == format.field))
        format.field = {};
    format.hidden = format.hidden && behind.hidden;
    return format;
}

RtfReading TextBox::State::ReadingHere() const
{
    const CharFormat here = FormatToInsert();
    RtfReading reading;
    reading.scope = RtfScope::Fragment;
    reading.defaultFormat = {};
    reading.defaultFormat.font = here.font;
    reading.defaultFormat.charset = here.charset;
    reading.defaultFormat.family = here.family;
    reading.defaultFormat.size = here.size;
    reading.formats = document.FormatsPointer();
    return reading;
}

void TextBox::State::RaiseChange() const { Raise(box.Change); }

void TextBox::State::RaiseSelChange() const { Raise(box.SelChange); }

void TextBox::State::Edit(Document next, Selection after, StepKind kind, std::optional<CharFormat> leaves)
{
    if (next.IsSameAs(document))
        return Select(after);
    history.Note({document, selection}, kind);
    Show(std::move(next), after, std::move(leaves));
}

void TextBox::State::Show(Document next, Selection after, std::optional<CharFormat> leaves)
{
    const bool moved = !(after == selection);
    document = std::move(next);
    selection = after;
    insertion = std::move(leaves);
    const Life boxLife = life;
    RaiseChange();
    if (moved && !boxLife.expired())
        RaiseSelChange();
}

void TextBox::State::Select(Selection next)
{
    if (next == selection)
        return;
    selection = next;
    insertion.reset();
    history.EndTyping();
    RaiseSelChange();
}

bool TextBox::State::HasRoomFor(std::int32_t units) const
{
    return document.Size() - selection.length <= kMaxTextUnits - units;
}

void TextBox::State::PutText(std::u16string_view text, StepKind kind)
{
    const std::int32_t length = LengthInDocument(text);
    if (!HasRoomFor(length) || (length == 0 && selection.length == 0))
        return;
    const CharFormat format = FormatToInsert();
    Document next = WithText(document, Range(), text, document.SharedFormats().Intern(format));
    const bool deletes = length == 0 && selection.length > 0;
    // What is typed in place of deleted text looks like it.
    Edit(std::move(next), {selection.start + length, 0}, kind, deletes ? std::optional(format) : std::nullopt);
}

void TextBox::State::PutFragment(const Document& fragment, StepKind kind)
{
    if (!HasRoomFor(fragment.Size()))
        return;
    Document next = WithFragment(document, Range(), fragment);
    Edit(std::move(next), {selection.start + fragment.Size(), 0}, kind);
}

void TextBox::State::SetChars(const PartialCharFormat& patch)
{
    ChangeChars([&](CharFormat format) { return Patched(std::move(format), patch); });
}

void TextBox::State::ChangeChars(const CharFormatChange& change)
{
    if (selection.length == 0)
        insertion = change(FormatToInsert());
    else
        Edit(WithCharFormats(document, Range(), change), selection);
}

void TextBox::State::ChangeParagraphs(const ParagraphFormatChange& change)
{
    Edit(WithParagraphFormats(document, Range(), change), selection, StepKind::Separate, insertion);
}

}  // namespace quillmarker
