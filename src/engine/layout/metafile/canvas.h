#pragma once

#include "clip.h"
#include "device_state.h"
#include "work_budget.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <optional>

namespace quillmarker::metafile
{

/// Paints into the target, whose coordinates are the painter's, and keeps count of what that costs. It leaves the painter
/// as it found it.
class Canvas
{
public:
    Canvas(QPainter& painter, const QRectF& target);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// In target coordinates. A path of one rectangle is filled without soft edges: neighbours meet without a seam.
    void Fill(const QPainterPath& path, const QBrush& brush, MixMode mix);
    void Stroke(const QPainterPath& path, const QPen& pen, MixMode mix);

    /// The whole image, its pixels being the units that `transform` maps to the target. Pictures with a hole are drawn
    /// as a mask and then an image, mixed by And and by Or or Xor: the two become one transparent image.
    void DrawImage(const QImage& image, const QTransform& transform, MixMode mix);

    /// Draws a mask that waited for its image.
    void Flush();

    /// What `draw` paints through `transform`. `area` is about what it covers, in target coordinates.
    template <class Draw>
    void DrawWith(const QTransform& transform, const QRectF& area, Draw draw)
    {
        if (!Prepare(area, 0))
            return;
        m_painter.save();
        m_painter.setTransform(transform, true);
        draw(m_painter);
        m_painter.restore();
    }

    void SetClip(const Clip& clip);

    WorkBudget& Budget() { return m_budget; }
    const QRectF& Target() const { return m_target; }

    /// Device pixels in a unit of the target.
    qreal PixelsInUnit() const { return m_pixelsInUnit; }

    /// The width in target coordinates of the thinnest line that is painted.
    qreal ThinnestLine() const { return m_thinnest; }

    /// The side of a pixel of a hatch or pattern, in target coordinates: that of a pixel on a screen.
    qreal PatternPixel() const { return m_patternPixel; }

    bool HasPainted() const { return m_hasPainted; }

private:
    struct PlacedImage
    {
        QImage image;
        QTransform transform;
    };

    bool Prepare(const QRectF& area, qreal steps);
    void PutImage(const QImage& image, const QTransform& transform, MixMode mix);
    bool SetMix(MixMode mix);
    void BeginFrame();

    QPainter& m_painter;
    QRectF m_target;
    WorkBudget m_budget;
    qreal m_pixelsInUnit = 1;
    qreal m_thinnest = 1;
    qreal m_patternPixel = 1;
    bool m_canBlend = false;
    bool m_hasPainted = false;
    Clip m_clip;
    bool m_isClipOn = true;
    std::optional<PlacedImage> m_mask;
};

}  // namespace quillmarker::metafile
