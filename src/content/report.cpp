#include <quillmarker/report.h>
#include <quillmarker/rtf.h>

#include "content/report_state.h"
#include "engine/box/document_loading.h"

#include <algorithm>

namespace quillmarker
{

Report::Report() : m_state(std::make_shared<State>())
{
    m_state->report = this;
    m_state->ownBox = std::make_unique<TextBox>();
    m_state->box = m_state->ownBox.get();
    m_state->box->Change = [state = std::weak_ptr(m_state)] {
        if (const auto held = state.lock())
            held->OnChange();
    };
    m_state->defaultCharset = m_state->box->Font().charset;
}

Report::Report(TextBox& box) : m_state(std::make_shared<State>())
{
    m_state->report = this;
    m_state->box = &box;
    m_state->defaultCharset = box.Font().charset;
}

Report::~Report()
{
    m_state->report = nullptr;
    m_state->box = nullptr;
    m_state->hooks = &m_state->noHooks;
    m_state->ownBox.reset();
}

TextBox& Report::Box() { return *m_state->box; }

const TextBox& Report::Box() const { return *m_state->box; }

void Report::BoxChanged() { std::shared_ptr(m_state)->OnChange(); }

void Report::SetHooks(ReportHooks* hooks) { m_state->hooks = hooks ? hooks : &m_state->noHooks; }

/// The host's handler sees Changed as it was before.
void Report::State::OnChange()
{
    Attempt([&] {
        if (const std::function<void()> handler = report ? report->Change : nullptr)
            handler();
    });
    changed = true;
    if (redrawEnabled)
        snapshot.selStart = -1;
}

void Report::State::BeginStep()
{
    if (!std::exchange(isInStep, true))
        Try([](TextBox& known) { known.BeginStep(); });
}

void Report::State::EndStep()
{
    if (std::exchange(isInStep, false))
        Try([](TextBox& known) { known.EndStep(); });
}

void Report::State::SaveSnapshot()
{
    Try([&](const TextBox& known) { snapshot = {known.Value(), known.SelStart(), known.SelLength()}; });
}

void Report::State::SetRedraw(bool enabled)
{
    if (enabled)
        EndStep();
    else
    {
        SaveSnapshot();
        BeginStep();
    }
    Lock(!enabled);
    redrawEnabled = enabled;
    Attempt([&] { hooks->PropertyChanged(u"Redraw"); });
}

std::u16string Report::TextString()
{
    const std::shared_ptr state = m_state;
    state->Focus();
    return state->Ask(std::u16string(), [](const TextBox& box) { return box.Text(); });
}

std::u16string Report::RTFString()
{
    const std::shared_ptr state = m_state;
    state->Focus();
    return state->Ask(std::u16string(), [](const TextBox& box) { return box.TextRTF(); });
}

void Report::SelectText(int& start, int& finish)
{
    const std::shared_ptr state = m_state;
    state->Focus();
    const int length = state->Ask(0, [](const TextBox& box) { return box.TextLength(); });
    start = std::min(start, length);
    finish = std::min(finish, length);
    state->Try([&](TextBox& box) { box.SetSelStart(start); });
    const std::int64_t wanted = std::int64_t{finish == -1 ? length : finish} - start;
    const bool isLength = wanted == static_cast<int>(wanted);  // else the step fails and is skipped
    if (isLength)
        state->Try([&](TextBox& box) { box.SetSelLength(static_cast<int>(wanted)); });
}

void Report::CursorStart()
{
    const std::shared_ptr state = m_state;
    state->Focus();
    state->Try([](TextBox& box) { box.SetSelStart(0); });
    state->Try([](TextBox& box) { box.SetSelLength(0); });
}

void Report::CursorEnd()
{
    constexpr int kBeyondAnyText = 2'147'483'600;
    const std::shared_ptr state = m_state;
    state->Focus();
    state->Try([](TextBox& box) { box.SetSelStart(kBeyondAnyText); });
    state->Try([](TextBox& box) { box.SetSelLength(0); });
}

void Report::Clear()
{
    const std::shared_ptr state = m_state;
    state->Focus();
    state->SetRedraw(false);
    state->Try([](TextBox& box) { box.SetText(u""); });
    state->SetRedraw(true);
}

/// The restore happens while Redraw is false, so the snapshot taken at its begin survives and a second Undo goes back.
void Report::Undo()
{
    const std::shared_ptr state = m_state;
    state->Focus();
    if (state->snapshot.selStart < 0)
        return state->Try([](TextBox& box) { box.Undo(); });
    const UndoSnapshot saved = state->snapshot;
    state->SetRedraw(false);
    state->Try([&](TextBox& box) {
        if (saved.document)
            box.SetValue(*saved.document);
        else
            box.SetText(u"");
    });
    state->Try([&](TextBox& box) { box.SetSelStart(saved.selStart); });
    state->Try([&](TextBox& box) { box.SetSelLength(saved.selLength); });
    state->SetRedraw(true);
}

bool Report::Redraw() const { return m_state->redrawEnabled; }

void Report::SetRedraw(bool enabled) { std::shared_ptr(m_state)->SetRedraw(enabled); }

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

void Report::SaveUndoSnapshot() { m_state->SaveSnapshot(); }

void Report::DropUndoSnapshot() { m_state->snapshot.selStart = -1; }

int Report::DefaultCharset() const { return m_state->defaultCharset; }

void Report::SetDefaultCharset(int charset) { m_state->defaultCharset = charset; }

int Report::State::Open(const std::filesystem::path& path, FileKind kind)
{
    FileError error = FileError::OutOfMemory;
    std::optional<Document> opened;
    Try([&](const TextBox& known) {
        LoadedDocument loaded = LoadDocument(path, kind, known.Font());
        error = loaded.error;
        opened = std::move(loaded.document);
    });
    if (!opened)
        return static_cast<int>(error);
    Focus();
    Try([&](TextBox& known) { known.OpenValue(*opened); });
    snapshot.selStart = -1;
    changed = false;
    Refresh();
    return 0;
}

int Report::OpenFileRTF(const std::filesystem::path& FileName)
{
    return std::shared_ptr(m_state)->Open(FileName, FileKind::Rtf);
}

int Report::OpenFileText(const std::filesystem::path& FileName)
{
    return std::shared_ptr(m_state)->Open(FileName, FileKind::Text);
}

int Report::SaveFileRTF(const std::filesystem::path& FileName)
{
    const std::shared_ptr state = m_state;
    state->Focus();
    FileError error = FileError::OutOfMemory;
    state->Try([&](const TextBox& box) { error = box.SaveFile(FileName); });
    if (error == FileError::None)
        state->changed = false;
    return static_cast<int>(error);
}

}  // namespace quillmarker
