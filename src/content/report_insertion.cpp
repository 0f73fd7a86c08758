#include "content/previous_field.h"
#include "content/report_state.h"
#include "engine/box/file_store.h"
#include "engine/document/document_search.h"

#include <quillmarker/report.h>

namespace quillmarker
{

bool Report::State::SelectMarker(std::u16string_view marker)
{
    if (marker.empty())
        return true;
    std::optional<Position> found;
    Attempt([&] {
        const Document& document = box.Value();
        found = DocumentSearch(marker, MatchCase::No).First(document, {{box.SelStart()}, {document.Size()}});
    });
    // Apart from the search: a handler that fails when the selection moves does not unfind the marker.
    if (found)
        Attempt([&] { box.Find(marker, found->value); });
    return found.has_value();
}

template <class Insert>
int Report::State::InsertAt(std::u16string_view marker, Insert insert)
{
    Focus();
    if (!SelectMarker(marker))
        return -1;
    Attempt([&] { report.SaveUndoSnapshot(); });
    Attempt(insert);
    const int caret = box.SelStart();
    Refresh();
    return caret;
}

void Report::State::ResetCharset()
{
    BoxFont font = box.Font();
    font.charset = static_cast<std::int16_t>(defaultCharset);
    if (!(font == box.Font()))
        box.SetFont(font);
}

int Report::InsertStringRTF(std::u16string_view richtext, std::u16string_view FindText)
{
    const int caret = m_state->InsertAt(FindText, [&] { m_state->box.SetSelRTF(richtext); });
    if (caret >= 0)
        Attempt([&] { m_state->ResetCharset(); });
    return caret;
}

int Report::InsertStringText(std::u16string_view txt, std::u16string_view FindText)
{
    return m_state->InsertAt(FindText, [&] { m_state->box.SetSelText(txt); });
}

int Report::InsertFileRTF(const std::filesystem::path& FileName, std::u16string_view FindText)
{
    FileContents file{FileError::OutOfMemory, {}};
    Attempt([&] { file = ReadFile(FileName); });
    if (file.error != FileError::None)
        return -static_cast<int>(file.error);
    const int caret = m_state->InsertAt(FindText, [&] { m_state->box.SetSelRTFBytes(file.bytes); });
    if (caret >= 0)
        Attempt([&] { m_state->ResetCharset(); });
    return caret;
}

namespace
{

/// Puts the switches for hidden text around the last place of `text` in the source. They have no blank behind them by
/// contract, so a text that begins with a letter runs into the control word; one that the source escapes stays visible.
void HideLast(TextBox& box, std::u16string_view text)
{
    const std::u16string source = box.TextRTF();
    const std::size_t at = FindLast(source, Needle(text, MatchCase::No));
    if (at == std::u16string::npos)
        return;
    const std::u16string_view all = source;
    std::u16string rewritten(all.substr(0, at));
    rewritten += u"\\v";
    rewritten += text;
    rewritten += u"\\v0";
    rewritten += all.substr(at + text.size());
    box.SetTextRTF(rewritten);
}

}  // namespace

int Report::InsertStringHidden(std::u16string_view txth, std::u16string_view LF)
{
    TextBox& box = m_state->box;
    m_state->Focus();
    int start = box.SelStart();
    int length = box.SelLength();
    const int hiddenLength = static_cast<int>(txth.size());
    Attempt([&] { box.SetSelText(txth); });
    Attempt([&] { HideLast(box, txth); });

    Attempt([&] { box.SetSelStart(start); });
    Attempt([&] { box.SetSelLength(hiddenLength); });
    std::optional<Colour> colour;
    Attempt([&] { colour = box.SelColor(); });
    Attempt([&] { box.SetSelColor(box.BackColor()); });
    Attempt([&] { box.SetSelLength(length); });
    Attempt([&] { box.SetSelStart(start + hiddenLength); });
    if (colour)
        Attempt([&] { box.SetSelColor(*colour); });

    start = box.SelStart();
    length = box.SelLength();
    const int lineLength = static_cast<int>(LF.size());
    Attempt([&] { box.SetSelText(LF); });
    Attempt([&] { box.SetSelStart(start); });
    // The first length is overridden at once: nothing is done with the selection it makes, and hosts see both changes.
    Attempt([&] { box.SetSelLength(lineLength); });
    Attempt([&] { box.SetSelLength(length); });
    Attempt([&] { box.SetSelStart(start + lineLength); });
    const int caret = box.SelStart();
    m_state->Refresh();
    return caret;
}

std::u16string Report::PreviousField(std::u16string_view Prefix, std::u16string_view Suffix, bool RTFcode)
{
    m_state->Focus();
    m_state->Lock(true);
    m_state->redrawEnabled = false;
    std::u16string field;
    int start = m_state->box.SelStart();
    const int length = m_state->box.SelLength();
    const bool isPossible = !Prefix.empty() && !Suffix.empty();
    if (isPossible && start < 2)
        start = m_state->box.TextLength();
    if (isPossible && RTFcode)
    {
        // The range begins at position 1, not 0: a contract with hosts.
        std::u16string source;
        Attempt([&] { m_state->box.SetSelStart(1); });
        Attempt([&] { m_state->box.SetSelLength(start); });
        Attempt([&] { source = m_state->box.SelRTF(); });
        Attempt([&] { field = FieldInSource(source, Prefix, Suffix); });
    }
    else if (isPossible)
        Attempt([&] { field = FieldInText(m_state->box.Value(), start, Prefix, Suffix); });
    if (RTFcode)
    {
        Attempt([&] { m_state->box.SetSelStart(start); });
        Attempt([&] { m_state->box.SetSelLength(length); });
    }
    Attempt([&] { m_state->EndStep(); });
    m_state->Lock(false);
    m_state->redrawEnabled = true;
    m_state->Focus();
    return field;
}

}  // namespace quillmarker
