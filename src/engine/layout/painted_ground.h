#pragma once

#include "paint_list.h"

#include <QColor>
#include <QPointF>
#include <QRectF>

#include <cstdint>
#include <vector>

namespace quillmarker
{

/// What colour a list has painted where, so that text of automatic colour can be seen on it. Finding a colour costs what
/// lies in its band of the list, not the list.
class PaintedGround
{
public:
    PaintedGround(const GroundColours& colours, const QRectF& visible);

    void Fill(const QRectF& rectangle, const QColor& colour);

    /// The colour of automatic text around a point: the palette's, unless the ground there was painted in a colour on
    /// which that cannot be read.
    QColor TextAt(QPointF point) const;

private:
    struct Painted
    {
        QRectF rectangle;
        QColor colour;
    };
    std::size_t BandOf(qreal y) const;

    GroundColours m_colours;
    QRectF m_visible;
    std::vector<Painted> m_painted;
    std::vector<std::vector<std::uint32_t>> m_bands;  // from top to bottom, the fills that meet each, in order
};

}  // namespace quillmarker
