#include "utf.h"

#include <bit>
#include <cstdint>

namespace quillmarker::tool
{
namespace
{

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool IsHigh(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
constexpr bool IsLow(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }
constexpr bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

void AppendUtf8(std::string& text, char32_t c)
{
    if (c < 0x80)
    {
        text += static_cast<char>(c);
        return;
    }
    const int following = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr unsigned kLead[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(kLead[following] | c >> (6 * following));
    for (int i = following - 1; i >= 0; --i)
        text += static_cast<char>(0x80 | (c >> (6 * i) & 0x3F));
}

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
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1]))
        {
            AppendUtf8(result, 0x10000 + ((text[i] & 0x3FFU) << 10 | (text[i + 1] & 0x3FFU)));
            ++i;
        }
        else
        {
            AppendUtf8(result, IsHigh(text[i]) || IsLow(text[i]) ? kReplacement : text[i]);
        }
    }
    return result;
}

}  // namespace quillmarker::tool
