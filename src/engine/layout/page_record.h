#pragma once

#include "display_list.h"
#include "font_host.h"

#include <quillmarker/file_error.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillmarker
{

/// What is painted on one page, in twips from its upper left corner.
struct PageRecord
{
    Twips width;
    Twips height;
    DisplayList list;
};

/// A page as bytes of our own format: a signature, a version, a checksum, then faces by identity, items, and the bytes of
/// pictures, each once. Read back it paints exactly what was recorded.
std::string ToBytes(const PageRecord& record);

/// The page that bytes hold; none when they are not a whole page of this version: damaged, cut, or made by another.
/// Reading is bounded by the size of the bytes.
std::optional<PageRecord> PageFromBytes(std::string_view bytes, FontHost& fonts);

}  // namespace quillmarker
