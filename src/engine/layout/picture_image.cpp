#include "picture_image.h"

#include "bitmap_format.h"
#include "decoded_pictures.h"
#include "device_bitmap.h"
#include "metafile/metafile.h"

#include <QBuffer>
#include <QImageReader>
#include <QPaintEngine>

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

constexpr qreal kTwipsPerPixel = 15;  // at 96 dots an inch
constexpr qreal kTwipsPerInch = 1440;
constexpr qreal kTwipsPerHundredthMillimetre = kTwipsPerInch / 2540;
constexpr qreal kUnknownSide = 300;  // of a picture about whose size nothing is known
// What a crop leaves must be more than this part of the picture.
constexpr qreal kLeastLeft = 0.001;

std::string_view BytesOf(const InlinePicture& picture)
{
    return picture.bytes ? std::string_view(*picture.bytes) : std::string_view();
}

// The plug-in that reads a format. Only these are ever asked: others can follow references out of the document.
constexpr std::array<const char*, 5> kReaders = {"", "png", "jpeg", "gif", "bmp"};

class BitmapReading
{
public:
    BitmapReading(std::string_view bytes, BitmapFormat format)
        : m_bytes(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()))),
          m_buffer(&m_bytes),
          m_reader(&m_buffer, kReaders[static_cast<std::size_t>(format)])
    {
        m_reader.setAutoDetectImageFormat(false);
        m_buffer.open(QIODevice::ReadOnly);
    }

    /// Empty when the header cannot be read.
    QSize Size() const { return m_reader.size(); }

    QImage Read()
    {
        const QSize size = Size();
        if (size.isEmpty() || qint64{size.width()} * size.height() > kMaxPicturePixels)
            return {};
        return m_reader.read();
    }

private:
    QByteArray m_bytes;
    QBuffer m_buffer;
    QImageReader m_reader;
};

QSizeF SizeIn(QSize pixels, QSizeF dotsPerInch)
{
    return {pixels.width() * kTwipsPerInch / dotsPerInch.width(),
            pixels.height() * kTwipsPerInch / dotsPerInch.height()};
}

bool IsMetafile(PictureKind kind) { return kind == PictureKind::Emf || kind == PictureKind::Wmf; }

// The size that the bytes state; empty where they state none.
QSizeF OwnSize(const InlinePicture& picture)
{
    const std::string_view bytes = BytesOf(picture);
    if (const BitmapFormat format = FormatOf(bytes); format != BitmapFormat::None)
        return SizeIn(BitmapReading(bytes, format).Size(), ResolutionOf(bytes, format));
    if (picture.kind == PictureKind::Dib)
    {
        const auto header = ReadDibHeader(bytes);
        return header ? SizeIn(header->pixels, ResolutionOf(*header)) : QSizeF();
    }
    return SizeOfMetafile(bytes).twips;
}

// In twips, before scaling and cropping, for a picture that states no goal.
QSizeF NaturalSize(const InlinePicture& picture)
{
    const qreal unit = IsMetafile(picture.kind) ? kTwipsPerHundredthMillimetre : kTwipsPerPixel;
    const QSizeF stated(picture.width * unit, picture.height * unit);
    const QSizeF own = IsMetafile(picture.kind) && !stated.isEmpty() ? QSizeF() : OwnSize(picture);
    const auto side = [](qreal first, qreal second) { return first > 0 ? first : second > 0 ? second : kUnknownSide; };
    return {side(own.width(), stated.width()), side(own.height(), stated.height())};
}

// In twips, before scaling and cropping.
QSizeF FullSize(const InlinePicture& picture)
{
    QSizeF size(picture.goalWidth.value, picture.goalHeight.value);
    if (size.isEmpty())
    {
        const QSizeF natural = NaturalSize(picture);
        size = QSizeF(size.width() > 0 ? size.width() : natural.width(),
                      size.height() > 0 ? size.height() : natural.height());
    }
    return size;
}

qreal Scaled(qreal length, std::int32_t percent)
{
    return std::clamp(length * (percent > 0 ? percent : 100) / 100, 1.0, kMaxPictureTwips);
}

qreal Across(const InlinePicture& picture) { return qreal(picture.cropLeft.value) + picture.cropRight.value; }
qreal Down(const InlinePicture& picture) { return qreal(picture.cropTop.value) + picture.cropBottom.value; }

bool IsCropped(const InlinePicture& picture)
{
    return picture.cropLeft.value != 0 || picture.cropRight.value != 0 || picture.cropTop.value != 0 ||
           picture.cropBottom.value != 0;
}

// Where the whole picture would be if what is left of it by its crop fills `rectangle`; empty when nothing is left.
QRectF WholeRectangle(const QRectF& rectangle, const InlinePicture& picture)
{
    if (!IsCropped(picture))
        return rectangle;
    const QSizeF full = FullSize(picture);
    const QSizeF left(full.width() - Across(picture), full.height() - Down(picture));
    if (left.width() < full.width() * kLeastLeft || left.height() < full.height() * kLeastLeft)
        return {};
    const qreal x = rectangle.width() / left.width();
    const qreal y = rectangle.height() / left.height();
    return {rectangle.left() - picture.cropLeft.value * x, rectangle.top() - picture.cropTop.value * y,
            full.width() * x, full.height() * y};
}

// How many pixels of the device the rectangle takes; empty where that is not known.
QSize DevicePixels(const QPainter& painter, const QRectF& rectangle)
{
    const QPaintEngine* engine = painter.paintEngine();
    const QTransform transform = painter.deviceTransform();
    if (engine == nullptr || engine->type() != QPaintEngine::Raster || transform.type() > QTransform::TxScale)
        return {};
    return transform.mapRect(rectangle).size().toSize();
}

bool PaintBitmap(QPainter& painter, const QRectF& rectangle, const QRectF& whole, const InlinePicture& picture)
{
    const QImage image = PaintedPictures().Reduced(picture, DevicePixels(painter, whole));
    const QRectF target = rectangle & whole;
    if (image.isNull() || target.isEmpty())
        return !image.isNull();
    const qreal x = image.width() / whole.width();
    const qreal y = image.height() / whole.height();
    const QRectF source((target.left() - whole.left()) * x, (target.top() - whole.top()) * y, target.width() * x,
                        target.height() * y);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, image, source);
    return true;
}

bool PaintMetafile(QPainter& painter, const QRectF& rectangle, const QRectF& whole, const InlinePicture& picture)
{
    painter.setClipRect(rectangle, Qt::IntersectClip);
    return PlayMetafile(painter, whole, BytesOf(picture), {picture.mapping, picture.width, picture.height});
}

bool IsBitmap(const InlinePicture& picture)
{
    return FormatOf(BytesOf(picture)) != BitmapFormat::None || picture.kind == PictureKind::Dib ||
           picture.kind == PictureKind::Ddb;
}

void PaintPlaceholder(QPainter& painter, const QRectF& rectangle)
{
    painter.setPen(QPen(Qt::gray, 0));
    painter.setBrush(Qt::NoBrush);
    painter.setClipRect(rectangle.adjusted(-1, -1, 1, 1), Qt::IntersectClip);
    painter.drawRect(rectangle);
    painter.drawLine(rectangle.topLeft(), rectangle.bottomRight());
    painter.drawLine(rectangle.bottomLeft(), rectangle.topRight());
}

}  // namespace

QSizeF ShownSize(const InlinePicture& picture)
{
    const QSizeF full = FullSize(picture);
    return {Scaled(full.width() - Across(picture), picture.scaleX),
            Scaled(full.height() - Down(picture), picture.scaleY)};
}

QImage DecodeBitmap(const InlinePicture& picture)
{
    const std::string_view bytes = BytesOf(picture);
    if (const BitmapFormat format = FormatOf(bytes); format != BitmapFormat::None)
        return BitmapReading(bytes, format).Read();
    if (picture.kind == PictureKind::Ddb)
        return DecodeDeviceBitmap(picture);
    if (picture.kind != PictureKind::Dib)
        return {};
    const auto header = ReadDibHeader(bytes);
    return header ? BitmapReading(BmpFileOf(bytes, *header), BitmapFormat::Bmp).Read() : QImage();
}

void PaintPicture(QPainter& painter, const QRectF& rectangle, const InlinePicture& picture)
{
    const QRectF whole = WholeRectangle(rectangle, picture);
    painter.save();
    bool isPainted = false;
    if (!whole.isEmpty() && !BytesOf(picture).empty())
        isPainted = IsBitmap(picture) ? PaintBitmap(painter, rectangle, whole, picture)
                                      : PaintMetafile(painter, rectangle, whole, picture);
    painter.restore();
    if (isPainted)
        return;
    painter.save();
    PaintPlaceholder(painter, rectangle);
    painter.restore();
}

}  // namespace quillmarker
