#include "picker_combo_widget.h"

#include "picker_list_widget.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QWheelEvent>

namespace quillmarker
{
namespace
{

/// F4, the space bar and Alt+Down open a list and do nothing in it.
bool OnlyOpens(const QKeyEvent& event)
{
    return event.key() == Qt::Key_F4 || event.key() == Qt::Key_Space || event.modifiers().testFlag(Qt::AltModifier);
}

/// Keys with which a combo would take another entry.
bool OpensAnyList(const QKeyEvent& event)
{
    switch (event.key())
    {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_F4:
        // With Alt it closes the window.
        return event.modifiers() == Qt::NoModifier;
    default:
        return false;
    }
}

}  // namespace

PickerCombo::PickerCombo(const QString& name, QWidget* parent) : QComboBox(parent)
{
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    // Its width is given; thousands of entries are not measured for it.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setView(new EntryList(this));
    setModel(&m_entries);
    connect(this, &QComboBox::textActivated, this, &PickerCombo::Clicked);
}

void PickerCombo::SetEntries(const QStringList& entries, const FontNameIndex& index)
{
    hidePopup();
    m_index = index;
    m_entries.setStringList(entries);
    setCurrentIndex(-1);
}

void PickerCombo::OpenWith(QKeyEvent& event)
{
    event.accept();
    showPopup();
    if (OnlyOpens(event))
        return;
    QKeyEvent inList(event.type(), event.key(), event.modifiers(), event.text());
    QCoreApplication::sendEvent(view(), &inList);
}

void PickerCombo::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT LeaveRequested();
    else if (OpensAnyList(*event))
        OpenWith(*event);
    else
        QComboBox::keyPressEvent(event);
}

void PickerCombo::wheelEvent(QWheelEvent* event) { event->ignore(); }

/// A list or a menu that opens borrows the focus, and so does another window: both give it back.
void PickerCombo::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    const bool isBorrowed = view()->isVisible() || event->reason() == Qt::PopupFocusReason ||
                            event->reason() == Qt::ActiveWindowFocusReason;
    if (!isBorrowed)
        Q_EMIT FocusLost();
}

}  // namespace quillmarker
