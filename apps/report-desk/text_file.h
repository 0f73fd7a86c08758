#pragma once

#include <quillmarker/file_error.h>

#include <QString>

namespace quillmarker::desk
{

/// Writes text as UTF-8 with the line ends of this platform. It stands in the file whole or not at all: what was there
/// before is replaced at the end.
FileError WriteTextFile(const QString& path, const QString& text);

}  // namespace quillmarker::desk
