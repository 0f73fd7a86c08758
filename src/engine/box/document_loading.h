#pragma once

#include <quillmarker/document.h>
#include <quillmarker/file_error.h>
#include <quillmarker/text_box.h>

#include <filesystem>
#include <optional>

namespace quillmarker
{

/// The format of text for which nothing but the box's font is said.
CharFormat FormatOf(const BoxFont& font);

struct LoadedDocument
{
    FileError error = FileError::None;
    std::optional<Document> document;  // none when there was an error
};

/// What a file holds, as a document. A text file gets the format of `font`, RTF where it states nothing.
LoadedDocument LoadDocument(const std::filesystem::path& path, FileKind kind, const BoxFont& font);

}  // namespace quillmarker
