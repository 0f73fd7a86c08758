#pragma once

#include "page_record.h"

#include <quillmarker/file_error.h>
#include <quillmarker/pages/export.h>

#include <filesystem>
#include <optional>

namespace quillmarker
{

/// Keeps a page in a file of its own, for this user alone; see WritePrivateFile.
QUILLMARKER_PAGES_EXPORT FileError WritePageFile(const std::filesystem::path& path, const PageRecord& record);

struct PageFileContents
{
    FileError error = FileError::None;  // PathFileAccess when the file holds no whole page of this version
    std::optional<PageRecord> page;     // none when there was an error
};

QUILLMARKER_PAGES_EXPORT PageFileContents ReadPageFile(const std::filesystem::path& path, FontHost& fonts);

}  // namespace quillmarker
