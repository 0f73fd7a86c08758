#include <quillmarker/report.h>
#include <quillmarker/rtf.h>

#include "content/report_state.h"
#include "engine/box/document_loading.h"

#include <algorithm>

namespace quillmarker
{

Report::Report() : m_state(std::make_unique<State>(*this))
{
    m_state->box.Change = [this] { m_state->OnChange(); };
    m_state->defaultCharset = m_state->box.Font().charset;
}

Report::~Report() = default;

TextBox& Report::Box() { return m_state->box; }

const TextBox& Report::Box() const { return m_state->box; }

void Report::SetHooks(ReportHooks* hooks) { m_state->hooks = hooks ? hooks : &m_state->noHooks; }

/// The host's handler sees Changed as it was before.
void Report::State::OnChange()
{
    Attempt([&] {
        if (const std::function<void()> handler = report.Change)
            handler();
    });
    changed = true;
    if (redrawEnabled)
        snapshot.selStart = -1;
}

void Report::State::BeginStep()
{
    if (!std::exchange(isInStep, true))
        box.BeginStep();
}

void Report::State::EndStep()
{
    if (std::exchange(isInStep, false))
        box.EndStep();
}

std::u16string Report::TextString()
{
    m_state->Focus();
    std::u16string text;
    Attempt([&] { text = m_state->box.Text(); });
    return text;
}

std::u16string Report::RTFString()
{
    m_state->Focus();
    std::u16string rtf;
    Attempt([&] { rtf = m_state->box.TextRTF(); });
    return rtf;
}

void Report::SelectText(int& start, int& finish)
{
    m_state->Focus();
    const int length = m_state->box.TextLength();
    start = std::min(start, length);
    finish = std::min(finish, length);
    Attempt([&] { m_state->box.SetSelStart(start); });
    const std::int64_t wanted = std::int64_t{finish == -1 ? length : finish} - start;
    const bool isLength = wanted == static_cast<int>(wanted);  // else the step fails and is skipped
    if (isLength)
        Attempt([&] { m_state->box.SetSelLength(static_cast<int>(wanted)); });
}

void Report::CursorStart()
{
    m_state->Focus();
    Attempt([&] { m_state->box.SetSelStart(0); });
    Attempt([&] { m_state->box.SetSelLength(0); });
}

void Report::CursorEnd()
{
    constexpr int kBeyondAnyText = 2'147'483'600;
    m_state->Focus();
    Attempt([&] { m_state->box.SetSelStart(kBeyondAnyText); });
    Attempt([&] { m_state->box.SetSelLength(0); });
}

void Report::Clear()
{
    m_state->Focus();
    SetRedraw(false);
    Attempt([&] { m_state->box.SetText(u""); });
    SetRedraw(true);
}

/// The restore happens while Redraw is false, so the snapshot taken at its begin survives and a second Undo goes back.
void Report::Undo()
{
    m_state->Focus();
    if (m_state->snapshot.selStart < 0)
        return Attempt([&] { m_state->box.Undo(); });
    const UndoSnapshot saved = m_state->snapshot;
    SetRedraw(false);
    Attempt([&] {
        if (saved.document)
            m_state->box.SetValue(*saved.document);
        else
            m_state->box.SetText(u"");
    });
    Attempt([&] { m_state->box.SetSelStart(saved.selStart); });
    Attempt([&] { m_state->box.SetSelLength(saved.selLength); });
    SetRedraw(true);
}

bool Report::Redraw() const { return m_state->redrawEnabled; }

void Report::SetRedraw(bool enabled)
{
    if (enabled)
        Attempt([&] { m_state->EndStep(); });
    else
    {
        Attempt([&] { SaveUndoSnapshot(); });
        Attempt([&] { m_state->BeginStep(); });
    }
    m_state->Lock(!enabled);
    m_state->redrawEnabled = enabled;
    Attempt([&] { m_state->hooks->PropertyChanged(u"Redraw"); });
}

bool Report::Changed() const { return m_state->changed; }

void Report::SetChanged(bool changed) { m_state->changed = changed; }

std::u16string Report::UndoRTF() const
{
    std::u16string rtf;
    Attempt([&] {
        if (!m_state->snapshot.document)
            return;
        const std::string bytes = WriteRtf(*m_state->snapshot.document);
        rtf.assign(bytes.begin(), bytes.end());
    });
    return rtf;
}

int Report::UndoSelStart() const { return m_state->snapshot.selStart; }

int Report::UndoSelLength() const { return m_state->snapshot.selLength; }

void Report::SaveUndoSnapshot()
{
    m_state->snapshot = {m_state->box.Value(), m_state->box.SelStart(), m_state->box.SelLength()};
}

void Report::DropUndoSnapshot() { m_state->snapshot.selStart = -1; }

int Report::DefaultCharset() const { return m_state->defaultCharset; }

void Report::SetDefaultCharset(int charset) { m_state->defaultCharset = charset; }

int Report::State::Open(const std::filesystem::path& path, FileKind kind)
{
    FileError error = FileError::OutOfMemory;
    std::optional<Document> opened;
    Attempt([&] {
        LoadedDocument loaded = LoadDocument(path, kind, box.Font());
        error = loaded.error;
        opened = std::move(loaded.document);
    });
    if (!opened)
        return static_cast<int>(error);
    Focus();
    Attempt([&] { box.OpenValue(*opened); });
    snapshot.selStart = -1;
    changed = false;
    Refresh();
    return 0;
}

int Report::OpenFileRTF(const std::filesystem::path& FileName) { return m_state->Open(FileName, FileKind::Rtf); }

int Report::OpenFileText(const std::filesystem::path& FileName) { return m_state->Open(FileName, FileKind::Text); }

int Report::SaveFileRTF(const std::filesystem::path& FileName)
{
    m_state->Focus();
    FileError error = FileError::OutOfMemory;
    Attempt([&] { error = m_state->box.SaveFile(FileName); });
    if (error == FileError::None)
        m_state->changed = false;
    return static_cast<int>(error);
}

}  // namespace quillmarker
