#include "text_file.h"

#include <QFileInfo>
#include <QSaveFile>

namespace quillmarker::desk
{
namespace
{

FileError ErrorOf(const QSaveFile& file)
{
    switch (file.error())
    {
    case QFileDevice::ResourceError:
        return FileError::DiskFull;
    case QFileDevice::PermissionsError:
        return FileError::PermissionDenied;
    case QFileDevice::WriteError:
        return FileError::DeviceError;
    default:
        return FileError::PathFileAccess;
    }
}

/// What can be told before anything is written, since the reasons that Qt gives afterwards are few.
FileError ErrorOfPlace(const QString& path)
{
    const QFileInfo file(path);
    const QFileInfo folder(file.absolutePath());
    if (file.fileName().isEmpty())
        return FileError::BadFileName;
    if (!folder.isDir())
        return FileError::PathNotFound;
    if (file.isDir())
        return FileError::PathFileAccess;
    if (!folder.isWritable() || (file.exists() && !file.isWritable()))
        return FileError::PermissionDenied;
    return FileError::None;
}

}  // namespace

FileError WriteTextFile(const QString& path, const QString& text)
{
    if (const FileError error = ErrorOfPlace(path); error != FileError::None)
        return error;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return ErrorOf(file);
    QString lines = text;
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    file.write(lines.toUtf8());
    return file.commit() ? FileError::None : ErrorOf(file);
}

}  // namespace quillmarker::desk
