#pragma once

#include <QFrame>

namespace quillmarker
{

/// A panel that opens over the editor: opaque, with a border of lines, hidden until it is shown. What the mouse does on it
/// does not reach what is under it.
class PickerFrame : public QFrame
{
    Q_OBJECT

public:
    /// The lengths of the screen; 15 twips to a pixel at first. The panel takes the size that its twips are then.
    void SetScale(int twipsPerPixelX, int twipsPerPixelY);

    /// The least height that the panel is of use with.
    virtual int LeastHeight() const = 0;

Q_SIGNALS:
    /// The user wants nothing of it: the text gets the focus.
    void LeaveRequested();
    /// Somebody else has the focus now: every panel is hidden.
    void FocusLost();

protected:
    explicit PickerFrame(QWidget* parent);

    static constexpr int kBorder = 2;  // in pixels

    int PixelsX(int twips) const;
    int PixelsY(int twips) const;
    QPoint TwipsAt(QPointF position) const;
    void TellFocusLost(Qt::FocusReason reason);

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int m_twipsPerPixelX = 15;
    int m_twipsPerPixelY = 15;
};

}  // namespace quillmarker
