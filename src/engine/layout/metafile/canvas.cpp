#include "canvas.h"

#include "masked_image.h"
#include "target_frame.h"

#include <QPaintDevice>
#include <QPaintEngine>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace quillmarker::metafile
{
namespace
{

// On paper a line of one device pixel can hardly be seen.
constexpr qreal kThinnestLinesInInch = 288;
constexpr qreal kPatternPixelsInInch = 96;
constexpr qreal kMostDashes = 10000;

struct Blend
{
    MixMode mix;
    QPainter::CompositionMode mode;
};

// The blends that give what the bitwise operations give in black and white, which is what they are used for; unlike Qt's
// bitwise ones they respect soft edges and transparent grounds.
constexpr std::array kBlends = {
    Blend{MixMode::Not, QPainter::CompositionMode_Difference},
    Blend{MixMode::Xor, QPainter::CompositionMode_Difference},
    Blend{MixMode::And, QPainter::CompositionMode_Multiply},
    Blend{MixMode::Or, QPainter::CompositionMode_Screen},
};

QColor Mixed(QColor colour, MixMode mix)
{
    if (mix == MixMode::Black)
        return Qt::black;
    if (mix == MixMode::White || mix == MixMode::Not)
        return Qt::white;
    if (mix == MixMode::NotCopy)
        return {255 - colour.red(), 255 - colour.green(), 255 - colour.blue(), colour.alpha()};
    return colour;
}

qreal LengthOf(const QPainterPath& path)
{
    qreal length = 0;
    for (int i = 1; i < path.elementCount(); ++i)
    {
        const QPointF step = QPointF(path.elementAt(i)) - QPointF(path.elementAt(i - 1));
        length += std::abs(step.x()) + std::abs(step.y());
    }
    return length;
}

qreal AreaOf(const QRectF& rectangle) { return rectangle.width() * rectangle.height(); }

}  // namespace

Canvas::Canvas(QPainter& painter, const QRectF& target)
    : m_painter(painter), m_target(target), m_budget(AreaOf(target) * std::pow(ScaleOf(painter.combinedTransform()), 2))
{
    const qreal scale = ScaleOf(painter.combinedTransform());
    m_pixelsInUnit = scale > 0 ? scale : 1;
    const qreal dotsInInch = painter.device() ? std::max(1, painter.device()->logicalDpiX()) : kPatternPixelsInInch;
    m_thinnest = std::max<qreal>(1, dotsInInch / kThinnestLinesInInch) / m_pixelsInUnit;
    m_patternPixel = std::max<qreal>(1, dotsInInch / kPatternPixelsInInch) / m_pixelsInUnit;
    m_canBlend = painter.paintEngine() && painter.paintEngine()->hasFeature(QPaintEngine::BlendModes);
    m_painter.save();
    BeginFrame();
}

Canvas::~Canvas()
{
    Flush();
    m_painter.restore();
    m_painter.restore();
}

// The clip of whoever called, and the target, lie below ours: that is how ours can be taken off again.
void Canvas::BeginFrame()
{
    m_painter.save();
    m_painter.setClipRect(m_target, Qt::IntersectClip);
    m_painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

void Canvas::SetClip(const Clip& clip)
{
    if (clip == m_clip)
        return;
    Flush();
    m_clip = clip;
    m_isClipOn = false;
}

bool Canvas::Prepare(const QRectF& area, qreal steps)
{
    Flush();
    const qreal pixels = AreaOf(area & m_target) * m_pixelsInUnit * m_pixelsInUnit;
    if (m_clip.IsEmpty() || !m_budget.Spend(pixels + steps))
        return false;
    if (!m_isClipOn)
    {
        m_budget.Spend(static_cast<qreal>(m_clip.PointCount()) * WorkBudget::kPoint * 10);
        m_painter.restore();
        BeginFrame();
        m_clip.PutOn(m_painter);
        m_isClipOn = true;
    }
    m_hasPainted = true;
    return true;
}

bool Canvas::SetMix(MixMode mix)
{
    if (mix == MixMode::Nothing)
        return false;
    const auto* const blend =
        std::find_if(kBlends.begin(), kBlends.end(), [mix](const Blend& row) { return row.mix == mix; });
    const bool blends = m_canBlend && blend != kBlends.end();
    // Without blends there is no way to turn what is there.
    if (mix == MixMode::Not && !blends)
        return false;
    m_painter.setCompositionMode(blends ? blend->mode : QPainter::CompositionMode_SourceOver);
    return true;
}

void Canvas::Fill(const QPainterPath& path, const QBrush& brush, MixMode mix)
{
    if (brush.style() == Qt::NoBrush || path.isEmpty())
        return;
    const qreal edges = LengthOf(path) * m_pixelsInUnit * WorkBudget::kPixelOfEdge;
    const qreal steps = edges + path.elementCount() * WorkBudget::kPoint;
    if (!Prepare(path.boundingRect(), steps) || !SetMix(mix))
        return;
    QBrush mixed = brush;
    mixed.setColor(Mixed(brush.color(), mix));
    const std::optional<QRectF> rectangle = AsRectangle(path);
    // A thin one would fall between the pixels.
    const bool isHard = rectangle && std::min(rectangle->width(), rectangle->height()) * m_pixelsInUnit >= 1;
    m_painter.setRenderHint(QPainter::Antialiasing, !isHard);
    if (rectangle)
        m_painter.fillRect(*rectangle, mixed);
    else
        m_painter.fillPath(path, mixed);
    m_painter.setRenderHint(QPainter::Antialiasing, true);
}

void Canvas::Stroke(const QPainterPath& path, const QPen& pen, MixMode mix)
{
    if (pen.style() == Qt::NoPen || path.elementCount() == 0)
        return;
    QPen mixed = pen;
    mixed.setColor(Mixed(pen.color(), mix));
    mixed.setWidthF(std::min(std::max(pen.widthF(), m_thinnest), kWidestLine));
    const qreal length = LengthOf(path);
    if (mixed.style() != Qt::SolidLine && length / mixed.widthF() > kMostDashes)
        mixed.setStyle(Qt::SolidLine);
    const qreal halfWidth = mixed.widthF() / 2;
    const QRectF area = path.boundingRect().adjusted(-halfWidth, -halfWidth, halfWidth, halfWidth);
    const qreal covered = std::min(length * mixed.widthF(), AreaOf(area & m_target)) * m_pixelsInUnit * m_pixelsInUnit;
    const qreal steps =
        covered + length * m_pixelsInUnit * WorkBudget::kPixelOfEdge * 2 + path.elementCount() * WorkBudget::kPoint * 4;
    if (!Prepare({}, steps) || !SetMix(mix))
        return;
    m_painter.strokePath(path, mixed);
}

void Canvas::DrawImage(const QImage& image, const QTransform& transform, MixMode mix)
{
    // What follows goes over every pixel, and images may be big.
    const qreal pixels = static_cast<qreal>(image.width()) * image.height();
    if (image.isNull() || !m_budget.Spend(pixels * WorkBudget::kPixelOfImage))
        return;
    const bool covers = mix == MixMode::Or || mix == MixMode::Xor;
    if (covers && m_mask && m_mask->transform == transform && IsMaskedBy(image, m_mask->image))
    {
        const QImage whole = WithHole(image, m_mask->image);
        m_mask.reset();
        PutImage(whole, transform, MixMode::Copy);
        return;
    }
    if (mix == MixMode::And && image.isGrayscale())
    {
        Flush();
        m_mask = PlacedImage{image, transform};
        return;
    }
    if (mix == MixMode::Or || (mix == MixMode::Xor && !m_canBlend))
        PutImage(BlackTakenOut(image), transform, MixMode::Copy);
    else
        PutImage(image, transform, mix);
}

void Canvas::Flush()
{
    if (!m_mask)
        return;
    const PlacedImage mask = *std::exchange(m_mask, std::nullopt);
    PutImage(Shadow(mask.image), mask.transform, MixMode::Copy);
}

void Canvas::PutImage(const QImage& image, const QTransform& transform, MixMode mix)
{
    const QRectF area = transform.mapRect(QRectF(image.rect()));
    const bool isBearable =
        area.topLeft() == Bearable(area.topLeft()) && area.bottomRight() == Bearable(area.bottomRight());
    const qreal covered = AreaOf(area & m_target) * m_pixelsInUnit * m_pixelsInUnit;
    if (!isBearable || !Prepare({}, covered * WorkBudget::kPixelOfImage) || !SetMix(mix))
        return;
    // Reduced to less than half, pixels would be left out.
    const qreal across = std::hypot(transform.m11(), transform.m12()) * m_pixelsInUnit;
    const qreal down = std::hypot(transform.m21(), transform.m22()) * m_pixelsInUnit;
    QImage shown = image;
    QTransform place = transform;
    if (across < 0.5 || down < 0.5)
    {
        const QSize size(std::max(1, static_cast<int>(std::ceil(image.width() * std::min<qreal>(across, 1)))),
                         std::max(1, static_cast<int>(std::ceil(image.height() * std::min<qreal>(down, 1)))));
        shown = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        place.scale(static_cast<qreal>(image.width()) / size.width(),
                    static_cast<qreal>(image.height()) / size.height());
    }
    const QTransform before = m_painter.transform();
    m_painter.setTransform(place, true);
    m_painter.drawImage(0, 0, shown);
    m_painter.setTransform(before);
}

}  // namespace quillmarker::metafile
