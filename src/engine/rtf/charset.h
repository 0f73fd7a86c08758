#pragma once

#include <quillmarker/export.h>

#include <cstdint>
#include <optional>

namespace quillmarker
{

/// A Windows code page number, as \ansicpg, \cpg and the character sets of fonts name them.
using CodePage = std::uint16_t;

inline constexpr CodePage kDocumentPage = 0;  // "the document's own", which only the reader knows
inline constexpr CodePage kSymbolPage = 42;
inline constexpr CodePage kPcPage = 437;
inline constexpr CodePage kPcLatin1Page = 850;
inline constexpr CodePage kShiftJisPage = 932;
inline constexpr CodePage kGbkPage = 936;
inline constexpr CodePage kKoreanPage = 949;
inline constexpr CodePage kBig5Page = 950;
inline constexpr CodePage kAnsiPage = 1252;
inline constexpr CodePage kJohabPage = 1361;
inline constexpr CodePage kMacPage = 10000;
inline constexpr CodePage kMacJapanesePage = 10001;
inline constexpr CodePage kUtf8Page = 65001;

/// The code page of a font's character set (\fcharset); kDocumentPage for 1 and for numbers without a meaning.
QUILLMARKER_CORE_EXPORT CodePage CodePageOfCharset(int charset);

/// The character set a font states for `page`; empty when no character set means that page.
std::optional<int> CharsetOfCodePage(CodePage page);

}  // namespace quillmarker
