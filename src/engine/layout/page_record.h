#pragma once

#include "display_list.h"
#include "font_host.h"

#include <quillmarker/pages/export.h>
#include <quillmarker/twips.h>

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

/// A page as bytes of our own format: a signature, a version, a checksum, then faces by identity, the bytes of pictures,
/// each once, and items. Read back it paints exactly what was recorded. Of objects that are no pictures nothing is kept
/// but that they are there.
QUILLMARKER_PAGES_EXPORT std::string ToBytes(const PageRecord& record);

/// The page that bytes hold; none when they are not a whole page of this version: damaged, cut, or made by another.
/// Reading is bounded by the size of the bytes.
QUILLMARKER_PAGES_EXPORT std::optional<PageRecord> PageFromBytes(std::string_view bytes, FontHost& fonts);

/// A body of bytes with the signature, the version and the checksum in front that make it a page, if it is one; for
/// tests of what stands behind the checksum.
std::string SealedPage(std::string_view body);

}  // namespace quillmarker
