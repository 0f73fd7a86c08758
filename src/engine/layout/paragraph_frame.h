#pragma once

#include "paragraph_layout.h"

namespace quillmarker
{

// What stands around a paragraph's lines, as items of a display list: lines `first` to before `last`, one at least.

/// Whether lengths along a paragraph's lines count from the right.
bool IsMirrored(const ParagraphLayout& layout);

/// For a paragraph whose format has shading.
void DrawShading(const ParagraphLayout& layout, DisplayList& list, QPointF origin, std::uint32_t first,
                 std::uint32_t last, FrameNeighbours neighbours);

/// For a paragraph whose format has borders.
void DrawBorders(const ParagraphLayout& layout, DisplayList& list, QPointF origin, std::uint32_t first,
                 std::uint32_t last, FrameNeighbours neighbours);

/// The vertical lines of bar tabs, which go through all lines of a paragraph that has tab stops.
void DrawBars(const ParagraphLayout& layout, DisplayList& list, QPointF origin, std::uint32_t first,
              std::uint32_t last);

}  // namespace quillmarker
