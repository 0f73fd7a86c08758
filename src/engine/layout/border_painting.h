#pragma once

#include "display_list.h"
#include "paint_surface.h"

namespace quillmarker
{

/// Draws a border's line, whose middle runs from its one end to the other and which reaches half its thickness beyond
/// both, so that corners are closed. The width is that of one stroke: a double border is three times as thick.
void PaintBorder(const PaintSurface& surface, const BorderLine& line, const QColor& colour);

}  // namespace quillmarker
