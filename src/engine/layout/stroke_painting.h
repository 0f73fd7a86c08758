#pragma once

#include "paint_surface.h"

#include <QColor>

#include <array>
#include <cstdint>

namespace quillmarker
{

enum class StrokeShape : std::uint8_t { Straight, Wave, Slanted };

/// How a line is drawn, in multiples of its thickness.
struct StrokeStyle
{
    std::uint8_t count = 0;  // of parallel strokes, a stroke's thickness apart; 0: nothing is drawn
    float thickness = 1;     // 0: as thin as the device can
    StrokeShape shape = StrokeShape::Straight;
    /// Lengths of dash, gap, dash, gap, …, up to the first 0; none: the line is unbroken.
    std::array<std::uint8_t, 6> dashes{};
};

/// A line along one axis, in the painter's coordinates.
struct Stroke
{
    Qt::Orientation orientation = Qt::Horizontal;
    qreal begin = 0;  // along the line
    qreal end = 0;
    qreal middle = 0;  // across it, of all strokes together
    qreal thickness = 0;
    QColor colour;
};

/// Draws a line. Dashes and waves are in step with those of every other line of the list. On a device with pixels
/// straight strokes lie on them and are a pixel thick at least.
void PaintStroke(const PaintSurface& surface, const Stroke& stroke, const StrokeStyle& style);

}  // namespace quillmarker
