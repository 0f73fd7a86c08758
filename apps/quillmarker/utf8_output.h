#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillmarker::tool
{

/// UTF-8 takes at most this many bytes for a unit of UTF-16.
inline constexpr std::size_t kMostUtf8Bytes = 3;

constexpr bool IsHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
constexpr bool IsLowSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

/// Takes up to `size` units (at least two) off the text without cutting a surrogate pair.
constexpr std::u16string_view TakePiece(std::u16string_view& text, std::size_t size)
{
    if (size < text.size() && IsHighSurrogate(text[size - 1]))
        --size;
    const std::u16string_view piece = text.substr(0, size);
    text.remove_prefix(piece.size());
    return piece;
}

inline char* PutUtf8Character(char32_t c, char* out)
{
    if (c < 0x80)
    {
        *out++ = static_cast<char>(c);
        return out;
    }
    constexpr std::array<unsigned, 4> kLead = {0, 0xC0, 0xE0, 0xF0};
    const unsigned following = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    *out++ = static_cast<char>(kLead[following] | c >> (6 * following));
    for (unsigned i = following; i > 0; --i)
        *out++ = static_cast<char>(0x80 | (c >> (6 * (i - 1)) & 0x3F));
    return out;
}

/// Puts the text as UTF-8 at `out`, where there is room, and returns its end; half of a surrogate pair becomes U+FFFD.
/// Units below 0x20 or above 0x7F are put as `shown(unit)`: the others go in blocks, which compilers make few
/// instructions of.
template <class Shown>
char* PutUtf8(std::u16string_view text, char* out, Shown shown)
{
    constexpr std::size_t kBlock = 16;
    for (std::size_t i = 0; i < text.size();)
    {
        if (text.size() - i >= kBlock)
        {
            std::uint16_t others = 0;
            for (std::size_t k = 0; k < kBlock; ++k)
            {
                const char16_t unit = text[i + k];
                others |= static_cast<std::uint16_t>(static_cast<std::uint16_t>(unit - 0x20) >= 0x60 ? 1 : 0);
            }
            if (others == 0)
            {
                for (std::size_t k = 0; k < kBlock; ++k)
                    out[k] = static_cast<char>(text[i + k]);
                out += kBlock;
                i += kBlock;
                continue;
            }
        }
        // A whole block unit by unit, so that text of another script is not looked at twice.
        for (const std::size_t end = text.size() - i < kBlock ? text.size() : i + kBlock; i < end; ++i)
        {
            const char16_t unit = text[i];
            if (unit >= 0x20 && unit < 0x80)
                *out++ = static_cast<char>(unit);
            else if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
                out = PutUtf8Character(0x10000 + ((unit & 0x3FFU) << 10 | (text[++i] & 0x3FFU)), out);
            else if (IsHighSurrogate(unit) || IsLowSurrogate(unit))
                out = PutUtf8Character(0xFFFD, out);
            else
                out = PutUtf8Character(shown(unit), out);
        }
    }
    return out;
}

}  // namespace quillmarker::tool
