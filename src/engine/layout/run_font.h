#pragma once

#include "fine.h"
#include "font_host.h"

#include <quillmarker/char_format.h>

namespace quillmarker
{

/// A character format as layout needs it: a face in a size, and how far it stands above and below the line's baseline.
struct RunFont
{
    const FontFace* face = nullptr;
    Twips size;
    Fine raise = 0;  // of the baseline; positive raises
    Fine ascent = 0;
    Fine descent = 0;
    Fine lineGap = 0;
};

/// Superscript and subscript are smaller than their format's size; an explicit offset only moves.
Twips ShownFontSize(const CharFormat& format);

RunFont RunFontOf(const CharFormat& format, FontHost& fonts);

/// The same in another size, as small capitals have it.
RunFont WithSize(RunFont font, Twips size);

/// Small capitals of a text in `size`.
constexpr Twips SmallCapsSize(Twips size) { return size * 4 / 5; }

FontRequest RequestOf(const CharFormat& format);

}  // namespace quillmarker
