#pragma once

#include <quillmarker/widgets/export.h>

#include <QByteArray>
#include <QImage>
#include <QPicture>
#include <QPixmap>

#include <cstdint>

namespace quillmarker
{

/// A picture that a host hands to the control: pixels, recorded drawing, or the bytes of a picture file (PNG, JPEG, BMP,
/// GIF, EMF, WMF), which are kept as they are.
class QUILLMARKER_WIDGETS_EXPORT HostPicture
{
public:
    HostPicture() = default;
    HostPicture(const QImage& image);      // NOLINT(google-explicit-constructor): all of these are pictures
    HostPicture(const QPixmap& pixmap);    // NOLINT(google-explicit-constructor)
    HostPicture(const QPicture& drawing);  // NOLINT(google-explicit-constructor)
    static HostPicture FromEncoded(const QByteArray& bytes);

    /// 0 when there is no picture; what other values are has no meaning.
    std::int64_t Handle() const;

    /// The pixels; those of encoded bytes are decoded. Null when they cannot be.
    QImage Image() const;
    /// The bytes it was made of; empty for pixels.
    const QByteArray& Encoded() const { return m_encoded; }

private:
    QImage m_image;
    QByteArray m_encoded;
};

}  // namespace quillmarker

Q_DECLARE_METATYPE(quillmarker::HostPicture)
