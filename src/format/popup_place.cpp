#include "popup_place.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

constexpr int kButtonWidth = 360;
constexpr int kButtonHeight = 330;
constexpr int kGap = 45;

}  // namespace

bool ButtonHit(QPoint button, int x, int y)
{
    const bool isBeside = x < button.x() || x > button.x() + kButtonWidth;
    const bool isAboveOrBelow = y < button.y() || y > button.y() + kButtonHeight;
    return !isBeside && !isAboveOrBelow;
}

QPoint PopupTopLeft(QPoint button) { return button + QPoint(kButtonWidth / 2, kButtonHeight + kGap); }

QRect KeptInside(QRect popup, QRect area, int leastHeight)
{
    const int areaRight = area.x() + area.width();
    const int areaBottom = area.y() + area.height();
    const int room = areaBottom - popup.y();
    const int height = std::min(popup.height(), std::max(room, leastHeight));
    const int left = std::max(std::min(popup.x(), areaRight - popup.width()), area.x());
    const int top = std::max(std::min(popup.y(), areaBottom - height), area.y());
    return {left, top, popup.width(), height};
}

}  // namespace quillmarker
