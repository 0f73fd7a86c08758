#include "picture_exchange.h"

#include "engine/layout/picture_image.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

constexpr double kTwipsPerMetre = 1440 / 0.0254;
constexpr int kDefaultDpi = 96;

QByteArray BytesOf(const InlinePicture& picture)
{
    return picture.bytes ? QByteArray::fromRawData(picture.bytes->data(), static_cast<qsizetype>(picture.bytes->size()))
                         : QByteArray();
}

QByteArray AsPng(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// What the bytes are, whatever the picture is said to be.
PictureKind KindOf(const QByteArray& bytes)
{
    if (bytes.startsWith("\x89PNG\r\n\x1A\n"))
        return PictureKind::Png;
    if (bytes.startsWith("\xFF\xD8\xFF"))
        return PictureKind::Jpeg;
    return PictureKind::Other;
}

Twips Goal(int pixels, int perMetre)
{
    const double dots = perMetre > 0 ? perMetre : kDefaultDpi / 0.0254;
    return {static_cast<std::int32_t>(std::clamp(pixels * kTwipsPerMetre / dots, 1.0, kMaxPictureTwips))};
}

/// A metafile as it is shown, without its crop's rounding: painted once at a resolution that prints well.
QImage Played(const InlinePicture& picture)
{
    const QSizeF pixels = ShownSize(picture) * kMetafileDpi / 1440.0;
    const QSize size = pixels.toSize().expandedTo(QSize(1, 1));
    if (qint64(size.width()) * size.height() > kMaxPicturePixels)
        return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    image.setDotsPerMeterX(qRound(kMetafileDpi / 0.0254));
    image.setDotsPerMeterY(qRound(kMetafileDpi / 0.0254));
    QPainter painter(&image);
    PaintPicture(painter, QRectF(QPointF(0, 0), size), picture);
    return image;
}

bool IsMetafile(const InlinePicture& picture)
{
    return picture.kind == PictureKind::Emf || picture.kind == PictureKind::Wmf;
}

}  // namespace

std::optional<PortablePicture> PortableForm(const InlinePicture& picture)
{
    const QByteArray bytes = BytesOf(picture);
    switch (KindOf(bytes))
    {
    case PictureKind::Png:
        return PortablePicture{"image/png", QByteArray(bytes.data(), bytes.size())};
    case PictureKind::Jpeg:
        return PortablePicture{"image/jpeg", QByteArray(bytes.data(), bytes.size())};
    default:
        break;
    }
    const QImage image = ImageOf(picture);
    if (image.isNull())
        return std::nullopt;
    return PortablePicture{"image/png", AsPng(image)};
}

QImage ImageOf(const InlinePicture& picture) { return IsMetafile(picture) ? Played(picture) : DecodeBitmap(picture); }

std::optional<InlinePicture> PictureOf(const QImage& image)
{
    if (image.isNull() || qint64(image.width()) * image.height() > kMaxPicturePixels)
        return std::nullopt;
    InlinePicture picture;
    picture.kind = PictureKind::Png;
    picture.width = image.width();
    picture.height = image.height();
    picture.goalWidth = Goal(image.width(), image.dotsPerMeterX());
    picture.goalHeight = Goal(image.height(), image.dotsPerMeterY());
    picture.bytes = Shared(AsPng(image).toStdString());
    return picture;
}

std::optional<InlinePicture> PictureOfBytes(QByteArray bytes)
{
    const PictureKind kind = KindOf(bytes);
    if (kind == PictureKind::Other)
        return std::nullopt;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, kind == PictureKind::Png ? "PNG" : "JPEG");
    const QSize size = reader.size();
    if (!size.isValid() || qint64(size.width()) * size.height() > kMaxPicturePixels)
        return std::nullopt;
    // Reading the pixels proves that they are there, and tells the resolution.
    const QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;
    InlinePicture picture;
    picture.kind = kind;
    picture.width = image.width();
    picture.height = image.height();
    picture.goalWidth = Goal(image.width(), image.dotsPerMeterX());
    picture.goalHeight = Goal(image.height(), image.dotsPerMeterY());
    picture.bytes = Shared(bytes.toStdString());
    return picture;
}

}  // namespace quillmarker
