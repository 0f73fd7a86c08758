#pragma once

#include "engine/rtf/charset.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace quillmarker
{

/// A code page that can be decoded.
struct KnownPage
{
    CodePage page;
    const char* converter;  // ICU's name; null for the pages made here
};

// Names that mean exactly one table. Where ICU has none of a page, the nearest one that puts the letters in the same
// places.
inline constexpr KnownPage kKnownPages[] = {
    {kSymbolPage, nullptr},
    {437, "cp437"},
    {708, "ASMO-708"},
    {720, "windows-720"},
    {737, "cp737"},
    {775, "cp775"},
    {819, "ISO-8859-1"},
    {850, "cp850"},
    {852, "cp852"},
    {855, "cp855"},
    {857, "cp857"},
    {858, "cp858"},
    {860, "cp860"},
    {861, "cp861"},
    {862, "cp862"},
    {863, "cp863"},
    {864, "cp864"},
    {865, "cp865"},
    {866, "cp866"},
    {869, "cp869"},
    {874, "MS874"},
    {kShiftJisPage, "windows-31j"},
    {kGbkPage, "MS936"},
    {kKoreanPage, "ms949"},
    {kBig5Page, "ms950"},
    {1250, "cp1250"},
    {1251, "cp1251"},
    {kAnsiPage, nullptr},
    {1253, "cp1253"},
    {1254, "cp1254"},
    {1255, "cp1255"},
    {1256, "cp1256"},
    {1257, "cp1257"},
    {1258, "cp1258"},
    {kJohabPage, nullptr},
    {kMacPage, "macintosh"},
    {kMacJapanesePage, "windows-31j"},
    {10002, "ms950"},
    {10003, "ms949"},
    {10004, "ASMO-708"},
    {10005, "cp1255"},
    {10006, "x-mac-greek"},
    {10007, "x-mac-cyrillic"},
    {10008, "MS936"},
    {10010, "macintosh"},
    {10017, "x-mac-cyrillic"},
    {10021, "MS874"},
    {10029, "x-mac-ce"},
    {10079, "macintosh"},
    {10081, "x-mac-turkish"},
    {10082, "macintosh"},
    {20127, "US-ASCII"},
    {20866, "KOI8-R"},
    {20936, "MS936"},
    {21866, "KOI8-U"},
    {28591, "ISO-8859-1"},
    {28592, "ISO-8859-2"},
    {28593, "ISO-8859-3"},
    {28594, "ISO-8859-4"},
    {28595, "ISO-8859-5"},
    {28596, "ISO-8859-6"},
    {28597, "ISO-8859-7"},
    {28598, "ISO-8859-8"},
    {28599, "ISO-8859-9"},
    {28603, "ISO-8859-13"},
    {28605, "ISO-8859-15"},
    {51936, "MS936"},
    {51949, "ms949"},
    {54936, "MS936"},  // its four-byte characters are beyond a table of pairs
    {kUtf8Page, nullptr},
};

static_assert(std::is_sorted(std::begin(kKnownPages), std::end(kKnownPages),
                             [](const KnownPage& a, const KnownPage& b) { return a.page < b.page; }));

inline constexpr std::size_t kKnownPageCount = std::size(kKnownPages);

/// Where `page` stands among the known ones; an unknown one where 1252 stands.
constexpr std::size_t KnownPageIndex(CodePage page)
{
    const auto before = [](const KnownPage& known, CodePage wanted) { return known.page < wanted; };
    const KnownPage* found = std::lower_bound(std::begin(kKnownPages), std::end(kKnownPages), page, before);
    if (found == std::end(kKnownPages) || found->page != page)
        found = std::lower_bound(std::begin(kKnownPages), std::end(kKnownPages), kAnsiPage, before);
    return static_cast<std::size_t>(found - std::begin(kKnownPages));
}

}  // namespace quillmarker
