#pragma once

#include "format/toolbar_table.h"

#include <QToolButton>

namespace quillmarker
{

/// A button of the toolbar: pressed, released, or neither, which it shows by shape and not by colour alone.
class ToolButton : public QToolButton
{
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE SetValue)
    Q_PROPERTY(bool MixedState READ MixedState WRITE SetMixedState)

public:
    ToolButton(const ToolbarButton& row, QWidget* parent);

    const ToolbarButton& Row() const { return m_row; }
    QString Key() const { return QLatin1String(m_row.key.data(), static_cast<qsizetype>(m_row.key.size())); }

    /// 1 pressed, 0 released.
    int Value() const { return isChecked() ? 1 : 0; }
    void SetValue(int value);
    bool MixedState() const { return m_isMixed; }
    void SetMixedState(bool mixed);

    /// Texts and image anew, for another language or palette.
    void TakeTexts();
    void TakeImage();

Q_SIGNALS:
    /// A key that leads to another button (by so many), or, with 0, back to the text.
    void MoveRequested(int by);

protected:
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void PaintState(QPainter& painter) const;

    const ToolbarButton& m_row;
    bool m_isMixed = false;
};

}  // namespace quillmarker
