#pragma once

#include <QPainter>
#include <QRectF>

#include <string_view>

namespace quillmarker
{

/// Makes the rectangle, in the painter's coordinates, lead to `target` where a PDF is painted; nothing elsewhere. Only
/// addresses of the web and of mail are written: what opens a file or runs something is not, nor a place in a document.
void WriteLink(QPainter& painter, const QRectF& rectangle, std::u16string_view target);

}  // namespace quillmarker
