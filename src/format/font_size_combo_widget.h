#pragma once

#include "picker_combo_widget.h"

namespace quillmarker
{

/// "cfSize", the combo of font sizes. Any text may be entered; Enter hands it over as it is. Whoever comes to it finds all
/// of its text selected.
class FontSizeCombo : public PickerCombo
{
    Q_OBJECT

public:
    explicit FontSizeCombo(QWidget* parent = nullptr);

    /// The entries of its list, each as it was given. The text stays.
    void SetSizes(const QStringList& sizes);
    void ShowText(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool m_selectsOnRelease = false;  // the press that gave it the focus has put the caret somewhere
};

}  // namespace quillmarker
