#pragma once

#include "paragraph_shapes.h"

#include <vector>

namespace quillmarker
{

/// What stands above the first line and below the last one.
struct ParagraphEdges
{
    Fine above = 0;  // space and border
    Fine below = 0;
};

/// Cuts a paragraph into lines and places them from top to bottom.
std::vector<Line> MakeLines(const Paragraph& paragraph, const ParagraphShapes& shapes, const ParagraphFormat& format,
                            const ParagraphContext& context, const ParagraphEdges& edges);

}  // namespace quillmarker
