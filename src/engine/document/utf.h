#pragma once

#include <string>
#include <string_view>

namespace quillmarker
{

constexpr bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

constexpr bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Whether `text` begins with two units that are edited as one: a CR LF or a pair of surrogates.
constexpr bool BeginsWithPair(std::u16string_view text)
{
    return text.size() > 1 &&
           ((text[0] == u'\r' && text[1] == u'\n') || (IsHighSurrogate(text[0]) && IsLowSurrogate(text[1])));
}

/// `text` as UTF-8. A surrogate without its partner becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);

/// `bytes` read as UTF-8; a byte order mark is a character like any other. Each longest broken sequence becomes one
/// U+FFFD.
std::u16string FromUtf8(std::string_view bytes);

/// The same, put behind `out`.
void AppendUtf8(std::string_view bytes, std::u16string& out);

/// Whether all of `bytes` is well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IsUtf8(std::string_view bytes);

}  // namespace quillmarker
