#pragma once

#include "result.h"

#include <string>
#include <vector>

namespace quillmarker::tool
{

/// What the tool writes.
enum class OutputKind { Rtf, Text, Pdf, Png };

/// True when the document is put on pages first.
constexpr bool IsOnPages(OutputKind kind) { return kind == OutputKind::Pdf || kind == OutputKind::Png; }

/// What to write: what `format` says ("pdf"), else what the name ends in; RTF for standard output.
Result<OutputKind> OutputKindOf(const std::string& name, const std::string& format);

/// What can be said for a format: "rtf", "txt", ...
std::vector<std::string> FormatNames();

}  // namespace quillmarker::tool
