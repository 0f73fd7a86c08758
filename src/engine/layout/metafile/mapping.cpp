#include "mapping.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillmarker::metafile
{
namespace
{

constexpr qreal kMillimetresInInch = 25.4;

// Millimetres of a logical unit, by MapMode; 0 where it is not fixed. In the fixed modes y grows upwards.
constexpr std::array<qreal, 9> kUnits = {
    0, 0, 0.1, 0.01, kMillimetresInInch / 100, kMillimetresInInch / 1000, kMillimetresInInch / 1440, 0, 0};

constexpr qreal kMostExtent = 1e10;
constexpr qreal kMostEntry = 1e9;

bool IsSane(qreal number, qreal most) { return std::isfinite(number) && std::abs(number) <= most; }

bool IsExtent(QSizeF extent)
{
    return extent.width() != 0 && extent.height() != 0 && IsSane(extent.width(), kMostExtent) &&
           IsSane(extent.height(), kMostExtent);
}

QSizeF PageScale(const Mapping& mapping, QSizeF pixelsInMillimetre)
{
    if (mapping.mode == MapMode::Text)
        return {1, 1};
    if (const qreal unit = kUnits[static_cast<std::size_t>(mapping.mode)]; unit > 0)
        return {pixelsInMillimetre.width() * unit, -pixelsInMillimetre.height() * unit};
    const qreal x = mapping.viewportExtent.width() / mapping.windowExtent.width();
    const qreal y = mapping.viewportExtent.height() / mapping.windowExtent.height();
    if (mapping.mode == MapMode::Anisotropic)
        return {x, y};
    // A unit is as long across as down; the viewport is used as far as that goes.
    const qreal across = std::abs(x) / pixelsInMillimetre.width();
    const qreal down = std::abs(y) / pixelsInMillimetre.height();
    const qreal unit = std::min(across, down);
    return {std::copysign(unit * pixelsInMillimetre.width(), x), std::copysign(unit * pixelsInMillimetre.height(), y)};
}

}  // namespace

QTransform Mapping::Page(QSizeF pixelsInMillimetre) const
{
    const QSizeF scale = PageScale(*this, pixelsInMillimetre);
    return {scale.width(),
            0,
            0,
            scale.height(),
            viewportOrigin.x() - windowOrigin.x() * scale.width(),
            viewportOrigin.y() - windowOrigin.y() * scale.height()};
}

void Mapping::SetWindowExtent(QSizeF extent)
{
    if (IsExtent(extent))
        windowExtent = extent;
}

void Mapping::SetViewportExtent(QSizeF extent)
{
    if (IsExtent(extent))
        viewportExtent = extent;
}

void Mapping::SetWorld(const QTransform& transform)
{
    const std::array<qreal, 6> entries = {transform.m11(), transform.m12(), transform.m21(),
                                          transform.m22(), transform.dx(),  transform.dy()};
    if (std::all_of(entries.begin(), entries.end(), [](qreal entry) { return IsSane(entry, kMostEntry); }))
        world = transform;
}

QSizeF Scaled(QSizeF extent, QSizeF numerators, QSizeF denominators)
{
    if (denominators.width() == 0 || denominators.height() == 0)
        return extent;
    return {extent.width() * numerators.width() / denominators.width(),
            extent.height() * numerators.height() / denominators.height()};
}

}  // namespace quillmarker::metafile
