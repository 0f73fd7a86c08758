#include "sample_ground.h"

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

/// How light a colour looks, from 0 to 1, as WCAG reckons it.
double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& a, const QColor& b)
{
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace

QColor SampleGround(const QColor& text, const QColor& usual)
{
    constexpr double kReadable = 3;
    if (Contrast(text, usual) >= kReadable)
        return usual;
    const QColor white(Qt::white);
    const QColor black(Qt::black);
    return Contrast(text, white) >= Contrast(text, black) ? white : black;
}

}  // namespace quillmarker
