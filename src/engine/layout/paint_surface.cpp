#include "paint_surface.h"

#include <QPaintEngine>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

bool HasPixels(const QPainter& painter)
{
    const QPaintEngine* engine = painter.paintEngine();
    if (engine == nullptr)
        return false;
    switch (engine->type())
    {
    case QPaintEngine::Pdf:
    case QPaintEngine::SVG:
    case QPaintEngine::Picture:
    case QPaintEngine::MacPrinter:
        return false;
    default:
        return true;
    }
}

// Of a device that grows with what is painted on it.
constexpr QRectF kEverywhere(-1e9, -1e9, 2e9, 2e9);

// What the device shows. Paper is given as much again on each side: its window may leave out the margins.
QRectF Window(const QPainter& painter, bool hasPixels)
{
    const QRectF window = painter.worldTransform().inverted().mapRect(QRectF(painter.window()));
    if (hasPixels)
        return window;
    if (painter.paintEngine() != nullptr && painter.paintEngine()->type() == QPaintEngine::Picture)
        return kEverywhere;
    const qreal width = window.width();
    const qreal height = window.height();
    return window.adjusted(-width, -height, width, height);
}

// The two ends of a stretch, each between two pixels, and a pixel apart at least.
void Snap(qreal& begin, qreal& end)
{
    begin = std::round(begin);
    end = std::max(std::round(end), begin + 1);
}

}  // namespace

PaintSurface::PaintSurface(QPainter& painter, QPointF origin, qreal scale)
    : m_painter(painter),
      m_origin(origin),
      m_scale(scale),
      m_toDevice(painter.deviceTransform()),
      m_fromDevice(m_toDevice.inverted())
{
    const bool hasPixels = HasPixels(painter);
    m_visible = Window(painter, hasPixels);
    if (painter.hasClipping())
        m_visible &= painter.clipBoundingRect();
    if (hasPixels && m_toDevice.type() <= QTransform::TxScale && m_toDevice.isInvertible())
        m_pixel = QSizeF(std::abs(m_fromDevice.m11()), std::abs(m_fromDevice.m22()));
}

PaintSurface::~PaintSurface()
{
    while (!m_outerVisible.empty())
        CloseClip();
}

bool PaintSurface::Sees(const QRectF& rectangle) const
{
    return rectangle.left() <= m_visible.right() && rectangle.right() >= m_visible.left() &&
           rectangle.top() <= m_visible.bottom() && rectangle.bottom() >= m_visible.top();
}

QRectF PaintSurface::Snapped(const QRectF& rectangle) const
{
    if (m_pixel.isEmpty())
        return rectangle;
    const QRectF device = m_toDevice.mapRect(rectangle);
    qreal left = device.left();
    qreal right = device.right();
    qreal top = device.top();
    qreal bottom = device.bottom();
    Snap(left, right);
    Snap(top, bottom);
    return m_fromDevice.mapRect(QRectF(QPointF(left, top), QPointF(right, bottom)));
}

void PaintSurface::OpenClip(const QRectF& rectangle)
{
    m_painter.save();
    m_outerVisible.push_back(m_visible);
    m_visible &= rectangle;
    m_painter.setClipRect(m_visible, Qt::IntersectClip);
}

void PaintSurface::CloseClip()
{
    if (m_outerVisible.empty())
        return;
    m_visible = m_outerVisible.back();
    m_outerVisible.pop_back();
    m_painter.restore();
}

}  // namespace quillmarker
