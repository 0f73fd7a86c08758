#include "view_state.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>

namespace quillmarker
{
namespace
{

/// A row of the context menu; without a name it is a line between others.
struct VerbRow
{
    const char* name = nullptr;  // the action's objectName
    const char* text = nullptr;
    QKeySequence::StandardKey key = QKeySequence::UnknownKey;
    void (RichTextView::*run)() = nullptr;
    bool (*isEnabled)(const RichTextView&) = nullptr;
};

bool MayEdit(const RichTextView& view) { return !view.Locked(); }
bool HasSelection(const RichTextView& view) { return view.SelLength() > 0; }

constexpr VerbRow kVerbs[] = {
    {"Undo", QT_TRANSLATE_NOOP("quillmarker::RichTextView", "&Undo"), QKeySequence::Undo, &RichTextView::Undo,
     [](const RichTextView& view) { return MayEdit(view) && view.Box().CanUndo(); }},
    {"Redo", QT_TRANSLATE_NOOP("quillmarker::RichTextView", "&Redo"), QKeySequence::Redo, &RichTextView::Redo,
     [](const RichTextView& view) { return MayEdit(view) && view.Box().CanRedo(); }},
    {},
    {"Cut", QT_TRANSLATE_NOOP("quillmarker::RichTextView", "Cu&t"), QKeySequence::Cut, &RichTextView::Cut,
     [](const RichTextView& view) { return MayEdit(view) && HasSelection(view); }},
    {"Copy", QT_TRANSLATE_NOOP("quillmarker::RichTextView", "&Copy"), QKeySequence::Copy, &RichTextView::Copy,
     HasSelection},
    {"Paste", QT_TRANSLATE_NOOP("quillmarker::RichTextView", "&Paste"), QKeySequence::Paste, &RichTextView::Paste,
     [](const RichTextView& view) { return view.CanPaste(); }},
    {"Clear", QT_TRANSLATE_NOOP("quillmarker::RichTextView", "&Delete"), QKeySequence::Delete, &RichTextView::Clear,
     [](const RichTextView& view) { return MayEdit(view) && HasSelection(view); }},
    {},
    {"SelectAll", QT_TRANSLATE_NOOP("quillmarker::RichTextView", "Select &All"), QKeySequence::SelectAll,
     &RichTextView::SelectAll, [](const RichTextView& view) { return view.Box().TextLength() > 0; }},
};

}  // namespace

void RichTextView::contextMenuEvent(QContextMenuEvent* event)
{
    if (!m_state->hasVerbMenu)
        return event->ignore();
    // Pressed elsewhere than on the selection, the caret goes there first; the key leaves it where it is.
    const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
    event->accept();
    const QPointer<RichTextView> alive(this);
    if (isByMouse && !m_state->IsOnSelection(event->pos()))
        SelectFromTo(PositionAt(event->pos()), PositionAt(event->pos()));
    if (!alive)
        return;
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("AutoVerbMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const VerbRow& row : kVerbs)
    {
        if (!row.name)
        {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(tr(row.text));
        action->setObjectName(QLatin1String(row.name));
        action->setShortcut(row.key);
        action->setEnabled(row.isEnabled(*this));
        connect(action, &QAction::triggered, this, row.run);
    }
    menu->popup(isByMouse ? event->globalPos() : viewport()->mapToGlobal(CaretRectangle().bottomLeft()));
}

}  // namespace quillmarker
