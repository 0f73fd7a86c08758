#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QTransform>

namespace quillmarker::metafile
{

/// No coordinate in the target is farther from zero: what lies beyond is drawn there.
constexpr qreal kFarthest = 1e6;

/// No line is wider: Qt's pens know no wider ones.
constexpr qreal kWidestLine = 32000;

/// A number that painting can bear: never NaN, never beyond kFarthest.
qreal Bearable(qreal coordinate);
QPointF Bearable(QPointF point);

/// The path with every point mapped, and bearable.
QPainterPath Mapped(const QPainterPath& path, const QTransform& transform);

/// A transform's mean scale; how long a unit is behind it, more or less.
qreal ScaleOf(const QTransform& transform);

}  // namespace quillmarker::metafile
