#pragma once

#include <QImage>

namespace quillmarker::metafile
{

// The formats know no transparent pixels. They say where a picture has a hole with a mask, white where what is there
// stays, which is mixed with what is there by And, before the picture, black there, by Or or Xor.

/// True when both have the same size and the image is black wherever the mask is white.
bool IsMaskedBy(const QImage& image, const QImage& mask);

/// The image, as transparent as the mask is bright.
QImage WithHole(const QImage& image, const QImage& mask);

/// What a mask alone does: black, as transparent as the mask is bright.
QImage Shadow(const QImage& mask);

/// What the image alone does over black: its colours, as transparent as they are dark.
QImage BlackTakenOut(const QImage& image);

}  // namespace quillmarker::metafile
