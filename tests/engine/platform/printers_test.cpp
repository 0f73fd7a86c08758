#include "engine/platform/printers.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QPageLayout>
#include <QPrinterInfo>

namespace quillmarker
{
namespace
{

const QString kPdfFile = QStringLiteral("PDF file");

class WithLocale
{
public:
    explicit WithLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~WithLocale() { QLocale::setDefault(m_before); }
    WithLocale(const WithLocale&) = delete;
    WithLocale& operator=(const WithLocale&) = delete;

private:
    const QLocale m_before;
};

PrinterDescription BuiltInPaper(const QLocale& locale)
{
    const WithLocale here(locale);
    return MakeQtPrinters(BuiltInPrinter::Offered)->Describe(kPdfFile).value_or(PrinterDescription());
}

TEST(TheBuiltInPrinter, StandsBehindThoseOfTheMachine)
{
    const auto printers = MakeQtPrinters(BuiltInPrinter::Offered);
    EXPECT_EQ(printers->Names(), QPrinterInfo::availablePrinterNames() << kPdfFile);
}

TEST(TheBuiltInPrinter, IsTheDefaultWhereTheMachineHasNone)
{
    const QString own = QPrinterInfo::defaultPrinterName();
    const QString first = QPrinterInfo::availablePrinterNames().value(0, kPdfFile);
    EXPECT_EQ(MakeQtPrinters(BuiltInPrinter::Offered)->DefaultName(), own.isEmpty() ? first : own);
}

TEST(TheBuiltInPrinter, IsNotThereWhenItIsHidden)
{
    const auto printers = MakeQtPrinters(BuiltInPrinter::Hidden);
    EXPECT_EQ(printers->Names(), QPrinterInfo::availablePrinterNames());
    EXPECT_EQ(printers->DefaultName().isEmpty(), QPrinterInfo::availablePrinterNames().isEmpty());
    EXPECT_FALSE(printers->Describe(kPdfFile));
}

TEST(TheBuiltInPrinter, WritesAFileWithoutABorder)
{
    const PrinterDescription description = BuiltInPaper(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(description.name, kPdfFile);
    EXPECT_EQ(description.port, QStringLiteral("file"));
    EXPECT_TRUE(description.isFile);
    EXPECT_EQ(description.offsetLeft, 0);
    EXPECT_EQ(description.offsetTop, 0);
    EXPECT_EQ(description.printableWidth, description.pageWidth);
    EXPECT_EQ(description.printableHeight, description.pageHeight);
}

TEST(TheBuiltInPrinter, HasThePaperOfTheLocale)
{
    const PrinterDescription german = BuiltInPaper(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(german.pageWidth, 11906);
    EXPECT_EQ(german.pageHeight, 16838);
    const PrinterDescription british = BuiltInPaper(QLocale(QLocale::English, QLocale::UnitedKingdom));
    EXPECT_EQ(british.pageWidth, 11906);
    const PrinterDescription american = BuiltInPaper(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(american.pageWidth, 12240);
    EXPECT_EQ(american.pageHeight, 15840);
}

TEST(APrinter, ThatIsNotThereHasNoDescription)
{
    const auto printers = MakeQtPrinters(BuiltInPrinter::Offered);
    EXPECT_FALSE(printers->Describe(QStringLiteral("no such printer")));
    EXPECT_FALSE(printers->Describe({}));
    EXPECT_FALSE(printers->Describe(QStringLiteral("pdf file")));
}

TEST(ThePaperOfALayout, LeavesOutWhatTheDeviceCannotReach)
{
    const QPageLayout layout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, {20, 20, 20, 20}, QPageLayout::Point,
                             {18, 12, 18, 36});
    const PrinterDescription description = WithPaper({}, layout);
    EXPECT_EQ(description.pageWidth, 12240);
    EXPECT_EQ(description.pageHeight, 15840);
    EXPECT_EQ(description.offsetLeft, 360);
    EXPECT_EQ(description.offsetTop, 240);
    EXPECT_EQ(description.printableWidth, 12240 - 720);
    EXPECT_EQ(description.printableHeight, 15840 - 240 - 720);
}

TEST(ThePaperOfALayout, IsMeasuredInTheUnitsOfEach)
{
    const QPageLayout layout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {}, QPageLayout::Millimeter,
                             {12.7, 25.4, 12.7, 25.4});
    const PrinterDescription description = WithPaper({}, layout);
    EXPECT_EQ(description.pageWidth, 11906);
    EXPECT_EQ(description.offsetLeft, 720);
    EXPECT_EQ(description.offsetTop, 1440);
    EXPECT_EQ(description.printableHeight, 16838 - 2880);
}

TEST(ThePaperOfALayout, LiesOnItsSideInLandscape)
{
    const QPageLayout layout(QPageSize(QPageSize::A4), QPageLayout::Landscape, {});
    const PrinterDescription description = WithPaper({}, layout);
    EXPECT_EQ(description.pageWidth, 16838);
    EXPECT_EQ(description.pageHeight, 11906);
}

TEST(ThePaperOfALayout, ThatIsAllBorderHasNoRoom)
{
    const QPageLayout layout(QPageSize(QSizeF(100, 100), QPageSize::Point, QStringLiteral("small")),
                             QPageLayout::Portrait, {}, QPageLayout::Point, {60, 60, 60, 60});
    const PrinterDescription description = WithPaper({}, layout);
    EXPECT_EQ(description.pageWidth, 2000);
    EXPECT_EQ(description.printableWidth, 0);
    EXPECT_EQ(description.printableHeight, 0);
}

}  // namespace
}  // namespace quillmarker
