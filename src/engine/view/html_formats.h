#pragma once

#include <quillmarker/char_format.h>
#include <quillmarker/paragraph_format.h>

#include <QTextBlock>
#include <QTextCharFormat>

namespace quillmarker
{

/// What HTML that was read by Qt says of characters; what it does not say is as in `base`.
CharFormat CharFormatOf(const QTextCharFormat& from, const CharFormat& base);

/// What it says of a paragraph: alignment, indents, direction, its bullet or number.
ParagraphFormat ParagraphFormatOf(const QTextBlock& block);

}  // namespace quillmarker
