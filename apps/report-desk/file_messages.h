#pragma once

#include <quillmarker/file_error.h>

#include <QString>

#include <cstdint>

namespace quillmarker::desk
{

enum class FileTask : std::uint8_t { Open, Save };

/// What a message box says: what happened, and what to do about it.
struct FileMessage
{
    QString what;
    QString advice;
};

/// Names the file. An error that is not known is told by its number.
FileMessage MessageFor(FileTask task, const QString& path, FileError error);

}  // namespace quillmarker::desk
