#pragma once

#include <quillmarker/export.h>
#include <quillmarker/file_error.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace quillmarker
{

struct FileContents
{
    FileError error = FileError::None;
    std::string bytes;  // empty when there was an error
};

/// All bytes of anything that can be read to its end, a pipe included.
QUILLMARKER_CORE_EXPORT FileContents ReadFile(const std::filesystem::path& path);

/// Makes `bytes` the contents of `path`. A regular file is replaced as a whole: a new file is written beside it,
/// brought to disk and renamed over it, so a failure at any point leaves the old contents whole and nothing else
/// behind. The file keeps its permissions, and a symbolic link keeps pointing at it; a read-only file is refused. A
/// pipe or a device is written in place.
QUILLMARKER_CORE_EXPORT FileError WriteFile(const std::filesystem::path& path, std::string_view bytes);

// A private file holds what a process keeps for itself. It is made for its user alone and written in place. A symbolic
// link at the end of the path is refused, and so is what is no regular file or belongs to somebody else.

QUILLMARKER_CORE_EXPORT FileContents ReadPrivateFile(const std::filesystem::path& path);
QUILLMARKER_CORE_EXPORT FileError WritePrivateFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace quillmarker
