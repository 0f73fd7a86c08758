#include "engine/rtf/text_escape.h"

#include "engine/rtf/ansi_page.h"

#include <quillmarker/paragraph.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace quillmarker
{
namespace
{

constexpr char kDigits[] = "0123456789abcdef";

constexpr bool IsPlain(char16_t unit)
{
    return unit >= 0x20 && unit < 0x7F && unit != u'\\' && unit != u'{' && unit != u'}';
}

/// How many plain units `text` begins with. Whole blocks are tested at once, without a branch for each unit.
std::size_t PlainLength(std::u16string_view text)
{
    constexpr std::size_t kBlock = 32;
    std::size_t length = 0;
    for (; length + kBlock <= text.size(); length += kBlock)
    {
        unsigned special = 0;
        for (std::size_t i = 0; i < kBlock; ++i)
            special |= static_cast<unsigned>(!IsPlain(text[length + i]));
        if (special)
            break;
    }
    while (length < text.size() && IsPlain(text[length]))
        ++length;
    return length;
}

void AppendPlain(std::u16string_view text, std::string& out)
{
    const std::size_t start = out.size();
    out.resize(start + text.size());
    std::ranges::transform(text, out.begin() + static_cast<std::ptrdiff_t>(start),
                           [](char16_t unit) { return static_cast<char>(unit); });
}

void AppendByte(unsigned byte, std::string& out)
{
    out += "\\'";
    out += kDigits[byte >> 4 & 15];
    out += kDigits[byte & 15];
}

void AppendUnicode(char16_t unit, std::string& out)
{
    AppendWord(out, "u", unit < 0x8000 ? int{unit} : int{unit} - 0x10000);
    const auto byte = EncodeAnsi(unit);
    if (byte && *byte >= 0x80)
        AppendByte(*byte, out);
    else
        out += '?';
}

void AppendSpecial(char16_t unit, std::string& out)
{
    switch (unit)
    {
    case u'{':
        out += "\\{";
        break;
    case u'}':
        out += "\\}";
        break;
    case u'\t':
        out += "\\tab ";
        break;
    case kLineBreak:
        out += "\\line ";
        break;
    case kPageBreak:
        out += "\\page ";
        break;
    case kColumnBreak:
        out += "\\column ";
        break;
    case u'\u00A0':
        out += "\\~";
        break;
    case u'\u00AD':
        out += "\\-";
        break;
    case u'\u2011':
        out += "\\_";
        break;
    default:
        if (unit < 0x80)
            AppendByte(unit, out);
        else
            AppendUnicode(unit, out);
    }
}

}  // namespace

void AppendEscaped(std::u16string_view text, std::string& out)
{
    while (!text.empty())
    {
        const std::size_t plain = PlainLength(text);
        AppendPlain(text.substr(0, plain), out);
        text.remove_prefix(plain);
        if (text.empty())
            return;
        AppendSpecial(text[0], out);
        text.remove_prefix(1);
    }
}

void AppendEscapedName(std::u16string_view text, std::string& out)
{
    for (std::size_t end; (end = text.find(u';')) != text.npos; text.remove_prefix(end + 1))
    {
        AppendEscaped(text.substr(0, end), out);
        AppendUnicode(u';', out);
    }
    AppendEscaped(text, out);
}

void AppendHex(std::string_view bytes, std::string& out)
{
    constexpr std::size_t kBytesInLine = 64;
    out.reserve(out.size() + bytes.size() * 2 + bytes.size() / kBytesInLine * 2 + 4);
    while (!bytes.empty())
    {
        for (const char byte : bytes.substr(0, kBytesInLine))
        {
            out += kDigits[static_cast<unsigned char>(byte) >> 4];
            out += kDigits[static_cast<unsigned char>(byte) & 15];
        }
        bytes.remove_prefix(std::min(kBytesInLine, bytes.size()));
        out += "\r\n";
    }
}

void AppendWord(std::string& out, std::string_view word)
{
    out += '\\';
    out += word;
}

void AppendWord(std::string& out, std::string_view word, long long parameter)
{
    AppendWord(out, word);
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), parameter).ptr;
    out.append(digits.data(), end);
}

}  // namespace quillmarker
