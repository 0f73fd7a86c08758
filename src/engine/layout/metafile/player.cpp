#include "player.h"

#include "target_frame.h"

#include <QLinearGradient>

#include <algorithm>
#include <type_traits>

namespace quillmarker::metafile
{
namespace
{

// Nobody nests deeper; a file that does keeps the state it has.
constexpr std::size_t kMostSaved = 256;

}  // namespace

Player::Player(Canvas& canvas, const QTransform& deviceToTarget, QSizeF pixelsInMillimetre, qreal devicePixel)
    : m_canvas(canvas),
      m_deviceToTarget(deviceToTarget),
      m_pixelsInMillimetre(pixelsInMillimetre),
      m_devicePixel(devicePixel)
{
}

QTransform Player::ToTarget() const { return m_state.mapping.ToDevice(m_pixelsInMillimetre) * m_deviceToTarget; }

void Player::Save()
{
    if (m_saved.size() < kMostSaved)
        m_saved.push_back(m_state);
}

void Player::Restore(std::int32_t level)
{
    const auto count = static_cast<std::int64_t>(m_saved.size());
    const std::int64_t place = level > 0 ? level - 1 : count + level;
    if (place < 0 || place >= count)
        return;
    m_state = m_saved[static_cast<std::size_t>(place)];
    m_saved.resize(static_cast<std::size_t>(place));
}

void Player::Select(const GraphicsObject& object)
{
    if (const auto* const pen = std::get_if<Pen>(&object))
        m_state.pen = *pen;
    else if (const auto* const brush = std::get_if<Brush>(&object))
        m_state.brush = *brush;
    else if (const auto* const font = std::get_if<Font>(&object))
        m_state.font = *font;
    else if (const auto* const region = std::get_if<Region>(&object))
    {
        QPainterPath area;
        for (const QRectF& rectangle : region->rectangles)
            area.addRect(rectangle);
        ClipTo(area, ClipMode::Replace);
    }
}

void Player::MoveTo(QPointF point)
{
    m_state.position = point;
    if (m_isGathering)
        m_path.moveTo(Bearable(ToTarget().map(point)));
}

void Player::LinesTo(const std::vector<QPointF>& points)
{
    if (points.empty())
        return;
    QPainterPath line(m_state.position);
    for (const QPointF& point : points)
        line.lineTo(point);
    m_state.position = points.back();
    Draw(line, Parts::Line);
}

void Player::CurvesTo(const std::vector<QPointF>& points)
{
    if (points.size() < 3)
        return;
    QPainterPath curve(m_state.position);
    for (std::size_t i = 0; i + 2 < points.size(); i += 3)
    {
        curve.cubicTo(points[i], points[i + 1], points[i + 2]);
        m_state.position = points[i + 2];
    }
    Draw(curve, Parts::Line);
}

void Player::ArcTo(const QPainterPath& arc)
{
    if (arc.elementCount() == 0)
        return;
    QPainterPath line(m_state.position);
    line.connectPath(arc);
    m_state.position = arc.currentPosition();
    Draw(line, Parts::Line);
}

void Player::Draw(const QPainterPath& figure, Parts parts)
{
    const QPainterPath mapped = Mapped(figure, ToTarget());
    if (m_isGathering)
        Gather(mapped);
    else
        DrawOnTarget(mapped, parts);
}

// A line that begins where the path ends continues it.
void Player::Gather(const QPainterPath& mapped)
{
    m_canvas.Budget().Spend(mapped.elementCount() * WorkBudget::kPoint);
    const bool continues = m_path.elementCount() > 0 && mapped.elementCount() > 0 &&
                           m_path.currentPosition() == QPointF(mapped.elementAt(0));
    if (continues)
        m_path.connectPath(mapped);
    else
        m_path.addPath(mapped);
}

void Player::DrawOnTarget(const QPainterPath& path, Parts parts)
{
    PutClipOn();
    if (parts != Parts::Line)
    {
        QPainterPath area = path;
        area.setFillRule(m_state.fillRule);
        FillMapped(m_state.brush, area, m_state.mix);
    }
    if (parts != Parts::Area)
        m_canvas.Stroke(path, TargetPen(), m_state.mix);
}

void Player::BeginPath()
{
    m_path = {};
    m_path.moveTo(Bearable(ToTarget().map(m_state.position)));
    m_isGathering = true;
}

void Player::CloseFigure()
{
    if (m_isGathering && m_path.elementCount() > 1)
        m_path.closeSubpath();
}

void Player::DrawPath(Parts parts)
{
    QPainterPath path;
    path.swap(m_path);
    m_isGathering = false;
    if (path.elementCount() > 1)
        DrawOnTarget(path, parts);
}

void Player::ClipToPath(ClipMode mode)
{
    m_path.setFillRule(m_state.fillRule);
    m_state.clip.Apply(m_path, mode);
    AbortPath();
}

void Player::AbortPath()
{
    m_path = {};
    m_isGathering = false;
}

void Player::ClipTo(const QPainterPath& area, ClipMode mode) { m_state.clip.Apply(Mapped(area, ToTarget()), mode); }

void Player::ClipToDevice(const QPainterPath& area, ClipMode mode)
{
    m_state.clip.Apply(Mapped(area, m_deviceToTarget), mode);
}

void Player::OffsetClip(QPointF by)
{
    const QTransform toTarget = ToTarget();
    m_state.clip.Translate(Bearable(toTarget.map(by) - toTarget.map(QPointF())));
}

void Player::FillWith(const Brush& brush, const QPainterPath& area, MixMode mix)
{
    PutClipOn();
    FillMapped(brush, Mapped(area, ToTarget()), mix);
}

void Player::FillWith(QColor colour, const QPainterPath& area)
{
    FillWith(Brush{.colour = colour}, area, MixMode::Copy);
}

void Player::FillGradient(const QRectF& box, QColor from, QColor to, Qt::Orientation along)
{
    const QTransform toTarget = ToTarget();
    const QPointF start = Bearable(toTarget.map(box.topLeft()));
    const QPointF end = Bearable(toTarget.map(along == Qt::Horizontal ? box.topRight() : box.bottomLeft()));
    QLinearGradient gradient(start, end);
    gradient.setColorAt(0, from);
    gradient.setColorAt(1, to);
    QPainterPath area;
    area.addRect(box.normalized());
    PutClipOn();
    m_canvas.Fill(Mapped(area, toTarget), gradient, MixMode::Copy);
}

void Player::FillMapped(const Brush& brush, const QPainterPath& path, MixMode mix)
{
    if (brush.style == Qt::NoBrush)
        return;
    QBrush painted(brush.colour);
    const QTransform onScreen = QTransform::fromScale(m_canvas.PatternPixel(), m_canvas.PatternPixel());
    if (brush.style == Qt::TexturePattern)
    {
        QImage pattern = brush.pattern;
        if (brush.isTwoColoured)
            pattern.setColorTable({m_state.textColour.rgb(), m_state.background.rgb()});
        painted.setTextureImage(pattern);
        painted.setTransform(onScreen);
    }
    else if (brush.style != Qt::SolidPattern)
    {
        if (m_state.isOpaque)
            m_canvas.Fill(path, m_state.background, mix);
        painted.setStyle(brush.style);
        painted.setTransform(onScreen);
    }
    m_canvas.Fill(path, painted, mix);
}

QPen Player::TargetPen() const
{
    const Pen& pen = m_state.pen;
    const qreal scale = pen.isGeometric ? ScaleOf(ToTarget()) : m_devicePixel;
    const qreal least = std::max(m_canvas.ThinnestLine(), pen.isGeometric ? 0 : m_devicePixel);
    const qreal width = std::min(std::max(pen.width * scale, least), kWidestLine);
    QPen painted(pen.colour, width, pen.style, pen.cap, pen.join);
    painted.setMiterLimit(std::clamp<qreal>(m_state.miterLimit, 1, 100));
    if (pen.style == Qt::CustomDashLine)
    {
        QList<qreal> dashes;
        for (const qreal dash : pen.dashes)
            dashes.append(std::clamp(dash * scale / width, 0.01, 1e5));
        if (dashes.size() % 2 != 0)
            dashes += QList<qreal>(dashes);
        if (dashes.isEmpty())
            painted.setStyle(Qt::SolidLine);
        else
            painted.setDashPattern(dashes);
    }
    return painted;
}

}  // namespace quillmarker::metafile
