#include "engine/box/file_store.h"

#include "engine/box/descriptor.h"
#include "engine/box/file_beside.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <new>
#include <optional>
#include <stdexcept>

namespace quillmarker
{

namespace
{

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;
constexpr mode_t kNewFile = 0666;      // less the process's umask
constexpr mode_t kPrivateFile = 0600;  // until the file that is replaced tells its own

bool IsFolder(const fs::path& path)
{
    struct stat status = {};
    return ::stat(path.empty() ? "." : path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

FileError ErrorOf(int code, const fs::path& path)
{
    switch (code)
    {
    case 0:
        return FileError::None;
    case ENOMEM:
        return FileError::OutOfMemory;
    case ENAMETOOLONG:
    case EILSEQ:
        return FileError::BadFileName;
    case ENOENT:
        return IsFolder(path.parent_path()) ? FileError::FileNotFound : FileError::PathNotFound;
    case ENOTDIR:
        return FileError::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return FileError::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return FileError::DiskFull;
    case EIO:
    case ENXIO:
    case ENODEV:
        return FileError::DeviceError;
    default:
        return FileError::PathFileAccess;
    }
}

bool IsName(const fs::path& path) { return !path.empty() && path.native().find('\0') == std::string::npos; }

// The file a path means when its last part is a symbolic link, which may point at nothing yet; empty when links go in
// a circle.
std::optional<fs::path> BehindLinks(fs::path path)
{
    for (int i = 0; i < kMostLinks; ++i)
    {
        std::error_code error;
        const fs::path target = fs::read_symlink(path, error);
        if (error)
            return path;
        path = path.parent_path() / target;  // an absolute target replaces all
    }
    return std::nullopt;
}

// The rename itself is safe only when the folder is on disk. It has been done, so that a failure here changes nothing.
void SyncFolder(const fs::path& folder)
{
    const Descriptor file = Descriptor::Open(folder.empty() ? fs::path(".") : folder, O_RDONLY | O_DIRECTORY);
    if (file.IsOpen())
        file.Sync();
}

FileError WriteInPlace(const fs::path& path, std::string_view bytes)
{
    Descriptor file = Descriptor::Open(path, O_WRONLY);
    if (!file.IsOpen())
        return ErrorOf(errno, path);
    int error = file.WriteAll(bytes);
    if (error == 0)
        error = file.Sync();
    const int closing = file.Close();
    return ErrorOf(error != 0 ? error : closing, path);
}

FileError Save(const fs::path& path, std::string_view bytes)
{
    if (!IsName(path))
        return FileError::BadFileName;
    struct stat old = {};
    const bool exists = ::stat(path.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
        return ErrorOf(errno, path);
    if (exists && S_ISDIR(old.st_mode))
        return FileError::PathFileAccess;
    if (exists && !S_ISREG(old.st_mode))
        return WriteInPlace(path, bytes);
    if (exists && ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
        return ErrorOf(errno, path);
    const std::optional<fs::path> target = BehindLinks(path);
    if (!target)
        return FileError::PathFileAccess;
    FileBeside file(*target, exists ? kPrivateFile : kNewFile);
    file.Write(bytes);
    if (exists)
        file.TakeOver(old);
    const int error = file.Replace();
    if (error == 0)
        SyncFolder(target->parent_path());
    return ErrorOf(error, *target);
}

FileError Load(const fs::path& path, std::string& bytes)
{
    if (!IsName(path))
        return FileError::BadFileName;
    const Descriptor file = Descriptor::Open(path, O_RDONLY);
    struct stat status = {};
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0)
        return ErrorOf(errno, path);
    const bool sized = S_ISREG(status.st_mode) && status.st_size > 0;
    return ErrorOf(file.ReadAll(sized ? static_cast<std::size_t>(status.st_size) : 0, bytes), path);
}

// Neither waits for a pipe's other end nor follows a link.
int OpenPrivate(const fs::path& path, int flags, Descriptor& file)
{
    file = Descriptor::Open(path, flags | O_NOFOLLOW | O_NONBLOCK, kPrivateFile);
    struct stat status = {};
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0)
        return errno;
    if (!S_ISREG(status.st_mode))
        return EINVAL;
    return status.st_uid == ::geteuid() ? 0 : EACCES;
}

FileError SavePrivate(const fs::path& path, std::string_view bytes)
{
    if (!IsName(path))
        return FileError::BadFileName;
    Descriptor file;
    int error = OpenPrivate(path, O_WRONLY | O_CREAT, file);
    // What was there is cut only now that it is known to be ours.
    if (error == 0 && (::fchmod(file.Number(), kPrivateFile) != 0 || ::ftruncate(file.Number(), 0) != 0))
        error = errno;
    if (error == 0)
        error = file.WriteAll(bytes);
    const int closing = file.Close();
    return ErrorOf(error != 0 ? error : closing, path);
}

FileError LoadPrivate(const fs::path& path, std::string& bytes)
{
    if (!IsName(path))
        return FileError::BadFileName;
    Descriptor file;
    const int error = OpenPrivate(path, O_RDONLY, file);
    return ErrorOf(error != 0 ? error : file.ReadAll(0, bytes), path);
}

// Every file that is larger than memory ends here, whichever step finds it out.
template <typename Action>
FileError WithinMemory(Action action)
{
    try
    {
        return action();
    }
    catch (const std::bad_alloc&)
    {
        return FileError::OutOfMemory;
    }
    catch (const std::length_error&)
    {
        return FileError::OutOfMemory;
    }
}

FileContents ContentsBy(FileError (*load)(const fs::path&, std::string&), const fs::path& path)
{
    FileContents contents;
    contents.error = WithinMemory([&] { return load(path, contents.bytes); });
    if (contents.error != FileError::None)
        contents.bytes = {};
    return contents;
}

}  // namespace

FileContents ReadFile(const fs::path& path) { return ContentsBy(Load, path); }

FileError WriteFile(const fs::path& path, std::string_view bytes)
{
    return WithinMemory([&] { return Save(path, bytes); });
}

FileContents ReadPrivateFile(const fs::path& path) { return ContentsBy(LoadPrivate, path); }

FileError WritePrivateFile(const fs::path& path, std::string_view bytes)
{
    return WithinMemory([&] { return SavePrivate(path, bytes); });
}

}  // namespace quillmarker
