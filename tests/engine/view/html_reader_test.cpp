#include "engine/view/html_reader.h"

#include "engine/view/html_bounds.h"

#include "support/sample.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QUrl>

#include <gmock/gmock.h>

namespace quillmarker
{
namespace
{

using testing::HasSubstr;

RtfReading Reading()
{
    const Document empty = SampleDocument("");
    RtfReading reading;
    reading.formats = empty.FormatsPointer();
    reading.defaultFormat = empty.FormatOf(empty.ParagraphAt(0).Ending().charFormat);
    return reading;
}

Document Read(const char* html)
{
    const std::optional<Document> document = ReadHtml(QString::fromUtf8(html), Reading());
    return document ? *document : SampleDocument("not read");
}

std::string Sample(const char* html) { return DumpSample(Read(html)); }

const CharFormat& FormatAt(const Document& document, std::int32_t position)
{
    const Location at = document.Locate({position});
    return document.FormatOf(document.ParagraphAt(at.paragraph).FormatAt(static_cast<std::uint32_t>(at.offset)));
}

const ParagraphFormat& ParagraphFormatAt(const Document& document, std::int32_t index)
{
    return document.FormatOf(document.ParagraphAt(index).Ending().format);
}

const InlinePicture* PictureIn(const Document& document)
{
    for (const PlacedObject& placed : document.ParagraphAt(0).Extras().objects)
        return std::get_if<InlinePicture>(&*placed.object);
    return nullptr;
}

QByteArray PngOf(int width, int height, const char* format = "PNG")
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    image.setDotsPerMeterX(11811);  // 300 to the inch
    image.setDotsPerMeterY(11811);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

TEST(ReadingHtml, KeepsTextParagraphsAndBasicFormats)
{
    EXPECT_EQ(Sample("<p>a <b>b</b> <i>c</i> <u>d</u> <s>e</s></p><p>f<br>g</p>"),
              "a <b>b</b> <i>c</i> <u>d</u> <s>e</s>\nf\vg");
    EXPECT_EQ(Sample("plain &lt;text&gt; &amp; &#x20AC;"), "plain \\<text> & \u20AC");
    EXPECT_EQ(Sample(""), "");
}

TEST(ReadingHtml, TakesFontsSizesAndColours)
{
    const Document document = Read(
        "<span style=\"font-family:'Courier New',monospace;font-size:18pt;color:#ff0000;background-color:#00ff00\">"
        "a</span>b<sup>c</sup><span style=\"font-size:16px\">d</span><span style=\"font-family:serif\">e</span>");
    ASSERT_EQ(document.Text(), u"abcde");
    EXPECT_EQ(FormatAt(document, 0).font.Text(), u"Courier New");
    EXPECT_EQ(FormatAt(document, 0).family, FontFamily::Modern);
    EXPECT_EQ(FormatAt(document, 0).size, Points(18));
    EXPECT_EQ(FormatAt(document, 0).colour, Colour::Of(255, 0, 0));
    EXPECT_EQ(FormatAt(document, 0).highlight, Colour::Of(0, 255, 0));
    EXPECT_EQ(FormatAt(document, 1), DefaultCharFormat());
    EXPECT_EQ(FormatAt(document, 2).script, Script::Super);
    EXPECT_EQ(FormatAt(document, 3).size, Points(12));
    EXPECT_EQ(FormatAt(document, 4).font.Text(), u"Times New Roman");
}

TEST(ReadingHtml, WhatItDoesNotStateIsAsThePlaceHasIt)
{
    RtfReading reading = Reading();
    reading.defaultFormat.font = u"Place";
    reading.defaultFormat.size = Points(13);
    const std::optional<Document> document = ReadHtml(QStringLiteral("<p>a</p><h1>b</h1>"), reading);
    ASSERT_TRUE(document);
    EXPECT_EQ(FormatAt(*document, 0).font.Text(), u"Place");
    EXPECT_EQ(FormatAt(*document, 0).size, Points(13));
    EXPECT_TRUE(FormatAt(*document, 3).bold);
    EXPECT_EQ(FormatAt(*document, 3).size, Points(26));
}

TEST(ReadingHtml, TakesAlignmentDirectionAndHeadings)
{
    const Document document = Read("<p align=\"center\">a</p><p style='color:red; TEXT-ALIGN : justify'>b</p>"
                                   "<p dir=\"rtl\">c</p><h2>d</h2>");
    EXPECT_EQ(ParagraphFormatAt(document, 0).alignment, Alignment::Centre);
    EXPECT_EQ(ParagraphFormatAt(document, 1).alignment, Alignment::Justify);
    EXPECT_TRUE(ParagraphFormatAt(document, 2).rightToLeft);
    EXPECT_EQ(ParagraphFormatAt(document, 3).outlineLevel, 2);
}

TEST(ReadingHtml, ListsAreBulletsAndNumbers)
{
    const Document document = Read("<ul><li>a<ul><li>b</li></ul></li></ul><p>x</p><ol><li>c</li><li>d</li></ol>");
    ASSERT_EQ(document.Text(), u"a\r\nb\r\nx\r\nc\r\nd");
    const auto numbering = [&](std::int32_t index) { return *ParagraphFormatAt(document, index).numbering; };
    EXPECT_EQ(numbering(0).kind, NumberKind::Bullet);
    EXPECT_EQ(numbering(0).text, u"\u2022");
    EXPECT_EQ(numbering(1).level, 1);
    EXPECT_FALSE(ParagraphFormatAt(document, 2).numbering);
    EXPECT_EQ(numbering(3).kind, NumberKind::Decimal);
    EXPECT_EQ(numbering(3).text, (std::u16string{0, u'.'}));
    EXPECT_EQ(ParagraphFormatAt(document, 1).leftIndent, Twips{720});
    EXPECT_EQ(ParagraphFormatAt(document, 1).firstIndent, Twips{-360});
}

TEST(ReadingHtml, TakesCommonLinks)
{
    const Document document =
        Read("<a href=\"https://example.org/a&quot;b\\c\">x</a><a href=\"javascript:y\">y</a><a href=\"#z\">z</a>");
    ASSERT_EQ(document.Text(), u"xyz");
    ASSERT_TRUE(FormatAt(document, 0).field);
    EXPECT_EQ(LinkTarget(*FormatAt(document, 0).field), u"https://example.org/a\"b\\c");
    EXPECT_EQ(FormatAt(document, 0).colour, Colour::Of(0, 0, 255));
    EXPECT_FALSE(FormatAt(document, 1).field);
    ASSERT_TRUE(FormatAt(document, 2).field);
    EXPECT_EQ(LinkTarget(*FormatAt(document, 2).field), u"#z");
}

TEST(ReadingHtml, TablesBecomeTables)
{
    const Document document = Read(
        "a<table border=\"1\"><tr><td>b</td><td><p>c</p><p>d</p></td></tr><tr><td colspan=\"2\">e</td></tr></table>f");
    EXPECT_EQ(document.Text(), u"a\r\nb\tc\r\nd\t\r\ne\t\r\nf");
    const std::int32_t row = document.RowMarkOf(1);
    ASSERT_GE(row, 0);
    EXPECT_EQ(document.ParagraphAt(row).Extras().row->cells.size(), 2U);
    const std::int32_t second = document.RowMarkOf(row + 1);
    EXPECT_EQ(document.ParagraphAt(second).Extras().row->cells.size(), 1U);
    EXPECT_EQ(document.ParagraphAt(2).Ending().tableDepth, 1);
}

TEST(ReadingHtml, ATableAtTheEndIsFollowedByAParagraph)
{
    const Document document = Read("<table><tr><td>a</td></tr></table>");
    EXPECT_EQ(document.Text(), u"a\t\r\n");
    EXPECT_EQ(document.ParagraphAt(document.ParagraphCount() - 1).Ending().kind, Mark::Break);
}

TEST(ReadingHtml, APictureInTheSourceKeepsItsBytes)
{
    for (const char* format : {"PNG", "JPEG"})
    {
        const QByteArray bytes = PngOf(30, 20, format);
        const QByteArray html =
            "<p>a<img src=\"data:image/" + QByteArray(format).toLower() + ";base64," + bytes.toBase64() + "\">b</p>";
        const Document document = Read(html.constData());
        ASSERT_EQ(document.Text(), u"a b");
        const InlinePicture* picture = PictureIn(document);
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture->kind, format == std::string_view("PNG") ? PictureKind::Png : PictureKind::Jpeg);
        EXPECT_EQ(*picture->bytes, bytes.toStdString());
        EXPECT_NEAR(picture->goalWidth.value, 144, 1);  // 30 dots of 300 to the inch
    }
}

TEST(ReadingHtml, AStatedSizeOfAPictureCounts)
{
    const QByteArray html =
        "<img width=\"96\" height=\"48\" src=\"data:image/png;base64," + PngOf(30, 20).toBase64() + "\">";
    const Document document = Read(html.constData());
    const InlinePicture* picture = PictureIn(document);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->goalWidth, Twips{1440});
    EXPECT_EQ(picture->goalHeight, Twips{720});
}

TEST(ReadingHtml, NothingIsLoadedFromAnywhere)
{
    // A real picture in a real file, named in every way a page can.
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    const QString path = folder.filePath(QStringLiteral("picture.png"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(PngOf(4, 4));
    file.close();
    QFile sheet(folder.filePath(QStringLiteral("sheet.css")));
    ASSERT_TRUE(sheet.open(QIODevice::WriteOnly));
    sheet.write("p { font-weight: bold }");
    sheet.close();
    const QString url = QUrl::fromLocalFile(path).toString();
    const QString style = QUrl::fromLocalFile(sheet.fileName()).toString();
    const QString html =
        QStringLiteral("<html><head><link rel=\"stylesheet\" type=\"text/css\" href=\"%1\">"
                       "<style>@import url(%1);</style></head>"
                       "<body background=\"%2\"><p>a<img src=\"%2\"><img src=\"%3\">b</p></body></html>")
            .arg(style, url, path);
    const std::optional<Document> document = ReadHtml(html, Reading());
    ASSERT_TRUE(document);
    EXPECT_EQ(DumpSample(*document), "ab");
}

TEST(ReadingHtml, BrokenPicturesAreLeftOut)
{
    EXPECT_EQ(Sample("a<img src=\"data:image/png;base64,AAAA\">b"), "ab");
    EXPECT_EQ(Sample("a<img src=\"data:image/png;base64\">b"), "ab");
    EXPECT_EQ(Sample("a<img src=\"data:text/html,&lt;b&gt;\">b"), "ab");
    EXPECT_EQ(Sample("a<img>b"), "ab");
}

TEST(ReadingHtml, RefusesWhatIsTooLongOrTooDeep)
{
    EXPECT_FALSE(ReadHtml(QString(kMaxHtmlUnits + 1, QLatin1Char('x')), Reading()));
    QString deep;
    for (int depth = 0; depth < 50; ++depth)
        deep += QStringLiteral("<table><tr><td>x");
    EXPECT_FALSE(ReadHtml(deep, Reading()));
}

bool IsRead(const QString& html) { return ReadHtml(html, Reading()).has_value(); }

QString Repeated(const char* html, int times) { return QString::fromLatin1(html).repeated(times); }

TEST(ReadingHtml, RefusesWhatWouldTakeTooLong)
{
    EXPECT_FALSE(IsRead(Repeated("<div>", 100'000)));
    EXPECT_FALSE(IsRead(Repeated("<b>x", 100'000)));
    EXPECT_FALSE(IsRead(Repeated("<ul><li>x", 100'000)));
    EXPECT_FALSE(IsRead(Repeated("<br>", kMaxHtmlTags + 1)));
    EXPECT_FALSE(IsRead(QStringLiteral("<style>") + Repeated("p a{color:red}", 5000) + QStringLiteral("</style>") +
                        Repeated("<p>x", 5000)));
    EXPECT_FALSE(IsRead(QStringLiteral("<table><tr>") + Repeated("<td>", 50'000) + Repeated("<tr>", 50'000)));
    EXPECT_FALSE(IsRead(QStringLiteral("<table><tr><td colspan=\"2000000000\">x</table>")));
    EXPECT_FALSE(IsRead(QStringLiteral("<p '><table><tr><td colspan=2000000000>x</table>")));
    EXPECT_FALSE(IsRead(Repeated("<p '", 2'000'000)));
}

TEST(ReadingHtml, SeesDepthHoweverItIsHidden)
{
    // What closes here is no tag to whom reads attributes, comments and styles right.
    for (const char* disguise :
         {"<div title=\"</div>\">", "<div a'b=\"'></div>\">", "<div><!--</div>-->", "<div><style></div></style>",
          "<div a==\"><p b=\"></div>\">", "<div '></div>'>", "<div></x>", "<div a=b\"></div>\">"})
        EXPECT_FALSE(IsRead(Repeated(disguise, 2000))) << disguise;
}

TEST(ReadingHtml, TakesLongTextsThatAreFlat)
{
    EXPECT_TRUE(IsRead(Repeated("<p class='a' title=\"it's\">x <b>y</b></p>", 2000)));
    EXPECT_TRUE(IsRead(Repeated("<p>x<li>y<tr><td>z", 2000)));
    EXPECT_TRUE(IsRead(QStringLiteral("<table>") + Repeated("<tr><td>x</td><td colspan=2>y</td></tr>", 1000)));
    EXPECT_TRUE(IsRead(QStringLiteral("a < b and c <3 <! x")));
}

}  // namespace
}  // namespace quillmarker
