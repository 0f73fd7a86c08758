#include "accessible_events.h"

#include "text_change.h"

#include <QAccessible>
#include <QObject>

namespace quillmarker
{
namespace
{

QString QStringOf(const std::u16string& text) { return QString::fromStdU16String(text); }

/// Belongs to the view it follows.
class ViewFollower : public QObject
{
public:
    explicit ViewFollower(RichTextView& view) : QObject(&view), m_view(view), m_told(view.Box().Value())
    {
        connect(&view, &RichTextView::Change, this, [this] { OnChange(); });
        connect(&view, &RichTextView::SelChange, this, [this] { OnSelChange(); });
    }

private:
    /// Holding the document costs nothing, so that it is known when a screen reader comes later.
    void OnChange()
    {
        const Document before = std::exchange(m_told, m_view.Box().Value());
        if (!QAccessible::isActive())
            return;
        const TextChanges changes = TextChangesBetween(before, m_told);
        if (changes.isEverything)
            return Tell(QAccessible::DocumentContentChanged);
        for (const TextChange& change : changes.changes)
            Tell(change);
    }

    void OnSelChange()
    {
        const bool hadSelection = std::exchange(m_hadSelection, m_view.Box().SelLength() > 0);
        if (!QAccessible::isActive())
            return;
        const int caret = m_view.CaretOffset();
        if (caret != std::exchange(m_toldCaret, caret))
        {
            QAccessibleTextCursorEvent event(&m_view, caret);
            QAccessible::updateAccessibility(&event);
        }
        if (!hadSelection && !m_hadSelection)
            return;
        const int start = m_view.Box().SelStart();
        QAccessibleTextSelectionEvent event(&m_view, start, start + m_view.Box().SelLength());
        event.setCursorPosition(caret);
        QAccessible::updateAccessibility(&event);
    }

    void Tell(const TextChange& change)
    {
        const QString removed = QStringOf(change.removed);
        const QString inserted = QStringOf(change.inserted);
        if (removed.isEmpty() && inserted.isEmpty())
            return Tell(QAccessible::TextAttributeChanged);
        if (!removed.isEmpty() && !inserted.isEmpty())
        {
            QAccessibleTextUpdateEvent event(&m_view, change.at.value, removed, inserted);
            QAccessible::updateAccessibility(&event);
        }
        else if (!removed.isEmpty())
        {
            QAccessibleTextRemoveEvent event(&m_view, change.at.value, removed);
            QAccessible::updateAccessibility(&event);
        }
        else
        {
            QAccessibleTextInsertEvent event(&m_view, change.at.value, inserted);
            QAccessible::updateAccessibility(&event);
        }
    }

    void Tell(QAccessible::Event kind)
    {
        QAccessibleEvent event(&m_view, kind);
        QAccessible::updateAccessibility(&event);
    }

    RichTextView& m_view;
    Document m_told;
    int m_toldCaret = 0;
    bool m_hadSelection = false;
};

}  // namespace

void FollowForAccessibility(RichTextView& view)
{
    new ViewFollower(view);  // the view deletes it
}

}  // namespace quillmarker
