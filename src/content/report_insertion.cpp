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
    Try([&](const TextBox& known) {
        const Document& document = known.Value();
        found = DocumentSearch(marker, MatchCase::No).First(document, {{known.SelStart()}, {document.Size()}});
    });
    // Apart from the search: a handler that fails when the selection moves does not unfind the marker.
    if (found)
        Try([&](TextBox& known) { known.Find(marker, found->value); });
    return found.has_value();
}

template <class Insert>
int Report::State::InsertAt(std::u16string_view marker, Insert insert)
{
    Focus();
    if (!SelectMarker(marker))
        return -1;
    SaveSnapshot();
    Try(insert);
    const int caret = SelStart();
    Refresh();
    return caret;
}

void Report::State::ResetCharset()
{
    Try([&](TextBox& known) {
        BoxFont font = known.Font();
        font.charset = static_cast<std::int16_t>(defaultCharset);
        if (!(font == known.Font()))
            known.SetFont(font);
    });
}

int Report::State::InsertRtf(std::u16string_view marker, const std::function<void(TextBox&)>& insert)
{
    const int caret = InsertAt(marker, insert);
    if (caret >= 0)
        ResetCharset();
    return caret;
}

int Report::InsertStringRTF(std::u16string_view richtext, std::u16string_view FindText)
{
    return std::shared_ptr(m_state)->InsertRtf(FindText, [&](TextBox& box) { box.SetSelRTF(richtext); });
}

int Report::InsertStringText(std::u16string_view txt, std::u16string_view FindText)
{
    return std::shared_ptr(m_state)->InsertAt(FindText, [&](TextBox& box) { box.SetSelText(txt); });
}

int Report::InsertFileRTF(const std::filesystem::path& FileName, std::u16string_view FindText)
{
    FileContents file{FileError::OutOfMemory, {}};
    Attempt([&] { file = ReadFile(FileName); });
    if (file.error != FileError::None)
        return -static_cast<int>(file.error);
    return std::shared_ptr(m_state)->InsertRtf(FindText, [&](TextBox& box) { box.SetSelRTFBytes(file.bytes); });
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
    const std::shared_ptr state = m_state;
    state->Focus();
    int start = state->SelStart();
    int length = state->SelLength();
    const int hiddenLength = static_cast<int>(txth.size());
    state->Try([&](TextBox& box) { box.SetSelText(txth); });
    state->Try([&](TextBox& box) { HideLast(box, txth); });

    state->Try([&](TextBox& box) { box.SetSelStart(start); });
    state->Try([&](TextBox& box) { box.SetSelLength(hiddenLength); });
    std::optional<Colour> colour;
    state->Try([&](const TextBox& box) { colour = box.SelColor(); });
    state->Try([&](TextBox& box) { box.SetSelColor(box.BackColor()); });
    state->Try([&](TextBox& box) { box.SetSelLength(length); });
    state->Try([&](TextBox& box) { box.SetSelStart(start + hiddenLength); });
    if (colour)
        state->Try([&](TextBox& box) { box.SetSelColor(*colour); });

    start = state->SelStart();
    length = state->SelLength();
    const int lineLength = static_cast<int>(LF.size());
    state->Try([&](TextBox& box) { box.SetSelText(LF); });
    state->Try([&](TextBox& box) { box.SetSelStart(start); });
    // The first length is overridden at once: nothing is done with the selection it makes, and hosts see both changes.
    state->Try([&](TextBox& box) { box.SetSelLength(lineLength); });
    state->Try([&](TextBox& box) { box.SetSelLength(length); });
    state->Try([&](TextBox& box) { box.SetSelStart(start + lineLength); });
    const int caret = state->SelStart();
    state->Refresh();
    return caret;
}

std::u16string Report::PreviousField(std::u16string_view Prefix, std::u16string_view Suffix, bool RTFcode)
{
    const std::shared_ptr state = m_state;
    state->Focus();
    state->Lock(true);
    state->redrawEnabled = false;
    std::u16string field;
    int start = state->SelStart();
    const int length = state->SelLength();
    const bool isPossible = !Prefix.empty() && !Suffix.empty();
    if (isPossible && start < 2)
        start = state->Ask(start, [](const TextBox& box) { return box.TextLength(); });
    if (isPossible && RTFcode)
    {
        // The range begins at position 1, not 0: a contract with hosts.
        state->Try([](TextBox& box) { box.SetSelStart(1); });
        state->Try([&](TextBox& box) { box.SetSelLength(start); });
        state->Try([&](const TextBox& box) { field = FieldInSource(box.SelRTF(), Prefix, Suffix); });
    }
    else if (isPossible)
        state->Try([&](const TextBox& box) { field = FieldInText(box.Value(), start, Prefix, Suffix); });
    if (RTFcode)
    {
        state->Try([&](TextBox& box) { box.SetSelStart(start); });
        state->Try([&](TextBox& box) { box.SetSelLength(length); });
    }
    state->EndStep();
    state->Lock(false);
    state->redrawEnabled = true;
    state->Focus();
    return field;
}

}  // namespace quillmarker
