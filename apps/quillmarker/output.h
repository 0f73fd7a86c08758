#pragma once

#include "output_kind.h"
#include "page_options.h"
#include "result.h"

#include <quillmarker/document.h>

#include <string>

namespace quillmarker::tool
{

/// What to write of a document.
struct OutputForm
{
    OutputKind kind = OutputKind::Rtf;
    PageWishes pages = {};
};

/// Puts a document into a file, whose old contents stay whole on failure, or writes it to standard output. Pages need a
/// Graphics. Several pages as images are files of their own: "a.png" is "a-1.png", "a-2.png", ...
Result<bool> WriteOutput(const Document& document, const std::string& name, const OutputForm& form);

/// The same for a command that writes nothing else: a terminal shows how far long work is, and a signal stops it
/// between two pages. The exit code; what went wrong is told.
int WriteOnlyOutput(const Document& document, const std::string& name, const OutputForm& form);

}  // namespace quillmarker::tool
