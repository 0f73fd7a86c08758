#pragma once

#include "format/toolbar_table.h"

#include <array>

namespace quillmarker
{

/// Lengths of the toolbar in pixels.
struct ToolbarMetrics
{
    int button = 24;
    int separator = 8;
    int margin = 2;  // left of the first button, and right of the last one
    int more = 16;   // the button that leads to those that have no room
    double twipsPerPixel = 15;
};

struct ToolbarSlot
{
    int left = 0;
    int width = 0;
    bool isShown = true;
};

/// Where the buttons of the table stand.
struct ToolbarLayout
{
    std::array<ToolbarSlot, kToolbarButtons.size()> slots;
    bool overflows = false;
    int moreLeft = 0;
};

/// The width with all buttons shown.
int FullWidth(const ToolbarMetrics& metrics);

/// All buttons side by side where they have room. Otherwise those that fit before the button that leads to the rest; none
/// behind the first that does not fit is shown, nor a separator with nothing behind it.
ToolbarLayout LaidOut(int width, const ToolbarMetrics& metrics);

}  // namespace quillmarker
