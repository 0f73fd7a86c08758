#include "engine/rtf/plain_text.h"

#include "engine/document/utf.h"
#include "engine/rtf/code_page.h"

#include <cstddef>

namespace quillmarker
{

namespace
{

using namespace std::string_view_literals;

enum class ByteOrder : bool { Little, Big };

constexpr char32_t kLastCharacter = 0x10FFFF;

bool IsSurrogate(char32_t value) { return value >= 0xD800 && value <= 0xDFFF; }

// The number made of the `size` bytes at `at`.
char32_t ValueAt(std::string_view bytes, std::size_t at, std::size_t size, ByteOrder order)
{
    char32_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
    {
        const std::size_t place = order == ByteOrder::Big ? i : size - 1 - i;
        value = value << 8 | static_cast<unsigned char>(bytes[at + place]);
    }
    return value;
}

// A half surrogate pair stays out of the document, and so does half a unit at the end.
void RepairUtf16(std::u16string& text)
{
    for (std::size_t at = 0; at < text.size(); ++at)
    {
        if (!IsSurrogate(text[at]))
            continue;
        const bool pair = text[at] < 0xDC00 && at + 1 < text.size() && text[at + 1] >= 0xDC00 && text[at + 1] <= 0xDFFF;
        if (pair)
            ++at;
        else
            text[at] = kReplacementUnit;
    }
}

std::u16string FromUtf16(std::string_view bytes, ByteOrder order)
{
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char16_t>(ValueAt(bytes, 2 * i, 2, order));
    RepairUtf16(text);
    if (bytes.size() % 2 != 0)
        text += kReplacementUnit;
    return text;
}

std::u16string FromUtf32(std::string_view bytes, ByteOrder order)
{
    std::u16string text;
    text.reserve(bytes.size() / 4);
    for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4)
    {
        const char32_t value = ValueAt(bytes, at, 4, order);
        if (value > kLastCharacter || IsSurrogate(value))
        {
            text += kReplacementUnit;
        }
        else if (value > 0xFFFF)
        {
            text += static_cast<char16_t>(0xD7C0 + (value >> 10));
            text += static_cast<char16_t>(0xDC00 + (value & 0x3FF));
        }
        else
        {
            text += static_cast<char16_t>(value);
        }
    }
    return text;
}

}  // namespace

std::u16string DecodePlainText(std::string_view bytes, CodePage ansi)
{
    // UTF-32 first: its little-endian mark begins with that of UTF-16. The length tells it from UTF-16 that begins
    // with a NUL.
    if (bytes.starts_with("\xFF\xFE\0\0"sv) && bytes.size() % 4 == 0)
        return FromUtf32(bytes.substr(4), ByteOrder::Little);
    if (bytes.starts_with("\0\0\xFE\xFF"sv) && bytes.size() % 4 == 0)
        return FromUtf32(bytes.substr(4), ByteOrder::Big);
    if (bytes.starts_with("\xFF\xFE"sv))
        return FromUtf16(bytes.substr(2), ByteOrder::Little);
    if (bytes.starts_with("\xFE\xFF"sv))
        return FromUtf16(bytes.substr(2), ByteOrder::Big);
    if (bytes.starts_with("\xEF\xBB\xBF"sv))
        return FromUtf8(bytes.substr(3));
    if (IsUtf8(bytes))
        return FromUtf8(bytes);
    std::u16string text;
    DecoderFor(ansi).Append(bytes, text);
    return text;
}

}  // namespace quillmarker
