#pragma once

#include <quillmarker/widgets/platform_services.h>

#include <QPageLayout>

namespace quillmarker
{

/// The description with the paper of a layout, and what its minimum margins leave of it.
PrinterDescription WithPaper(PrinterDescription description, const QPageLayout& layout);

/// The name of the printer that writes a PDF file.
QString BuiltInPrinterName();

}  // namespace quillmarker
