#include "printers.h"

#include <QLocale>
#include <QMarginsF>
#include <QPageSize>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>
#include <utility>

namespace quillmarker
{
namespace
{

/// Of a unit of QPageSize, which QPageLayout numbers alike. Qt's own conversions round to whole points.
double TwipsIn(int unit)
{
    switch (unit)
    {
    case QPageSize::Millimeter:
        return 1440 / 25.4;
    case QPageSize::Inch:
        return 1440;
    case QPageSize::Pica:
        return 240;
    case QPageSize::Didot:
        return 20 * 1.065826771;
    case QPageSize::Cicero:
        return 240 * 1.065826771;
    default:
        return 20;  // points
    }
}

static_assert(int(QPageSize::Millimeter) == int(QPageLayout::Millimeter) &&
              int(QPageSize::Point) == int(QPageLayout::Point) && int(QPageSize::Inch) == int(QPageLayout::Inch) &&
              int(QPageSize::Pica) == int(QPageLayout::Pica) && int(QPageSize::Didot) == int(QPageLayout::Didot) &&
              int(QPageSize::Cicero) == int(QPageLayout::Cicero));

QPageSize PaperOfLocale()
{
    const bool isUnitedStates = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(isUnitedStates ? QPageSize::Letter : QPageSize::A4);
}

PrinterDescription DescribeBuiltIn()
{
    PrinterDescription description;
    description.name = BuiltInPrinterName();
    description.port = QStringLiteral("file");
    description.isFile = true;
    return WithPaper(std::move(description), QPageLayout(PaperOfLocale(), QPageLayout::Portrait, {}));
}

PrinterDescription DescribeInstalled(const QPrinterInfo& info)
{
    PrinterDescription description;
    description.name = info.printerName();
    description.port = info.location();
    return WithPaper(std::move(description), QPrinter(info, QPrinter::HighResolution).pageLayout());
}

/// Asks the machine each time: printers come and go.
class QtPrinters : public PrinterService
{
public:
    explicit QtPrinters(BuiltInPrinter builtIn) : m_offersBuiltIn(builtIn == BuiltInPrinter::Offered) {}

    QStringList Names() const override
    {
        QStringList names = QPrinterInfo::availablePrinterNames();
        if (m_offersBuiltIn)
        {
            names.removeAll(BuiltInPrinterName());
            names.append(BuiltInPrinterName());
        }
        return names;
    }

    QString DefaultName() const override
    {
        const QString name = QPrinterInfo::defaultPrinterName();
        return name.isEmpty() ? Names().value(0) : name;
    }

    std::optional<PrinterDescription> Describe(const QString& name) const override
    {
        if (m_offersBuiltIn && name == BuiltInPrinterName())
            return DescribeBuiltIn();
        const QPrinterInfo info = name.isEmpty() ? QPrinterInfo() : QPrinterInfo::printerInfo(name);
        return info.isNull() ? std::nullopt : std::optional(DescribeInstalled(info));
    }

private:
    const bool m_offersBuiltIn;
};

}  // namespace

std::unique_ptr<PrinterService> MakeQtPrinters(BuiltInPrinter builtIn) { return std::make_unique<QtPrinters>(builtIn); }

QString BuiltInPrinterName() { return QStringLiteral("PDF file"); }

PrinterDescription WithPaper(PrinterDescription description, const QPageLayout& layout)
{
    const QPageSize& paper = layout.pageSize();
    QSizeF size = paper.definitionSize() * TwipsIn(paper.definitionUnits());
    if (layout.orientation() == QPageLayout::Landscape)
        size.transpose();
    const QMarginsF border = layout.minimumMargins() * TwipsIn(layout.units());
    description.pageWidth = qRound(size.width());
    description.pageHeight = qRound(size.height());
    description.offsetLeft = qRound(border.left());
    description.offsetTop = qRound(border.top());
    description.printableWidth = std::max(0, description.pageWidth - description.offsetLeft - qRound(border.right()));
    description.printableHeight = std::max(0, description.pageHeight - description.offsetTop - qRound(border.bottom()));
    return description;
}

}  // namespace quillmarker
