#include "pdf_properties.h"

#include <quillmarker/pages/paged_document.h>

#include "engine/box/file_store.h"

#include <QBuffer>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>

namespace quillmarker
{
namespace
{

// A device unit is a twip: places need no rounding.
constexpr int kDotsPerInch = 1440;
constexpr double kPointsPerTwip = 1.0 / 20;

/// Null when it was stopped.
QByteArray Written(PagedDocument& pages, const PageProgress& progress)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kDotsPerInch);
    const PaperSize paper = pages.Setup().paper;
    writer.setPageLayout(
        QPageLayout(QPageSize(QSizeF(paper.width.value * kPointsPerTwip, paper.height.value * kPointsPerTwip),
                              QPageSize::Point, QString(), QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF()));
    writer.setCreator(QStringLiteral("Quillmarker"));
    {
        QPainter painter(&writer);
        for (int page = 1; pages.HasPage(page); ++page)
        {
            if (progress && !progress(page))
                return {};
            if (page > 1)
                writer.newPage();
            pages.Paint(painter, page, 1);
        }
    }
    buffer.close();
    return bytes;
}

}  // namespace

std::string ToPdf(PagedDocument& pages, const PageProgress& progress)
{
    const QByteArray bytes = Written(pages, progress);
    if (bytes.isNull())
        return {};
    return WithPdfProperties(bytes.toStdString(), pages.Value().Properties().info);
}

FileError WritePdf(PagedDocument& pages, const std::filesystem::path& path, const PageProgress& progress)
{
    const std::string bytes = ToPdf(pages, progress);
    return bytes.empty() ? FileError::None : WriteFile(path, bytes);
}

}  // namespace quillmarker
