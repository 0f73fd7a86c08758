#include "stroke_painting.h"

#include <QPainterPath>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

constexpr qreal kHairlineTwips = 5;  // a quarter of a point, on paper
constexpr qreal kWaveLength = 6;     // in multiples of the stroke's thickness
constexpr qreal kWaveHeight = 1.5;   // from the middle
constexpr qreal kWaveDistance = 3;   // of two waves
// However thin a line and however long a list, no line has more parts than this.
constexpr qreal kMostParts = 20000;

// A stroke cut to what can be seen, with its thickness made fit for the device.
class FittedStroke
{
public:
    FittedStroke(const PaintSurface& surface, const Stroke& stroke, const StrokeStyle& style)
        : m_surface(surface), m_stroke(stroke), m_style(style), m_isHorizontal(stroke.orientation == Qt::Horizontal)
    {
        const QSizeF pixel = surface.Pixel();
        const qreal pixelAcross = m_isHorizontal ? pixel.height() : pixel.width();
        m_unit = stroke.thickness * static_cast<qreal>(style.thickness);
        if (pixelAcross > 0)
            m_unit = std::max(std::round(m_unit / pixelAcross), 1.0) * pixelAcross;
        else
            m_unit = std::max(m_unit, kHairlineTwips / 2 * surface.Scale());
        Cut();
    }

    bool IsSeen() const
    {
        const qreal reach = (m_style.count * 2 + 3) * m_unit;
        return m_begin < m_end &&
               m_surface.Sees(Rectangle(m_begin, m_stroke.middle - reach, m_end, m_stroke.middle + reach));
    }

    void Paint() const
    {
        QPainter& painter = m_surface.Painter();
        if (m_style.shape == StrokeShape::Straight)
        {
            painter.setPen(Qt::NoPen);
            painter.setBrush(m_stroke.colour);
            return PaintStraight();
        }
        painter.save();
        painter.setClipRect(Rectangle(m_begin, m_stroke.middle - Far(), m_end, m_stroke.middle + Far()),
                            Qt::IntersectClip);
        painter.setRenderHint(QPainter::Antialiasing);
        m_style.shape == StrokeShape::Wave ? PaintWaves() : PaintSlanted();
        painter.restore();
    }

private:
    qreal Far() const { return 100 * m_unit; }

    void Cut()
    {
        const QRectF& visible = m_surface.Visible();
        const qreal low = m_isHorizontal ? visible.left() : visible.top();
        const qreal high = m_isHorizontal ? visible.right() : visible.bottom();
        m_begin = std::max(m_stroke.begin, low - m_unit);
        m_end = std::min(m_stroke.end, high + m_unit);
    }

    QRectF Rectangle(qreal begin, qreal near, qreal end, qreal far) const
    {
        return m_isHorizontal ? QRectF(QPointF(begin, near), QPointF(end, far))
                              : QRectF(QPointF(near, begin), QPointF(far, end));
    }

    QPointF Point(qreal along, qreal across) const
    {
        return m_isHorizontal ? QPointF(along, across) : QPointF(across, along);
    }

    // The last place at or before what can be seen where dashes or waves of this period begin anew: they count from the
    // list's origin, so that neighbours go on in step and scrolling moves them with the text.
    qreal Start(qreal period) const
    {
        const QPointF origin = m_surface.Mapped(QPointF());
        const qreal zero = m_isHorizontal ? origin.x() : origin.y();
        return zero + std::floor((m_begin - zero) / period) * period;
    }

    // The length after which the dashes repeat; 0: there are none.
    qreal DashPeriod() const
    {
        qreal period = 0;
        for (const std::uint8_t length : m_style.dashes)
            period += length * m_unit;
        return period;
    }

    // Calls `piece(begin, end)` for each dash that can be seen, whole.
    template <class Piece>
    void ForEachDash(Piece piece) const
    {
        const qreal period = DashPeriod();
        if (period <= 0 || (m_end - m_begin) / period > kMostParts)
            return piece(m_begin, m_end);
        qreal at = Start(period);
        while (at < m_end)
        {
            for (std::size_t i = 0; i < m_style.dashes.size() && m_style.dashes[i] != 0; i += 2)
            {
                const qreal end = at + m_style.dashes[i] * m_unit;
                if (end > m_begin && at < m_end)
                    piece(at, end);
                at = end + m_style.dashes[i + 1] * m_unit;
            }
        }
    }

    void PaintStraight() const
    {
        const qreal total = (m_style.count * 2 - 1) * m_unit;
        // The band as a whole is put on pixels; its strokes are whole pixels thick already.
        const QRectF band =
            m_surface.Snapped(Rectangle(m_begin, m_stroke.middle - total / 2, m_end, m_stroke.middle + total / 2));
        const qreal top = m_isHorizontal ? band.top() : band.left();
        QVarLengthArray<QRectF, 64> pieces;
        for (int i = 0; i < m_style.count; ++i)
        {
            const qreal near = top + i * 2 * m_unit;
            ForEachDash([&](qreal begin, qreal end) {
                const QRectF piece = Rectangle(std::max(begin, m_begin), near, std::min(end, m_end), near + m_unit);
                pieces.append(m_surface.Snapped(piece));
            });
        }
        m_surface.Painter().drawRects(pieces.constData(), static_cast<int>(pieces.size()));
    }

    void PaintWaves() const
    {
        const qreal length = kWaveLength * m_unit;
        if ((m_end - m_begin) / length > kMostParts)
            return PaintStraight();
        QPainterPath path;
        for (int i = 0; i < m_style.count; ++i)
        {
            const qreal middle = m_stroke.middle + (i - (m_style.count - 1) / 2.0) * kWaveDistance * m_unit;
            qreal at = Start(length);
            path.moveTo(Point(at, middle));
            // A quadratic curve reaches half the height of its control point.
            for (; at < m_end; at += length)
            {
                const qreal reach = kWaveHeight * 2 * m_unit;
                path.quadTo(Point(at + length / 4, middle - reach), Point(at + length / 2, middle));
                path.quadTo(Point(at + length * 3 / 4, middle + reach), Point(at + length, middle));
            }
        }
        QPen pen(m_stroke.colour, m_unit);
        pen.setCapStyle(Qt::FlatCap);
        m_surface.Painter().strokePath(path, pen);
    }

    void PaintSlanted() const
    {
        const qreal near = m_stroke.middle - m_unit / 2;
        const qreal far = m_stroke.middle + m_unit / 2;
        QPainterPath path;
        ForEachDash([&](qreal begin, qreal end) {
            path.moveTo(Point(begin + m_unit, near));
            path.lineTo(Point(end + m_unit, near));
            path.lineTo(Point(end, far));
            path.lineTo(Point(begin, far));
            path.closeSubpath();
        });
        m_surface.Painter().fillPath(path, m_stroke.colour);
    }

    const PaintSurface& m_surface;
    const Stroke& m_stroke;
    const StrokeStyle& m_style;
    bool m_isHorizontal;
    qreal m_unit = 0;
    qreal m_begin = 0;
    qreal m_end = 0;
};

}  // namespace

void PaintStroke(const PaintSurface& surface, const Stroke& stroke, const StrokeStyle& style)
{
    if (style.count == 0)
        return;
    const FittedStroke fitted(surface, stroke, style);
    if (fitted.IsSeen())
        fitted.Paint();
}

}  // namespace quillmarker
