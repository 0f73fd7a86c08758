#pragma once

#include "engine/layout/paragraph_layout.h"

#include <string>

namespace quillmarker
{

/// The lines of a layout, one a line of text: what it ends with, its place, its text. Lengths in twips.
std::string Dump(const ParagraphLayout& layout);

/// Items of a display list, one a line; a glyph of a FixedFontHost is shown as its character.
std::string Dump(const DisplayList& list);

/// What a layout draws.
std::string DumpDrawing(const ParagraphLayout& layout);

}  // namespace quillmarker
