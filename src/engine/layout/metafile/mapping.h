#pragma once

#include <QPointF>
#include <QSizeF>
#include <QTransform>

#include <cstdint>

namespace quillmarker::metafile
{

/// How the units of a drawing command relate to the device.
enum class MapMode : std::uint8_t {
    Text = 1,
    LowMetric,
    HighMetric,
    LowEnglish,
    HighEnglish,
    Twips,
    Isotropic,
    Anisotropic
};

/// Logical units -> world transform -> window -> viewport -> pixels of the device.
struct Mapping
{
    MapMode mode = MapMode::Text;
    QPointF windowOrigin;
    QSizeF windowExtent{1, 1};
    QPointF viewportOrigin;
    QSizeF viewportExtent{1, 1};
    QTransform world;

    /// Only the window and the viewport. Never singular.
    QTransform Page(QSizeF pixelsInMillimetre) const;
    QTransform ToDevice(QSizeF pixelsInMillimetre) const { return world * Page(pixelsInMillimetre); }

    /// An extent of nothing changes nothing.
    void SetWindowExtent(QSizeF extent);
    void SetViewportExtent(QSizeF extent);

    /// A transform that is not finite, or out of all proportion, changes nothing.
    void SetWorld(const QTransform& transform);
};

/// The factors of a record that scales an extent, as numerators and denominators.
QSizeF Scaled(QSizeF extent, QSizeF numerators, QSizeF denominators);

}  // namespace quillmarker::metafile
