#pragma once

#include "display_list.h"
#include "paint_surface.h"

namespace quillmarker
{

/// Draws a line under, through or over text. Its thickness is that of the font's plain underline, which the thick kinds
/// double; the strokes of a double one lie on both sides of its middle.
void PaintTextLine(const PaintSurface& surface, const TextLine& line, const QColor& colour);

}  // namespace quillmarker
