#include "shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillmarker::metafile
{
namespace
{

/// Degrees counterclockwise from the right, on the ellipse as if it were a circle.
qreal AngleOf(QPointF point, const QRectF& box)
{
    const QPointF ray = point - box.center();
    const qreal x = ray.x() / box.width();
    const qreal y = ray.y() / box.height();
    return std::atan2(-y, x) * 180 / std::numbers::pi;
}

}  // namespace

QPainterPath PathOf(const Arc& arc, ArcEnd end)
{
    QPainterPath path;
    const QRectF box = arc.box.normalized();
    if (box.width() <= 0 || box.height() <= 0)
        return path;
    const qreal start = AngleOf(arc.from, box);
    qreal sweep = AngleOf(arc.to, box) - start;
    if (arc.isClockwise && sweep >= 0)
        sweep -= 360;
    if (!arc.isClockwise && sweep <= 0)
        sweep += 360;
    if (end == ArcEnd::Pie)
        path.moveTo(box.center());
    else
        path.arcMoveTo(box, start);
    path.arcTo(box, start, sweep);
    if (end != ArcEnd::Open)
        path.closeSubpath();
    return path;
}

QPainterPath LinePath(const std::vector<QPointF>& points)
{
    QPainterPath path;
    if (points.empty())
        return path;
    path.moveTo(points.front());
    for (std::size_t i = 1; i < points.size(); ++i)
        path.lineTo(points[i]);
    return path;
}

QPainterPath PolygonPath(const std::vector<QPointF>& points)
{
    QPainterPath path = LinePath(points);
    if (path.elementCount() > 1)
        path.closeSubpath();
    return path;
}

QPainterPath CurvePath(const std::vector<QPointF>& points)
{
    QPainterPath path;
    if (points.empty())
        return path;
    path.moveTo(points.front());
    for (std::size_t i = 1; i + 2 < points.size(); i += 3)
        path.cubicTo(points[i], points[i + 1], points[i + 2]);
    return path;
}

QPainterPath RectanglePath(const QRectF& rectangle)
{
    QPainterPath path;
    path.addRect(rectangle.normalized());
    return path;
}

QPainterPath RoundedPath(const QRectF& rectangle, QSizeF corner)
{
    QPainterPath path;
    path.addRoundedRect(rectangle.normalized(), std::abs(corner.width()) / 2, std::abs(corner.height()) / 2);
    return path;
}

QPainterPath EllipsePath(const QRectF& box)
{
    QPainterPath path;
    path.addEllipse(box.normalized());
    return path;
}

}  // namespace quillmarker::metafile
