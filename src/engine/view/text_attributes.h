#pragma once

#include <quillmarker/char_format.h>
#include <quillmarker/paragraph_format.h>

#include <QColor>
#include <QString>

namespace quillmarker
{

/// Formats as screen readers are told them: the text attributes of IAccessible2, "name:value;name:value;". Automatic text has
/// the colour given; an automatic background is not told.
QString TextAttributes(const CharFormat& format, const ParagraphFormat& paragraph, const QColor& textColour);

}  // namespace quillmarker
