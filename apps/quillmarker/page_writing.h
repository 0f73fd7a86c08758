#pragma once

#include "output.h"

#include <quillmarker/pages/paged_document.h>

#include <string>

namespace quillmarker::tool
{

/// Puts the pages of a document into one file or several, or on standard output. `progress` may stop it before each page:
/// then the file is not written, and images behind it neither.
Result<bool> WritePages(PagedDocument& pages, const std::string& name, const OutputForm& form,
                        const PageProgress& progress);

/// Whether a page is not too large an image.
bool CanBeImage(const PaperSize& paper, double dotsPerInch);

/// "a.png" and 3: "a-3.png".
std::string NameOfPage(const std::string& name, int page);

}  // namespace quillmarker::tool
