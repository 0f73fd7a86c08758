#pragma once

#include "format/toolbar_layout.h"

#include <QPointer>
#include <QToolBar>

#include <array>
#include <string_view>

class QMenu;
class QToolButton;

namespace quillmarker
{

class ToolButton;

/// The formatting toolbar: the buttons of the table from left to right and, where the window is too narrow for all, a
/// button at the end whose menu holds the rest. The keyboard reaches one button at a time, arrows lead to the others.
class FormatToolbar : public QToolBar
{
    Q_OBJECT

public:
    explicit FormatToolbar(QWidget* parent);

    /// The lengths of the screen, in twips to a pixel across and down; 15 at first.
    void SetScale(QSizeF twipsPerPixel);

    /// Null for a key without a button of its own (the placeholders have none).
    ToolButton* Button(std::string_view key) const;
    /// Where the button or placeholder with that key is shown, in the toolbar's pixels; empty where it has no room.
    QRect Slot(std::string_view key) const;
    /// The same, and for what has no room the button that leads to it.
    QRect Anchor(std::string_view key) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A button was clicked by mouse, key, menu or screen reader; `value` is its Value after the click.
    void ButtonClick(const QString& key, int value);
    /// The mouse was pressed somewhere on the toolbar.
    void MousePressed(const QPoint& position);
    /// A button that opens a picker was clicked otherwise than by the mouse.
    void PickerRequested(const QString& key);
    /// Escape: the text is to have the focus.
    void LeaveRequested();
    /// The buttons stand elsewhere.
    void ButtonsMoved();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeButton(std::size_t row);
    void Click(ToolButton& button);
    void PlaceButtons();
    void MoveFocus(ToolButton& from, int by);
    void SetTabStop(ToolButton* button);
    void FillMoreMenu();
    QRect SlotAt(std::size_t row) const;

    ToolbarMetrics m_metrics;
    int m_buttonHeight = 22;
    ToolbarLayout m_layout;
    std::array<ToolButton*, kToolbarButtons.size()> m_buttons{};  // none for separators and placeholders
    QToolButton* m_more;
    QMenu* m_moreMenu;
    QPointer<ToolButton> m_tabStop;
    QPointer<ToolButton> m_pressedByMouse;
};

}  // namespace quillmarker
