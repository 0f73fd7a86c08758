#include "engine/box/document_loading.h"

#include "engine/box/file_store.h"
#include "engine/document/edit.h"
#include "engine/document/font_family.h"
#include "engine/rtf/plain_text.h"

#include <quillmarker/rtf.h>

#include <algorithm>
#include <cmath>

namespace quillmarker
{

CharFormat FormatOf(const BoxFont& font)
{
    CharFormat format;
    format.font = Name(font.name);
    format.family = FamilyOf(font.name);
    format.size = {std::max(static_cast<std::int32_t>(std::lround(font.size * 20)), 1)};
    format.charset = static_cast<std::uint8_t>(font.charset);
    return format;
}

LoadedDocument LoadDocument(const std::filesystem::path& path, FileKind kind, const BoxFont& font)
{
    const FileContents file = ReadFile(path);
    if (file.error != FileError::None)
        return {file.error, std::nullopt};
    const CharFormat format = FormatOf(font);
    if (kind == FileKind::Rtf)
        return {FileError::None, ReadRtf(file.bytes, {.defaultFormat = format, .formats = {}})};
    const Document empty(format);
    return {FileError::None,
            WithText(empty, {}, DecodePlainText(file.bytes), empty.ParagraphAt(0).Ending().charFormat)};
}

}  // namespace quillmarker
