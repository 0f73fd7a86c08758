#pragma once

#include <QColor>

namespace quillmarker
{

/// What text of a colour is shown on: the usual ground, or white or black where the text could not be read on it.
QColor SampleGround(const QColor& text, const QColor& usual);

}  // namespace quillmarker
