#pragma once

#include "content/attempt.h"

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

struct Report::State
{
    explicit State(Report& owner) : report(owner) {}

    Report& report;
    TextBox box;
    ReportHooks noHooks;
    ReportHooks* hooks = &noHooks;
    UndoSnapshot snapshot;
    bool changed = false;
    bool redrawEnabled = false;
    bool isInStep = false;
    int defaultCharset = 0;

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
    void BeginStep();
    void EndStep();

    /// Selects the marker; false when it is not found. An empty marker is the selection itself.
    bool SelectMarker(std::u16string_view marker);
    template <class Insert>
    int InsertAt(std::u16string_view marker, Insert insert);
    void ResetCharset();
    int Open(const std::filesystem::path& path, FileKind kind);
};

}  // namespace quillmarker
