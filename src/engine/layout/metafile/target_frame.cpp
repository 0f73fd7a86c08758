#include "target_frame.h"

#include <algorithm>
#include <cmath>

namespace quillmarker::metafile
{

qreal Bearable(qreal coordinate) { return std::isnan(coordinate) ? 0 : std::clamp(coordinate, -kFarthest, kFarthest); }

QPointF Bearable(QPointF point) { return {Bearable(point.x()), Bearable(point.y())}; }

QPainterPath Mapped(const QPainterPath& path, const QTransform& transform)
{
    QPainterPath mapped = path;
    for (int i = 0; i < mapped.elementCount(); ++i)
    {
        const QPainterPath::Element element = path.elementAt(i);
        const QPointF point = Bearable(transform.map(QPointF(element.x, element.y)));
        mapped.setElementPositionAt(i, point.x(), point.y());
    }
    return mapped;
}

qreal ScaleOf(const QTransform& transform)
{
    const qreal scale = std::sqrt(std::abs(transform.m11() * transform.m22() - transform.m12() * transform.m21()));
    return std::isfinite(scale) ? std::min(scale, kFarthest) : kFarthest;
}

}  // namespace quillmarker::metafile
