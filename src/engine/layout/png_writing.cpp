#include <quillmarker/pages/paged_document.h>

#include "engine/box/file_store.h"

#include <QBuffer>

namespace quillmarker
{

std::string ToPng(PagedDocument& pages, int page, double dotsPerInch)
{
    const QImage image = pages.Image(page, dotsPerInch);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (image.isNull() || !buffer.open(QIODevice::WriteOnly))
        return {};
    // Paper is opaque: without transparency the file is smaller.
    return image.convertToFormat(QImage::Format_RGB32).save(&buffer, "PNG") ? bytes.toStdString() : std::string();
}

FileError WritePng(PagedDocument& pages, int page, double dotsPerInch, const std::filesystem::path& path)
{
    const std::string bytes = ToPng(pages, page, dotsPerInch);
    return bytes.empty() ? FileError::OutOfMemory : WriteFile(path, bytes);
}

}  // namespace quillmarker
