#include "engine/layout/metafile_builder.h"

#include <quillmarker/widgets/picture.h>

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

namespace quillmarker
{
namespace
{

QImage Pixels(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor(10, 20, 30));
    return image;
}

QByteArray Encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

QImage Decoded(const std::string& bytes) { return Picture::FromEncoded(QByteArray::fromStdString(bytes)).Image(); }

TEST(Picture, HasNoHandleWhenThereIsNoPicture)
{
    EXPECT_EQ(Picture().Handle(), 0);
    EXPECT_EQ(Picture(QImage()).Handle(), 0);
    EXPECT_EQ(Picture(QPixmap()).Handle(), 0);
    EXPECT_EQ(Picture(QPicture()).Handle(), 0);
    EXPECT_EQ(Picture::FromEncoded({}).Handle(), 0);
    EXPECT_TRUE(Picture().Image().isNull());
    EXPECT_TRUE(Picture::FromEncoded({}).Image().isNull());
}

TEST(Picture, HasAHandleWhenThereIsOne)
{
    EXPECT_NE(Picture(Pixels(1, 1)).Handle(), 0);
    EXPECT_NE(Picture::FromEncoded("anything").Handle(), 0);
}

TEST(Picture, KeepsPixelsAsTheyAre)
{
    const QImage image = Pixels(3, 2);
    EXPECT_EQ(Picture(image).Image(), image);
    EXPECT_TRUE(Picture(image).Encoded().isEmpty());
    EXPECT_EQ(Picture(QPixmap::fromImage(image)).Image().convertToFormat(QImage::Format_RGB32), image);
}

TEST(Picture, PaintsADrawingInItsBounds)
{
    QPicture drawing;
    QPainter painter(&drawing);
    painter.fillRect(100, 50, 20, 10, Qt::red);
    painter.fillRect(110, 55, 10, 5, Qt::blue);
    painter.end();

    const QImage image = Picture(drawing).Image();
    EXPECT_EQ(image.size(), QSize(20, 10));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(19, 9), QColor(Qt::blue));
    EXPECT_EQ(image.logicalDpiX(), 96);
    EXPECT_EQ(image.logicalDpiY(), 96);
}

TEST(Picture, LeavesTheGroundOfADrawingClear)
{
    QPicture drawing;
    QPainter painter(&drawing);
    painter.fillRect(0, 0, 1, 1, Qt::red);
    painter.fillRect(9, 9, 1, 1, Qt::red);
    painter.end();
    EXPECT_EQ(Picture(drawing).Image().pixelColor(5, 5).alpha(), 0);
}

TEST(Picture, IsEmptyForADrawingLargerThanAnyPicture)
{
    QPicture drawing;
    QPainter painter(&drawing);
    painter.fillRect(0, 0, 100000, 100000, Qt::red);
    painter.end();
    EXPECT_EQ(Picture(drawing).Handle(), 0);
}

TEST(Picture, KeepsEncodedBytesAndDecodesThem)
{
    const QImage image = Pixels(4, 5);
    for (const char* format : {"PNG", "BMP", "JPEG"})
    {
        const QByteArray bytes = Encoded(image, format);
        const Picture picture = Picture::FromEncoded(bytes);
        EXPECT_EQ(picture.Encoded(), bytes) << format;
        EXPECT_EQ(picture.Image().size(), image.size()) << format;
        EXPECT_NEAR(picture.Image().pixelColor(2, 2).blue(), 30, 3) << format;
    }
}

TEST(Picture, PlaysMetafiles)
{
    const QImage emf = Decoded(EmfBuilder().NullPen().Brush(1, 0x0000FF).Rectangle(0, 0, 101, 101).Whole());
    // 100 millimetres at 192 dots an inch.
    EXPECT_EQ(emf.size(), QSize(756, 756));
    EXPECT_EQ(emf.pixelColor(378, 378), QColor(Qt::red));

    const std::string wmf = WmfBuilder().Brush(0, 0x00FF00).Rectangle(-1, -1, 102, 102).Placeable(0, 0, 100, 50, 100);
    EXPECT_EQ(Decoded(wmf).size(), QSize(192, 96));
    EXPECT_EQ(Decoded(wmf).pixelColor(96, 24), QColor(Qt::green));
}

TEST(Picture, HasNoPixelsWhenTheBytesAreNoPicture)
{
    EXPECT_TRUE(Decoded("no picture").isNull());
    EXPECT_TRUE(Decoded(std::string(1000, '\0')).isNull());
    const QByteArray png = Encoded(Pixels(40, 50), "PNG");
    EXPECT_TRUE(Picture::FromEncoded(png.left(40)).Image().isNull());
    // A file that refers to others is none of the formats.
    EXPECT_TRUE(Decoded("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>").isNull());
}

TEST(Picture, KeepsTheLimitOfWhatIsDecoded)
{
    const QByteArray png = Encoded(Pixels(1000, 1000), "PNG");
    const int usual = QImageReader::allocationLimit();
    QImageReader::setAllocationLimit(1);
    EXPECT_TRUE(Picture::FromEncoded(png).Image().isNull());
    QImageReader::setAllocationLimit(usual);
    EXPECT_FALSE(Picture::FromEncoded(png).Image().isNull());
}

}  // namespace
}  // namespace quillmarker
