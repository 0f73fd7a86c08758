#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillmarker::metafile
{

enum class ArcEnd : std::uint8_t { Open, Chord, Pie };

/// Part of an ellipse, given as both formats give it: by its box and two points, on whose rays from the centre it starts
/// and ends. Counterclockwise as the viewer sees it, unless `isClockwise`.
struct Arc
{
    QRectF box;
    QPointF from;
    QPointF to;
    bool isClockwise = false;
};

QPainterPath PathOf(const Arc& arc, ArcEnd end);
QPainterPath LinePath(const std::vector<QPointF>& points);
QPainterPath PolygonPath(const std::vector<QPointF>& points);

/// From the first point on, three points a curve.
QPainterPath CurvePath(const std::vector<QPointF>& points);
QPainterPath RectanglePath(const QRectF& rectangle);
QPainterPath RoundedPath(const QRectF& rectangle, QSizeF corner);
QPainterPath EllipsePath(const QRectF& box);

}  // namespace quillmarker::metafile
