#pragma once

#include "picker_combo_widget.h"

namespace quillmarker
{

/// "cfName", the combo of font families. Letters search in its list.
class FontNameCombo : public PickerCombo
{
    Q_OBJECT

public:
    explicit FontNameCombo(QWidget* parent = nullptr);

    /// What is shown stays if it is among them.
    void SetNames(const QStringList& names);

    /// Shows the first of the first `count` names that equals `name`, case ignored. Where there is none what is shown stays,
    /// and the answer is false. Costs the same however many names there are.
    bool Select(const QString& name, int count);
    bool Select(const QString& name);
    /// Shows none.
    void Blank();

    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace quillmarker
