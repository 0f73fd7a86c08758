#pragma once

#include <quillmarker/inline_object.h>

#include <QByteArray>
#include <QImage>

#include <optional>

namespace quillmarker
{

/// A picture in a form that any program can show.
struct PortablePicture
{
    const char* mimeType = nullptr;
    QByteArray bytes;
};

/// The bytes as they are where they are PNG or JPEG, else the picture's pixels as PNG; none when it cannot be read.
std::optional<PortablePicture> PortableForm(const InlinePicture& picture);

/// The picture's pixels, of a metafile at `kMetafileDpi`; null when it cannot be read.
QImage ImageOf(const InlinePicture& picture);

constexpr int kMetafileDpi = 192;

/// A picture of an image's pixels, as PNG, in the size that its resolution gives it; none for a null image.
std::optional<InlinePicture> PictureOf(const QImage& image);

/// A picture of the bytes of a PNG or JPEG file, which are kept as they are; none for anything else, and for what is
/// larger than any picture may be.
std::optional<InlinePicture> PictureOfBytes(QByteArray bytes);

}  // namespace quillmarker
