#include "toolbar_layout.h"

#include <cmath>

namespace quillmarker
{
namespace
{

int WidthOf(const ToolbarButton& button, const ToolbarMetrics& metrics)
{
    switch (button.style)
    {
    case ButtonStyle::Separator:
        return metrics.separator;
    case ButtonStyle::Placeholder:
        return static_cast<int>(std::lround(button.width / metrics.twipsPerPixel));
    case ButtonStyle::Default:
    case ButtonStyle::Check:
    case ButtonStyle::ButtonGroup:
        break;
    }
    return metrics.button;
}

}  // namespace

int FullWidth(const ToolbarMetrics& metrics)
{
    int width = 2 * metrics.margin;
    for (const ToolbarButton& button : kToolbarButtons)
        width += WidthOf(button, metrics);
    return width;
}

ToolbarLayout LaidOut(int width, const ToolbarMetrics& metrics)
{
    ToolbarLayout layout;
    layout.overflows = width < FullWidth(metrics);
    const int room = width - metrics.margin - (layout.overflows ? metrics.more : 0);
    int left = metrics.margin;
    bool fits = true;
    std::size_t shownEnd = 0;
    for (std::size_t i = 0; i < kToolbarButtons.size(); ++i)
    {
        ToolbarSlot& slot = layout.slots[i];
        slot = {left, WidthOf(kToolbarButtons[i], metrics), true};
        fits = fits && left + slot.width <= room;
        slot.isShown = fits;
        left += slot.width;
        if (fits && kToolbarButtons[i].style != ButtonStyle::Separator)
            shownEnd = i + 1;
    }
    for (std::size_t i = shownEnd; i < layout.slots.size(); ++i)
        layout.slots[i].isShown = false;
    layout.moreLeft =
        shownEnd == 0 ? metrics.margin : layout.slots[shownEnd - 1].left + layout.slots[shownEnd - 1].width;
    return layout;
}

}  // namespace quillmarker
