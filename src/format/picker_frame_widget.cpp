#include "picker_frame_widget.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

/// Lines along the edges of `area`, which is in pixels of the device.
void DrawEdges(QPainter& painter, const QRect& area, int width, const QColor& topLeft, const QColor& bottomRight)
{
    // The middle of a line as wide as that lies so far inside.
    const qreal inside = width / 2.0;
    const QRectF middle = QRectF(area).adjusted(inside, inside, -inside, -inside);
    painter.setPen(QPen(topLeft, width, Qt::SolidLine, Qt::SquareCap));
    painter.drawLine(middle.topLeft(), middle.topRight());
    painter.drawLine(middle.topLeft(), middle.bottomLeft());
    painter.setPen(QPen(bottomRight, width, Qt::SolidLine, Qt::SquareCap));
    painter.drawLine(middle.bottomLeft(), middle.bottomRight());
    painter.drawLine(middle.topRight(), middle.bottomRight());
}

int Rounded(qreal number) { return static_cast<int>(std::lround(number)); }

}  // namespace

PickerFrame::PickerFrame(QWidget* parent) : QFrame(parent)
{
    hide();
    setAutoFillBackground(true);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void PickerFrame::SetScale(int twipsPerPixelX, int twipsPerPixelY)
{
    m_twipsPerPixelX = std::max(twipsPerPixelX, 1);
    m_twipsPerPixelY = std::max(twipsPerPixelY, 1);
    updateGeometry();
    resize(sizeHint());
    update();
}

int PickerFrame::PixelsX(int twips) const { return Rounded(static_cast<qreal>(twips) / m_twipsPerPixelX); }

int PickerFrame::PixelsY(int twips) const { return Rounded(static_cast<qreal>(twips) / m_twipsPerPixelY); }

QPoint PickerFrame::TwipsAt(QPointF position) const
{
    return {static_cast<int>(std::floor(position.x() * m_twipsPerPixelX)),
            static_cast<int>(std::floor(position.y() * m_twipsPerPixelY))};
}

/// A menu that opens borrows the focus and gives it back.
void PickerFrame::TellFocusLost(Qt::FocusReason reason)
{
    if (reason != Qt::PopupFocusReason)
        Q_EMIT FocusLost();
}

/// The outer edges are seen against whatever is around; the inner ones raise the panel.
void PickerFrame::paintEvent(QPaintEvent* /*event*/)
{
    // Lines are drawn in pixels of the device: then they are crisp whatever the screen's scale is.
    const qreal scale = devicePixelRatioF();
    const int width = std::max(1, static_cast<int>(std::floor(scale)));
    const QRect area(0, 0, static_cast<int>(std::floor(this->width() * scale)),
                     static_cast<int>(std::floor(height() * scale)));
    QPainter painter(this);
    painter.scale(1 / scale, 1 / scale);
    const bool isDark =
        palette().color(QPalette::Window).lightness() < palette().color(QPalette::WindowText).lightness();
    const QColor outer = palette().color(isDark ? QPalette::Light : QPalette::Dark);
    DrawEdges(painter, area, width, outer, outer);
    DrawEdges(painter, area.adjusted(width, width, -width, -width), width,
              palette().color(isDark ? QPalette::Midlight : QPalette::Light),
              palette().color(isDark ? QPalette::Dark : QPalette::Mid));
}

void PickerFrame::mousePressEvent(QMouseEvent* event) { event->accept(); }

void PickerFrame::mouseMoveEvent(QMouseEvent* event) { event->accept(); }

void PickerFrame::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }

void PickerFrame::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

void PickerFrame::wheelEvent(QWheelEvent* event) { event->accept(); }

}  // namespace quillmarker
