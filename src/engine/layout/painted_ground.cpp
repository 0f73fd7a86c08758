#include "painted_ground.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

constexpr std::size_t kBands = 64;
// The luminance on which black and white text are about equally easy to read, of 1.
constexpr double kDarkest = 0.18;

// Near enough to the luminance of the colour as light.
double Luminance(const QColor& colour)
{
    const auto light = [](double part) { return part * part; };
    return 0.2126 * light(colour.redF()) + 0.7152 * light(colour.greenF()) + 0.0722 * light(colour.blueF());
}

bool IsDark(const QColor& colour) { return Luminance(colour) <= kDarkest; }

}  // namespace

PaintedGround::PaintedGround(const GroundColours& colours, const QRectF& visible)
    : m_colours(colours), m_visible(visible), m_bands(kBands)
{
}

std::size_t PaintedGround::BandOf(qreal y) const
{
    const qreal part = (y - m_visible.top()) / std::max(m_visible.height(), 1.0);
    return static_cast<std::size_t>(std::clamp(part, 0.0, 1.0) * static_cast<qreal>(kBands - 1));
}

void PaintedGround::Fill(const QRectF& rectangle, const QColor& colour)
{
    const auto index = static_cast<std::uint32_t>(m_painted.size());
    m_painted.push_back({rectangle, colour});
    const std::size_t last = BandOf(rectangle.bottom());
    for (std::size_t band = BandOf(rectangle.top()); band <= last; ++band)
        m_bands[band].push_back(index);
}

QColor PaintedGround::TextAt(QPointF point) const
{
    const auto& band = m_bands[BandOf(point.y())];
    const auto found = std::find_if(band.rbegin(), band.rend(),
                                    [&](std::uint32_t index) { return m_painted[index].rectangle.contains(point); });
    if (found == band.rend())
        return m_colours.text;
    const bool isOnDark = IsDark(m_painted[*found].colour);
    if (isOnDark != IsDark(m_colours.text))
        return m_colours.text;
    return isOnDark ? Qt::white : Qt::black;
}

}  // namespace quillmarker
