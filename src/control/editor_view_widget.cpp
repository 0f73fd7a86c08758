#include "editor_view_widget.h"

#include "editor_state.h"
#include "key_policy.h"

#include <QKeyEvent>

namespace quillmarker
{

EditorView::EditorView(EditorState& state, QWidget* parent) : RichTextView(parent), m_state(state) {}

/// A command may end with the control, and this view, deleted.
template <class Command>
void EditorView::Run(Command command)
{
    const std::shared_ptr<EditorState> held = m_state.shared_from_this();
    command(*held);
}

void EditorView::Cut()
{
    Run([](EditorState& state) { state.Cut(); });
}

void EditorView::Copy()
{
    Run([](EditorState& state) { state.Copy(); });
}

void EditorView::Paste()
{
    Run([](EditorState& state) { state.Paste(); });
}

void EditorView::Clear()
{
    Run([](EditorState& state) { state.Delete(); });
}

void EditorView::Undo()
{
    Run([](EditorState& state) { state.report->Undo(); });
}

/// A key that the control keeps from the text is still the host's: a shortcut of the host's own wins.
bool EditorView::event(QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return RichTextView::event(event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (!PolicyOf(key->key(), key->modifiers()))
        return RichTextView::event(event);
    event->ignore();
    return false;
}

}  // namespace quillmarker
