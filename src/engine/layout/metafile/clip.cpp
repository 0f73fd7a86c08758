#include "clip.h"

#include "target_frame.h"

namespace quillmarker::metafile
{
namespace
{

// Each part costs whenever the clip is put on. More than this no picture needs; what comes later is not clipped away.
constexpr qsizetype kMostParts = 32;

// Far outside of every target.
const QRectF kEverything{-2 * kFarthest, -2 * kFarthest, 4 * kFarthest, 4 * kFarthest};

QPainterPath Complement(const QPainterPath& area)
{
    QPainterPath outside;
    outside.setFillRule(Qt::OddEvenFill);
    outside.addRect(kEverything);
    outside.addPath(area);
    return outside;
}

}  // namespace

std::optional<QRectF> AsRectangle(const QPainterPath& path)
{
    if (path.elementCount() != 5)
        return std::nullopt;
    const QRectF box = path.boundingRect();
    for (int i = 0; i < 5; ++i)
    {
        const QPainterPath::Element element = path.elementAt(i);
        const bool isLine = element.type == (i == 0 ? QPainterPath::MoveToElement : QPainterPath::LineToElement);
        const bool isCorner = (element.x == box.left() || element.x == box.right()) &&
                              (element.y == box.top() || element.y == box.bottom());
        const bool isTurn = i == 0 || element.x == path.elementAt(i - 1).x || element.y == path.elementAt(i - 1).y;
        if (!isLine || !isCorner || !isTurn)
            return std::nullopt;
    }
    return box;
}

void Clip::Intersect(const QPainterPath& area)
{
    if (const std::optional<QRectF> rectangle = AsRectangle(area))
        m_box = m_box ? *m_box & *rectangle : *rectangle;
    else if (area.isEmpty())
        m_box = QRectF();
    else if (m_parts.size() < kMostParts)
        m_parts.append(area);
}

void Clip::Apply(const QPainterPath& area, ClipMode mode)
{
    switch (mode)
    {
    case ClipMode::Intersect:
        Intersect(area);
        return;
    case ClipMode::Exclude:
        Intersect(Complement(area));
        return;
    case ClipMode::Replace:
        Reset();
        Intersect(area);
        return;
    case ClipMode::Unite:
    case ClipMode::Exclusive:
        break;
    default:
        return;
    }
    // A clip that is not there is everything: more does not come to it, and what is taken from it is its complement.
    if (!m_box && m_parts.isEmpty())
    {
        if (mode == ClipMode::Exclusive)
            Intersect(Complement(area));
        return;
    }
    const bool isBox = m_parts.isEmpty();
    QPainterPath both = area;
    if (m_box)
        both.addRect(*m_box);
    both.setFillRule(mode == ClipMode::Unite ? Qt::WindingFill : Qt::OddEvenFill);
    Reset();
    if (isBox)
        Intersect(both);
}

void Clip::Translate(QPointF by)
{
    if (m_box)
        m_box->translate(by);
    for (QPainterPath& part : m_parts)
        part.translate(by);
}

void Clip::PutOn(QPainter& painter) const
{
    if (m_box)
        painter.setClipRect(*m_box, Qt::IntersectClip);
    for (const QPainterPath& part : m_parts)
        painter.setClipPath(part, Qt::IntersectClip);
}

qsizetype Clip::PointCount() const
{
    qsizetype count = m_box ? 4 : 0;
    for (const QPainterPath& part : m_parts)
        count += part.elementCount();
    return count;
}

}  // namespace quillmarker::metafile
