#include "utf.h"

#include "utf8_output.h"

#include <array>
#include <bit>
#include <cstdint>

namespace quillmarker::tool
{
namespace
{

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

void AppendUtf16(std::u16string& text, char32_t c)
{
    if (c < 0x10000)
    {
        text += static_cast<char16_t>(c);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
}

/// Takes the next character off the text, which is not empty.
char32_t TakeCharacter(std::string_view& text)
{
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (lead < 0x80)
        return lead;
    const auto length = static_cast<std::size_t>(std::countl_one(lead));
    if (length < 2 || length > 4)
        return kReplacement;
    char32_t c = lead & (0x7FU >> length);
    std::size_t taken = 0;
    for (; taken + 1 < length && taken < text.size() && IsContinuation(text[taken]); ++taken)
        c = c << 6 | (static_cast<unsigned char>(text[taken]) & 0x3FU);
    text.remove_prefix(taken);
    const bool whole = taken + 1 == length && c >= kSmallest[length] && c <= 0x10FFFF && (c & 0xFFFFF800) != 0xD800;
    return whole ? c : kReplacement;
}

}  // namespace

std::u16string ToUtf16(std::string_view text)
{
    std::u16string result;
    result.reserve(text.size());
    while (!text.empty())
        AppendUtf16(result, TakeCharacter(text));
    return result;
}

std::string ToUtf8(std::u16string_view text)
{
    constexpr std::size_t kPiece = 4'096;
    std::string result;
    result.reserve(text.size());
    std::array<char, kPiece * kMostUtf8Bytes> bytes;
    while (!text.empty())
    {
        char* const end = PutUtf8(TakePiece(text, kPiece), bytes.data(), [](char16_t unit) { return unit; });
        result.append(bytes.data(), end);
    }
    return result;
}

}  // namespace quillmarker::tool
