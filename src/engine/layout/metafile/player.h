#pragma once

#include "canvas.h"
#include "device_state.h"
#include "graphics_objects.h"

#include <QPainterPath>
#include <QSizeF>
#include <QTransform>

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

namespace quillmarker::metafile
{

/// What of a figure is drawn.
enum class Parts : std::uint8_t { Line, Area, LineAndArea };

/// A device that obeys the drawing commands of both formats: WMF and EMF records are read elsewhere and end here. Points
/// are in logical units unless it is said otherwise.
class Player
{
public:
    /// `deviceToTarget` maps pixels of the device that the picture was drawn for; `devicePixel` is how wide a line of one
    /// of them is in the target, 0 if that is not known.
    Player(Canvas& canvas, const QTransform& deviceToTarget, QSizeF pixelsInMillimetre, qreal devicePixel);

    DeviceState& State() { return m_state; }
    const DeviceState& State() const { return m_state; }
    ObjectTable& Objects() { return m_objects; }
    Canvas& Surface() { return m_canvas; }
    QSizeF PixelsInMillimetre() const { return m_pixelsInMillimetre; }

    QTransform ToTarget() const;
    const QTransform& DeviceToTarget() const { return m_deviceToTarget; }

    void Save();

    /// To the `level`-th saved state if it is positive, else that many back; nothing if there is none.
    void Restore(std::int32_t level);

    void Select(const GraphicsObject& object);

    // Lines move the position; inside a path bracket they are gathered, not drawn.
    void MoveTo(QPointF point);
    void LinesTo(const std::vector<QPointF>& points);
    void CurvesTo(const std::vector<QPointF>& points);
    void Draw(const QPainterPath& figure, Parts parts);

    /// Draws an arc with a line to its start, and moves to its end.
    void ArcTo(const QPainterPath& arc);

    void BeginPath();
    void EndPath() { m_isGathering = false; }
    void CloseFigure();
    void DrawPath(Parts parts);
    void ClipToPath(ClipMode mode);
    void AbortPath();
    bool IsGathering() const { return m_isGathering; }

    void ClipTo(const QPainterPath& area, ClipMode mode);
    void ClipToDevice(const QPainterPath& area, ClipMode mode);
    void OffsetClip(QPointF by);

    /// Fills with a brush other than the state's, or with a plain colour.
    void FillWith(const Brush& brush, const QPainterPath& area, MixMode mix);
    void FillWith(QColor colour, const QPainterPath& area);

    /// From one side of the box to the other, in the order of its corners as they are given.
    void FillGradient(const QRectF& box, QColor from, QColor to, Qt::Orientation along);

    /// In target coordinates, with the state's brush and pen.
    void DrawOnTarget(const QPainterPath& path, Parts parts);

    /// True the first time this family is asked for: looking a new one up costs.
    bool IsNewFamily(const QString& family) { return m_families.insert(family).second; }

private:
    void Gather(const QPainterPath& mapped);
    void PutClipOn() { m_canvas.SetClip(m_state.clip); }
    void FillMapped(const Brush& brush, const QPainterPath& path, MixMode mix);
    QPen TargetPen() const;

    Canvas& m_canvas;
    QTransform m_deviceToTarget;
    QSizeF m_pixelsInMillimetre;
    qreal m_devicePixel;
    DeviceState m_state;
    std::vector<DeviceState> m_saved;
    ObjectTable m_objects;
    QPainterPath m_path;  // target coordinates
    bool m_isGathering = false;
    std::set<QString> m_families;
};

}  // namespace quillmarker::metafile
