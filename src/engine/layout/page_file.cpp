#include "page_file.h"

#include "engine/box/file_store.h"

namespace quillmarker
{

FileError WritePageFile(const std::filesystem::path& path, const PageRecord& record)
{
    return WritePrivateFile(path, ToBytes(record));
}

PageFileContents ReadPageFile(const std::filesystem::path& path, FontHost& fonts)
{
    const FileContents contents = ReadPrivateFile(path);
    if (contents.error != FileError::None)
        return {contents.error, std::nullopt};
    std::optional<PageRecord> page = PageFromBytes(contents.bytes, fonts);
    const FileError error = page ? FileError::None : FileError::PathFileAccess;
    return {error, std::move(page)};
}

}  // namespace quillmarker
