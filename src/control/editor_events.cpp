#include "clipboard_cleaning.h"
#include "editor_state.h"
#include "engine/view/paint_lock.h"
#include "key_policy.h"
#include "status_bar_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace quillmarker
{

void EditorState::OnChange()
{
    if (report)
        report->BoxChanged();
}

/// The picture keywords of the selection are part of what a refresh looks at, but nothing is made of them: their source
/// is not written out for it.
void EditorState::RefreshUIState()
{
    if (refreshActive)
        return;
    const auto held = shared_from_this();
    refreshActive = true;
    Try([&] { parts->UpdateCharacterButtons(); });
    Try([&] { parts->UpdateParagraphButtons(); });
    DrawRuler(RulerReading::Reread);
    Try([&] { statusBar->SetOverwrites(engine->Overwrites()); });
    refreshActive = false;
}

void EditorState::DrawRuler(RulerReading reading)
{
    if (reading == RulerReading::Reread)
        labelStep = inches ? 1440 : 567;
    Try([&] { parts->DrawRuler(reading); });
}

void EditorState::HidePopups()
{
    Try([&] { parts->HidePopups(); });
}

void EditorState::FocusText()
{
    Try([&] { engine->setFocus(Qt::OtherFocusReason); });
}

/// Letting go of the lock lets go of whichever view of the process holds it.
void EditorState::LockPainting(bool locked)
{
    Try([&] {
        if (locked)
            engine->LockPainting();
        else
            PaintLock::OfTheProcess().Unlock();
    });
}

void EditorState::PropertyChanged(std::u16string_view key)
{
    Try([&] { Q_EMIT editor->PropertyChanged(QString::fromUtf16(key.data(), static_cast<qsizetype>(key.size()))); });
}

/// What a user may not write he may not format either.
bool EditorState::MayFormat() const
{
    bool may = false;
    Attempt([&] {
        const TextBox* box = editor && engine ? &engine->Box() : nullptr;
        may = box && !box->Locked() && (box->SelLength() == 0 || box->SelProtected() == false);
    });
    return may;
}

void EditorState::Toggle(KeyPolicy policy)
{
    TextBox& box = engine->Box();
    // A mixed selection is set.
    const auto isOn = [](const std::optional<bool>& value) { return value.value_or(false); };
    formatCommands.WrapEmptySelection(true);
    Try([&] {
        switch (policy)
        {
        case KeyPolicy::ToggleBold:
            return box.SetSelBold(!isOn(box.SelBold()));
        case KeyPolicy::ToggleItalic:
            return box.SetSelItalic(!isOn(box.SelItalic()));
        case KeyPolicy::ToggleUnderline:
            return box.SetSelUnderline(!isOn(box.SelUnderline()));
        case KeyPolicy::Swallow:
        case KeyPolicy::Copy:
            return;
        }
    });
    formatCommands.WrapEmptySelection(false);
}

void EditorState::OnKeyDown(const QKeyEvent& event, bool& swallow)
{
    const std::optional<KeyPolicy> policy = PolicyOf(event.key(), event.modifiers());
    if (!policy)
        return;
    swallow = true;
    // The selection is on the clipboard before its clean-up when the key is let go.
    if (*policy == KeyPolicy::Copy)
        Try([&] { engine->RichTextView::Copy(); });
    else if (*policy != KeyPolicy::Swallow && MayFormat())
        Toggle(*policy);
}

void EditorState::OnKeyUp(const QKeyEvent& event, bool& swallow)
{
    const bool endsCopy = EndsCopy(event.key(), event.modifiers());
    RefreshUIState();
    bool hasSelection = false;
    Try([&] { hasSelection = engine->SelLength() > 0; });
    if (!endsCopy || !hasSelection)
        return;
    Try([&] { CleanClipboard(*services.clipboard, *services.pendingEvents); });
    swallow = true;
}

void EditorState::OnMouseDown(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton)
        Try([&] { Q_EMIT editor->RClick(); });
}

}  // namespace quillmarker
