#include "engine/view/clipboard_formats.h"

#include "support/sample.h"

#include "engine/platform/clipboard_format.h"

#include <QBuffer>
#include <QImage>
#include <QUrl>

#include <gmock/gmock.h>

namespace quillmarker
{
namespace
{

using testing::HasSubstr;
using testing::Not;

QString Type(const char* name) { return QString::fromLatin1(name); }

QImage TestImage(int dotsPerInch = 192)
{
    QImage image(64, 32, QImage::Format_RGB32);
    image.fill(QColor(10, 200, 30));
    image.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    image.setDotsPerMeterY(qRound(dotsPerInch / 0.0254));
    return image;
}

QByteArray FileOf(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

InlinePicture PictureOfFile(const QByteArray& bytes, PictureKind kind)
{
    InlinePicture picture;
    picture.kind = kind;
    picture.width = 64;
    picture.height = 32;
    picture.goalWidth = Twips{480};
    picture.goalHeight = Twips{240};
    picture.bytes = Shared(bytes.toStdString());
    return picture;
}

const InlinePicture* PictureAt(const TextBox& box, std::int32_t position)
{
    const Location at = box.Value().Locate({position});
    const InlineObject* object = box.Value().ParagraphAt(at.paragraph).ObjectAt(static_cast<std::uint32_t>(at.offset));
    return object ? std::get_if<InlinePicture>(object) : nullptr;
}

TEST(Copying, AnEmptySelectionOffersNothing) { EXPECT_FALSE(MimeDataOfSelection(SampleBox("ab|c"))); }

TEST(Copying, OffersRichTextHtmlAndText)
{
    const auto data = MimeDataOfSelection(SampleBox("pay ^<b>tot</b>al\nno|w"));
    ASSERT_TRUE(data);
    for (const char* name : {"text/rtf", "application/rtf", "text/richtext"})
    {
        EXPECT_TRUE(data->hasFormat(Type(name))) << name;
        EXPECT_TRUE(data->data(Type(name)).startsWith("{\\rtf1")) << name;
    }
    EXPECT_EQ(data->text(), QStringLiteral("total\nno"));
    EXPECT_EQ(data->data(Type("text/plain")), QByteArray("total\nno"));
    EXPECT_THAT(data->html().toStdString(), HasSubstr("<b>tot</b>"));
    EXPECT_FALSE(data->hasImage());
    EXPECT_TRUE(Offers(*data, kClipboardText));
    EXPECT_TRUE(Offers(*data, kClipboardRichText));
    EXPECT_FALSE(Offers(*data, kClipboardBitmap));
    EXPECT_FALSE(Offers(*data, 3));
}

TEST(Copying, PlainTextIsWhatAReaderSees)
{
    const auto data = MimeDataOfSelection(SampleBox("^a<h>hidden</h>b\vc<cell/>d<cell/><row/>e<pic/>\n|"));
    EXPECT_EQ(data->text().toStdString(), "ab\nc\td\t\ne \n");
}

TEST(Copying, KeepsTheDocumentAsItWas)
{
    SampleBox box("^one|");
    const auto data = MimeDataOfSelection(box);
    box.SetText(u"two");
    EXPECT_EQ(data->text(), QStringLiteral("one"));
}

TEST(Copying, TheFilterComesBeforeEveryFormat)
{
    SampleBox box("^a [x] b\nc|");
    int calls = 0;
    const CopyFilter filter = [&](std::u16string rtf) {
        ++calls;
        const std::size_t at = rtf.find(u"[x]");
        return at == rtf.npos ? rtf : rtf.replace(at, 3, u"y");
    };
    const auto data = MimeDataOfSelection(box, filter);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(data->text(), QStringLiteral("a y b\nc"));
    EXPECT_THAT(data->html().toStdString(), Not(HasSubstr("[x]")));
    EXPECT_FALSE(data->data(Type("text/rtf")).contains("[x]"));
    EXPECT_EQ(calls, 1);
}

TEST(Copying, OnePictureIsAnImageToo)
{
    SampleBox box("a|");
    box.InsertObject(PictureOfFile(FileOf(TestImage(), "PNG"), PictureKind::Png));
    box.SetSelStart(1);
    box.SetSelLength(1);
    const auto data = MimeDataOfSelection(box);
    ASSERT_TRUE(data->hasImage());
    EXPECT_EQ(qvariant_cast<QImage>(data->imageData()).pixelColor(5, 5), QColor(10, 200, 30));
    EXPECT_FALSE(data->hasFormat(Type("text/plain")));
    EXPECT_TRUE(data->html().contains(QLatin1String("<img src=\"data:image/png;base64,")));
    EXPECT_TRUE(data->html().contains(QLatin1String("width=\"32\" height=\"16\"")));
    box.SetSelStart(0);
    box.SetSelLength(2);
    EXPECT_FALSE(MimeDataOfSelection(box)->hasImage());
}

TEST(Pasting, WhatWasCopiedIsThereAgain)
{
    for (const char* sample : {"^a <b>b</b> <i>c</i>|", "^a\n<u>b</u>\n|c", "a^<cell/>b<cell/><row/>|", "x^<pic/>y|z"})
    {
        SampleBox box(sample);
        const auto data = MimeDataOfSelection(box);
        const std::string whole = DumpSample(box.Value());
        EXPECT_TRUE(InsertMimeData(box, *data)) << sample;
        EXPECT_EQ(DumpSample(box.Value()), whole);
    }
}

TEST(Pasting, RichTextIsBetterThanAnImageThanHtmlThanText)
{
    QMimeData data;
    data.setText(QStringLiteral("text"));
    SampleBox box("|");
    EXPECT_TRUE(CanInsertMimeData(data));
    EXPECT_TRUE(InsertMimeData(box, data));
    EXPECT_EQ(box.Text(), u"text");

    data.setHtml(QStringLiteral("<i>html</i>"));
    SampleBox html("|");
    EXPECT_TRUE(InsertMimeData(html, data));
    EXPECT_EQ(Dump(html), "<i>html</i>|");

    data.setImageData(TestImage());
    SampleBox image("|");
    EXPECT_TRUE(InsertMimeData(image, data));
    EXPECT_EQ(Dump(image), "<pic/>|");

    data.setData(Type("application/rtf"), "{\\rtf1\\b rtf}");
    SampleBox rtf("|");
    EXPECT_TRUE(InsertMimeData(rtf, data));
    EXPECT_EQ(Dump(rtf), "<b>rtf</b>|");
}

TEST(Pasting, AnImageHasTheSizeOfItsResolution)
{
    QMimeData data;
    data.setImageData(TestImage(192));
    SampleBox box("|");
    EXPECT_TRUE(InsertMimeData(box, data));
    const InlinePicture* picture = PictureAt(box, 0);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->kind, PictureKind::Png);
    EXPECT_NEAR(picture->goalWidth.value, 480, 1);  // a third of an inch
    EXPECT_NEAR(picture->goalHeight.value, 240, 1);
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(*picture->bytes)).pixelColor(1, 1), QColor(10, 200, 30));
}

TEST(Pasting, APictureFileKeepsItsBytes)
{
    const QByteArray bytes = FileOf(TestImage(), "JPEG");
    QMimeData data;
    data.setData(Type("image/jpeg"), bytes);
    EXPECT_TRUE(CanInsertMimeData(data));
    SampleBox box("|");
    EXPECT_TRUE(InsertMimeData(box, data));
    const InlinePicture* picture = PictureAt(box, 0);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->kind, PictureKind::Jpeg);
    EXPECT_EQ(*picture->bytes, bytes.toStdString());
    EXPECT_EQ(picture->width, 64);
}

TEST(Pasting, DataThatIsNotWhatItSaysIsPassedOver)
{
    QMimeData data;
    data.setData(Type("text/richtext"), "Some <bold>other</bold> text");
    data.setData(Type("image/png"), "no picture");
    data.setText(QStringLiteral("text"));
    SampleBox box("|");
    EXPECT_TRUE(InsertMimeData(box, data));
    EXPECT_EQ(box.Text(), u"text");
}

TEST(Pasting, RichTextMayEndInNuls)
{
    QMimeData data;
    data.setData(Type("text/rtf"), QByteArray("{\\rtf1 a}\0\0", 11));
    SampleBox box("|");
    EXPECT_TRUE(InsertMimeData(box, data));
    EXPECT_EQ(box.Text(), u"a");
}

TEST(Pasting, FilesAreNotText)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/some/file.rtf"))});
    EXPECT_FALSE(CanInsertMimeData(data));
    SampleBox box("a|");
    EXPECT_FALSE(InsertMimeData(box, data));
    EXPECT_EQ(Dump(box), "a|");
}

TEST(Pasting, ObeysLockedProtectionAndMaxLength)
{
    QMimeData text;
    text.setText(QStringLiteral("text"));
    QMimeData rtf;
    rtf.setData(Type("text/rtf"), "{\\rtf1 text}");
    QMimeData html;
    html.setHtml(QStringLiteral("<p>text</p>"));
    QMimeData image;
    image.setImageData(TestImage());
    for (const QMimeData* data : {&text, &rtf, &html, &image})
    {
        SampleBox locked("a|");
        locked.SetLocked(true);
        EXPECT_FALSE(InsertMimeData(locked, *data));
        EXPECT_EQ(Dump(locked), "a|");
        SampleBox inside("<p>a|b</p>");
        EXPECT_FALSE(InsertMimeData(inside, *data));
        EXPECT_EQ(Dump(inside), "<p>a|b</p>");
        SampleBox full("a|");
        full.SetMaxLength(1);
        EXPECT_FALSE(InsertMimeData(full, *data));
        EXPECT_EQ(Dump(full), "a|");
        SampleBox free("a|");
        EXPECT_TRUE(InsertMimeData(free, *data));
        free.Undo();
        EXPECT_EQ(Dump(free), "a|");
    }
}

}  // namespace
}  // namespace quillmarker
