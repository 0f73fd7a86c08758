#include <quillmarker/report.h>
#include <quillmarker/rtf.h>

#include "content/report_state.h"

#include <algorithm>

namespace quillmarker
{

Report::Report() : m(std::make_unique<State>(*this))
{
    m->box.Change = [this] { m->OnChange(); };
    m->defaultCharset = m->box.Font().charset;
}

Report::~Report() = default;

TextBox& Report::Box() { return m->box; }

const TextBox& Report::Box() const { return m->box; }

void Report::SetHooks(ReportHooks* hooks) { m->hooks = hooks ? hooks : &m->noHooks; }

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
    m->Focus();
    std::u16string text;
    Attempt([&] { text = m->box.Text(); });
    return text;
}

std::u16string Report::RTFString()
{
    m->Focus();
    std::u16string rtf;
    Attempt([&] { rtf = m->box.TextRTF(); });
    return rtf;
}

void Report::SelectText(int& start, int& finish)
{
    m->Focus();
    const int length = m->box.TextLength();
    start = std::min(start, length);
    finish = std::min(finish, length);
    Attempt([&] { m->box.SetSelStart(start); });
    Attempt([&] { m->box.SetSelLength(finish == -1 ? length - start : finish - start); });
}

void Report::CursorStart()
{
    m->Focus();
    Attempt([&] { m->box.SetSelStart(0); });
    Attempt([&] { m->box.SetSelLength(0); });
}

void Report::CursorEnd()
{
    constexpr int kBeyondAnyText = 2'147'483'600;
    m->Focus();
    Attempt([&] { m->box.SetSelStart(kBeyondAnyText); });
    Attempt([&] { m->box.SetSelLength(0); });
}

void Report::Clear()
{
    m->Focus();
    SetRedraw(false);
    Attempt([&] { m->box.SetText(u""); });
    SetRedraw(true);
}

/// The restore happens while Redraw is false, so the snapshot taken at its begin survives and a second Undo goes back.
void Report::Undo()
{
    m->Focus();
    if (m->snapshot.selStart < 0)
        return Attempt([&] { m->box.Undo(); });
    const UndoSnapshot saved = m->snapshot;
    SetRedraw(false);
    Attempt([&] {
        if (saved.document)
            m->box.SetValue(*saved.document);
        else
            m->box.SetText(u"");
    });
    Attempt([&] { m->box.SetSelStart(saved.selStart); });
    Attempt([&] { m->box.SetSelLength(saved.selLength); });
    SetRedraw(true);
}

bool Report::Redraw() const { return m->redrawEnabled; }

void Report::SetRedraw(bool enabled)
{
    if (enabled)
        Attempt([&] { m->EndStep(); });
    else
    {
        Attempt([&] { SaveUndoSnapshot(); });
        Attempt([&] { m->BeginStep(); });
    }
    m->Lock(!enabled);
    m->redrawEnabled = enabled;
    Attempt([&] { m->hooks->PropertyChanged(u"Redraw"); });
}

bool Report::Changed() const { return m->changed; }

void Report::SetChanged(bool changed) { m->changed = changed; }

std::u16string Report::UndoRTF() const
{
    std::u16string rtf;
    Attempt([&] {
        if (!m->snapshot.document)
            return;
        const std::string bytes = WriteRtf(*m->snapshot.document);
        rtf.assign(bytes.begin(), bytes.end());
    });
    return rtf;
}

int Report::UndoSelStart() const { return m->snapshot.selStart; }

int Report::UndoSelLength() const { return m->snapshot.selLength; }

void Report::SaveUndoSnapshot() { m->snapshot = {m->box.Value(), m->box.SelStart(), m->box.SelLength()}; }

void Report::DropUndoSnapshot() { m->snapshot.selStart = -1; }

int Report::DefaultCharset() const { return m->defaultCharset; }

void Report::SetDefaultCharset(int charset) { m->defaultCharset = charset; }

int Report::State::Open(const std::filesystem::path& path, FileKind kind)
{
    FileError error = FileError::OutOfMemory;
    Focus();
    Attempt([&] { error = box.LoadFile(path, kind); });
    if (error != FileError::None)
        return static_cast<int>(error);
    snapshot.selStart = -1;
    changed = false;
    Refresh();
    return 0;
}

int Report::OpenFileRTF(const std::filesystem::path& FileName) { return m->Open(FileName, FileKind::Rtf); }

int Report::OpenFileText(const std::filesystem::path& FileName) { return m->Open(FileName, FileKind::Text); }

int Report::SaveFileRTF(const std::filesystem::path& FileName)
{
    m->Focus();
    FileError error = FileError::OutOfMemory;
    Attempt([&] { error = m->box.SaveFile(FileName); });
    if (error == FileError::None)
        m->changed = false;
    return static_cast<int>(error);
}

}  // namespace quillmarker
