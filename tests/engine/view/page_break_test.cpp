// The same lines and pages wherever a document is shown: in the view at any zoom, as PDF, as an image.

#include "shown_view.h"

#include "engine/layout/page_cutter.h"

#include <quillmarker/pages/paged_document.h>
#include <quillmarker/rtf.h>
#include <quillmarker/widgets/rich_text_view.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <random>
#include <string>
#include <vector>

namespace quillmarker
{
namespace
{

constexpr int kParagraphs = 2'000;
constexpr PageSetup kSetup{};

/// Paragraphs of words of any length in several fonts, sizes and alignments, with indents and tabs; about 200 pages.
std::string LongReport()
{
    constexpr const char* kFormats[] = {"\\pard ", "\\pard\\qj\\li300 ", "\\pard\\fi-400\\li400\\tx400 ",
                                        "\\pard\\qc\\sb120 ", "\\pard\\qj\\sl300\\slmult1 "};
    constexpr const char* kRuns[] = {"\\plain\\f0\\fs20 ", "\\plain\\f1\\fs24\\b ", "\\plain\\f2\\fs18 ",
                                     "\\plain\\f0\\fs21\\i "};
    std::mt19937 random(7);
    std::string rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss Arial;}{\\f1\\froman Times New "
                      "Roman;}{\\f2\\fmodern Courier New;}}";
    int word = 0;
    for (int i = 0; i < kParagraphs; ++i)
    {
        rtf += kFormats[random() % std::size(kFormats)];
        for (unsigned n = 10 + random() % 90; n > 0; --n)
        {
            if (random() % 7 == 0)
                rtf += kRuns[random() % std::size(kRuns)];
            rtf +=
                "w" + std::to_string(word++) + std::string(random() % 9, 'm') + (random() % 40 == 0 ? "\\tab " : " ");
        }
        rtf += "\\par\n";
    }
    return rtf + "}";
}

const Document& Report()
{
    static const Document report = ReadRtf(std::string_view(LongReport()));
    return report;
}

/// Where lines begin on the pages.
std::vector<int> LinesOnPages()
{
    const auto fonts = SystemFonts();
    PageCutter cutter(Report(), *fonts, kSetup.paper.width - kSetup.left - kSetup.right,
                      kSetup.paper.height - kSetup.top - kSetup.bottom);
    std::vector<int> starts;
    PageStart start;
    for (bool isLast = false; !isLast;)
    {
        const CutPage page = cutter.Cut(start, Position{Report().Size()});
        for (const PlacedLines& placed : page.lines)
            for (std::uint32_t i = placed.first; i < placed.last; ++i)
                starts.push_back(Report().StartOf(placed.paragraph).value +
                                 static_cast<int>(placed.layout->Lines()[i].begin));
        isLast = page.isLast;
        start = page.next;
    }
    return starts;
}

std::vector<int> LinesInView(const RichTextView& view)
{
    std::vector<int> starts;
    for (int at = 0; at < Report().Size();)
    {
        const TextRange line = view.LineAround(at);
        starts.push_back(line.begin.value);
        if (line.end.value <= at)
            break;
        at = line.end.value;
    }
    return starts;
}

QByteArray Output(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60'000)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

/// A text without its blanks and line ends, which a PDF leaves to its reader.
std::string Packed(QString text)
{
    text.removeIf([](QChar unit) { return unit.isSpace(); });
    return text.toStdString();
}

TEST(PageBreaks, TheViewBreaksLinesLikeThePagesAtEveryZoom)
{
    const std::vector<int> onPages = LinesOnPages();
    ASSERT_GT(onPages.size(), 5'000U);
    RichTextView view;
    view.resize(600, 400);
    view.SetRightMargin((kSetup.paper.width - kSetup.left - kSetup.right).value);
    view.Box().OpenValue(Report());
    for (const int zoom : {50, 100, 330})
    {
        view.SetZoom(zoom);
        EXPECT_EQ(LinesInView(view), onPages) << zoom;
    }
}

TEST(PageBreaks, ThePdfHasTheSamePages)
{
    PagedDocument pages(Report(), kSetup);
    const int count = pages.PageCount();
    ASSERT_GE(count, 200);
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("report.pdf"));
    ASSERT_EQ(WritePdf(pages, file.toStdString()), FileError::None);
    const QString text =
        QString::fromUtf8(Output(QStringLiteral("pdftotext"), {QStringLiteral("-raw"), file, QStringLiteral("-")}));
    const QStringList printed = text.split(u'\f');
    ASSERT_EQ(printed.size(), count + 1);
    for (int page = 1; page <= count; ++page)
    {
        const std::u16string expected = Report().Text({pages.StartOfPage(page), pages.StartOfPage(page + 1)});
        EXPECT_EQ(Packed(printed[page - 1]), Packed(QString::fromStdU16String(expected))) << page;
    }
}

/// The rows between the first and the last that are not white.
std::pair<int, int> InkedRows(const QImage& image)
{
    int first = -1;
    int last = -1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128)
            {
                first = first < 0 ? y : first;
                last = y;
            }
    return {first, last};
}

TEST(PageBreaks, TheImagesOfPagesLookLikeThoseOfThePdf)
{
    constexpr int kDotsPerInch = 60;
    PagedDocument pages(Report(), kSetup);
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("report.pdf"));
    ASSERT_EQ(WritePdf(pages, file.toStdString()), FileError::None);
    for (const int page : {1, 100, 200})
    {
        const QString number = QString::number(page);
        const QString name = folder.filePath(number);
        Output(QStringLiteral("pdftoppm"),
               {QStringLiteral("-png"), QStringLiteral("-singlefile"), QStringLiteral("-r"),
                QString::number(kDotsPerInch), QStringLiteral("-f"), number, QStringLiteral("-l"), number, file, name});
        const QImage printed(name + QStringLiteral(".png"));
        const QImage painted = pages.Image(page, kDotsPerInch);
        ASSERT_EQ(printed.size(), painted.size());
        const auto [printedFirst, printedLast] = InkedRows(printed);
        const auto [paintedFirst, paintedLast] = InkedRows(painted);
        EXPECT_NEAR(printedFirst, paintedFirst, 2) << page;
        EXPECT_NEAR(printedLast, paintedLast, 2) << page;
    }
}

}  // namespace
}  // namespace quillmarker
