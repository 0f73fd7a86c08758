#pragma once

#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QTransform>

#include <vector>

namespace quillmarker
{

/// Where a list of twips falls on a painter, and what of it can be seen. All results are in the painter's coordinates.
class PaintSurface
{
public:
    PaintSurface(QPainter& painter, QPointF origin, qreal scale);
    ~PaintSurface();
    PaintSurface(const PaintSurface&) = delete;
    PaintSurface& operator=(const PaintSurface&) = delete;

    QPainter& Painter() const { return m_painter; }
    qreal Scale() const { return m_scale; }

    QPointF Mapped(QPointF twips) const { return m_origin + twips * m_scale; }
    QRectF Mapped(const QRectF& twips) const { return {Mapped(twips.topLeft()), twips.size() * m_scale}; }

    /// What can be seen at all; everywhere else nothing needs to be painted.
    const QRectF& Visible() const { return m_visible; }
    /// A rectangle without width or height is seen where it lies in what can be seen.
    bool Sees(const QRectF& rectangle) const;

    /// Of a device's pixel; 0 where edges have no pixels to lie on: on paper, in a PDF, or where the painter turns.
    QSizeF Pixel() const { return m_pixel; }
    /// The same rectangle with its edges between pixels and at least a pixel wide and high.
    QRectF Snapped(const QRectF& rectangle) const;

    /// Clips what follows to the rectangle, within the clips that are open.
    void OpenClip(const QRectF& rectangle);
    /// Ends the innermost clip; nothing without one.
    void CloseClip();

private:
    QPainter& m_painter;
    QPointF m_origin;
    qreal m_scale;
    QTransform m_toDevice;
    QTransform m_fromDevice;
    QSizeF m_pixel;
    QRectF m_visible;
    std::vector<QRectF> m_outerVisible;  // what could be seen outside of each open clip
};

}  // namespace quillmarker
