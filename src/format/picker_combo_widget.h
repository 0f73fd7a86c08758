#pragma once

#include "font_name_index.h"
#include "picker_items.h"

#include <QComboBox>

namespace quillmarker
{

/// A combo of the toolbar. Picking hands the focus to the text, so nothing that only browses picks: keys that would change
/// a combo open its list and go on in there, and the wheel is left to whatever is around.
class PickerCombo : public QComboBox
{
    Q_OBJECT

Q_SIGNALS:
    /// The user picked an entry, the one that is shown or another.
    void Clicked(const QString& text);
    /// Escape: the text gets the focus.
    void LeaveRequested();
    /// Another widget of the window has the focus.
    void FocusLost();

protected:
    PickerCombo(const QString& name, QWidget* parent);

    PickerItems& Entries() { return m_entries; }
    const FontNameIndex& Index() const { return m_index; }
    /// None of them is shown.
    void SetEntries(const QStringList& entries, const FontNameIndex& index);

    /// Opens the list, and presses the key in it if it does more than that.
    void OpenWith(QKeyEvent& event);

    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    PickerItems m_entries;
    FontNameIndex m_index;
};

}  // namespace quillmarker
