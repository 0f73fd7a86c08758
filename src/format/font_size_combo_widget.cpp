#include "font_size_combo_widget.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace quillmarker
{
namespace
{

constexpr int kRows = 18;
// The room that a line of text leaves on its left and right: the combo is narrow, and "10.5" is to be seen whole.
constexpr int kSpareRoom = 2;

}  // namespace

FontSizeCombo::FontSizeCombo(QWidget* parent) : PickerCombo(QStringLiteral("cfSize"), parent)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setMaxVisibleItems(kRows);
    // Qt would pick the entry that equals the text when the focus goes; a text is handed over by Enter alone.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    lineEdit()->setTextMargins(-kSpareRoom, 0, -kSpareRoom, 0);
    lineEdit()->installEventFilter(this);
}

void FontSizeCombo::SetSizes(const QStringList& sizes)
{
    const QString shown = currentText();
    QStringList trimmed;
    for (const QString& size : sizes)
        trimmed.append(size.trimmed());
    SetEntries(sizes, FontNameIndex(trimmed));
    ShowText(shown);
}

/// The list opens on the entry that is shown. A text that is there already keeps its caret and its selection.
void FontSizeCombo::ShowText(const QString& text)
{
    const QString before = currentText();
    const int row = Index().Find(text.trimmed()).value_or(-1);
    if (before == text && currentIndex() == row)
        return;
    setCurrentIndex(row);
    setEditText(text);
}

bool FontSizeCombo::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease && m_selectsOnRelease)
    {
        m_selectsOnRelease = false;
        if (!lineEdit()->hasSelectedText())
            lineEdit()->selectAll();
    }
    return PickerCombo::eventFilter(watched, event);
}

void FontSizeCombo::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter)
        Q_EMIT Clicked(currentText());
    else
        PickerCombo::keyPressEvent(event);
}

/// It had the focus all the time when a menu, its list or another window gives it back.
void FontSizeCombo::focusInEvent(QFocusEvent* event)
{
    PickerCombo::focusInEvent(event);
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
        return;
    lineEdit()->selectAll();
    m_selectsOnRelease = event->reason() == Qt::MouseFocusReason;
}

void FontSizeCombo::focusOutEvent(QFocusEvent* event)
{
    m_selectsOnRelease = false;
    PickerCombo::focusOutEvent(event);
}

}  // namespace quillmarker
