#pragma once

#include <quillmarker/inline_object.h>
#include <quillmarker/pages/export.h>

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSizeF>

namespace quillmarker
{

/// The size in twips in which a picture is shown: its goal (else its natural size), less what is cropped, scaled. At least a
/// twip, at most kMaxPictureTwips a side, whatever the file says.
QUILLMARKER_PAGES_EXPORT QSizeF ShownSize(const InlinePicture& picture);

constexpr qreal kMaxPictureTwips = 22 * 1440.0 * 10;

/// The pixels of a bitmap picture (PNG, JPEG, GIF, BMP, DIB, DDB), whatever kind it claims to be; null when it cannot
/// be read, or would be larger than kMaxPicturePixels or than QImageReader's own limit allows. Read anew each time:
/// PaintPicture keeps what it decoded.
QUILLMARKER_PAGES_EXPORT QImage DecodeBitmap(const InlinePicture& picture);

constexpr qint64 kMaxPicturePixels = 64 * 1024 * 1024;

/// Paints the picture into `rectangle` (in the painter's coordinates), cropped as it says; metafiles are played as
/// vectors. What cannot be read is a thin frame with a cross.
QUILLMARKER_PAGES_EXPORT void PaintPicture(QPainter& painter, const QRectF& rectangle, const InlinePicture& picture);

}  // namespace quillmarker
