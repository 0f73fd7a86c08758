#pragma once

#include <quillmarker/inline_object.h>

#include <QImage>

namespace quillmarker
{

/// The pixels of a device-dependent bitmap (\wbitmap): rows from the top, each padded to an even number of bytes, with
/// the colours of the device it was made for, which nobody knows: 16 colours are the classic ones, 256 are taken for
/// greys. Null when the bytes are too few, or the depth is none there was.
QImage DecodeDeviceBitmap(const InlinePicture& picture);

}  // namespace quillmarker
