#include <quillmarker/widgets/picture.h>

#include "engine/layout/metafile/metafile.h"
#include "engine/layout/picture_image.h"
#include "engine/view/picture_exchange.h"

#include <QPainter>
#include <QtMath>

namespace quillmarker
{

namespace
{

constexpr int kDrawingDpi = 96;
constexpr double kTwipsInInch = 1440;

int DotsPerMetre(int dotsPerInch) { return qRound(dotsPerInch / 0.0254); }

// A transparent image to paint on; null when it would be larger than any picture may be.
QImage Ground(QSize size, int dotsPerInch)
{
    if (size.isEmpty() || qint64{size.width()} * size.height() > kMaxPicturePixels)
        return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDotsPerMeterX(DotsPerMetre(dotsPerInch));
    image.setDotsPerMeterY(DotsPerMetre(dotsPerInch));
    return image;
}

QImage Drawn(const QPicture& drawing)
{
    const QRect bounds = drawing.boundingRect();
    QImage image = Ground(bounds.size(), kDrawingDpi);
    if (image.isNull())
        return {};
    QPainter painter(&image);
    painter.drawPicture(-bounds.topLeft(), drawing);
    return image;
}

bool IsMetafile(std::string_view bytes)
{
    QImage nowhere(1, 1, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&nowhere);
    return PlayMetafile(painter, QRectF(), bytes, {});
}

QImage Played(const InlinePicture& metafile)
{
    const QSizeF size = ShownSize(metafile) * kMetafileDpi / kTwipsInInch;
    QImage image = Ground({qCeil(size.width()), qCeil(size.height())}, kMetafileDpi);
    if (image.isNull())
        return {};
    QPainter painter(&image);
    const bool isPlayed = PlayMetafile(painter, image.rect(), *metafile.bytes, {});
    painter.end();
    return isPlayed ? image : QImage();
}

}  // namespace

Picture::Picture(const QImage& image) : m_image(image) {}

Picture::Picture(const QPixmap& pixmap) : m_image(pixmap.toImage()) {}

Picture::Picture(const QPicture& drawing) : m_image(Drawn(drawing)) {}

Picture Picture::FromEncoded(const QByteArray& bytes)
{
    Picture picture;
    picture.m_encoded = bytes;
    return picture;
}

std::int64_t Picture::Handle() const { return m_image.isNull() && m_encoded.isEmpty() ? 0 : 1; }

QImage Picture::Image() const
{
    if (m_encoded.isEmpty())
        return m_image;
    InlinePicture picture;
    picture.bytes = Shared(m_encoded.toStdString());
    return IsMetafile(*picture.bytes) ? Played(picture) : DecodeBitmap(picture);
}

}  // namespace quillmarker
