#pragma once

#include <QPoint>
#include <QRect>

namespace quillmarker
{

// All lengths are in twips of the editor, but for `KeptInside`, which takes any unit.

/// Whether the point lies on the toolbar button whose top left corner is given; all four edges belong to it.
bool ButtonHit(QPoint button, int x, int y);

/// Where the popup of a button stands: under it, from its middle to the right.
QPoint PopupTopLeft(QPoint button);

/// A popup so moved and cut that it can be reached where the area is too small for it: it is shifted left; what hangs out
/// below is cut off until `leastHeight` is left, and then it is shifted up. Its top left corner stays in the area.
QRect KeptInside(QRect popup, QRect area, int leastHeight);

}  // namespace quillmarker
