#pragma once

#include "engine/box/attempt.h"

#include <quillmarker/report.h>

#include <optional>

namespace quillmarker
{

/// What Undo goes back to. At first it holds an empty document, so that an Undo before anything else empties the text.
struct UndoSnapshot
{
    std::optional<Document> document;
    int selStart = 0;  // -1: there is no snapshot
    int selLength = 0;
};

/// Handlers of the host run inside of the members and may delete the report: a member holds its state, and the steps that
/// are left find no box and do nothing.
struct Report::State
{
    Report* report = nullptr;  // none when it is gone
    std::unique_ptr<TextBox> ownBox;
    TextBox* box = nullptr;  // none when the report is gone
    ReportHooks noHooks;
    ReportHooks* hooks = &noHooks;
    UndoSnapshot snapshot;
    bool changed = false;
    bool redrawEnabled = false;
    bool isInStep = false;
    int defaultCharset = 0;

    /// Tries a step on the box, if it is still there.
    template <class Step>
    void Try(Step step)
    {
        Attempt([&] {
            if (box)
                step(*box);
        });
    }
    /// What the box says; `otherwise` when it is gone or fails.
    template <class Value, class Read>
    Value Ask(Value otherwise, Read read)
    {
        Try([&](const TextBox& known) { otherwise = read(known); });
        return otherwise;
    }
    int SelStart()
    {
        return Ask(-1, [](const TextBox& known) { return known.SelStart(); });
    }
    int SelLength()
    {
        return Ask(0, [](const TextBox& known) { return known.SelLength(); });
    }

    void Focus()
    {
        Attempt([&] { hooks->FocusText(); });
    }
    void Refresh()
    {
        Attempt([&] { hooks->RefreshUIState(); });
    }
    void Lock(bool locked)
    {
        Attempt([&] { hooks->LockPainting(locked); });
    }

    void OnChange();
    void SaveSnapshot();
    void SetRedraw(bool enabled);
    void BeginStep();
    void EndStep();

    /// Selects the marker; false when it is not found. An empty marker is the selection itself.
    bool SelectMarker(std::u16string_view marker);
    template <class Insert>
    int InsertAt(std::u16string_view marker, Insert insert);
    int InsertRtf(std::u16string_view marker, const std::function<void(TextBox&)>& insert);
    void ResetCharset();
    int Open(const std::filesystem::path& path, FileKind kind);
};

}  // namespace quillmarker
