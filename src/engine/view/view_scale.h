#pragma once

#include "engine/layout/fine.h"

#include <QtGlobal>

#include <cmath>

namespace quillmarker
{

/// The text begins this far from the view's left edge.
constexpr Twips kViewInset{45};

constexpr int kMinZoom = 10;
constexpr int kMaxZoom = 500;

/// How lengths of the flow become pixels of a view.
struct ViewScale
{
    qreal pixelsPerTwip = 96.0 / 1440;

    static ViewScale Of(qreal dotsPerInch, int zoomPercent) { return {dotsPerInch * zoomPercent / 100 / 1440}; }

    qreal Pixels(Fine length) const { return InTwips(length) * pixelsPerTwip; }
    int WholePixels(Fine length) const { return static_cast<int>(std::lround(Pixels(length))); }
    Fine Lengths(qreal pixels) const
    {
        return static_cast<Fine>(std::floor(pixels / pixelsPerTwip * static_cast<qreal>(kFinePerTwip)));
    }

    bool operator==(const ViewScale&) const = default;
};

}  // namespace quillmarker
