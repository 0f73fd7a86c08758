#include "engine/document/utf.h"

#include <cstdint>
#include <cstring>

namespace quillmarker
{

namespace
{

constexpr char16_t kReplacement = 0xFFFD;
constexpr char32_t kBroken = 0xFFFFFFFF;
constexpr std::size_t kWord = sizeof(std::uint64_t);

// How many bytes from `at` on are ASCII.
std::size_t AsciiRun(std::string_view bytes, std::size_t at)
{
    std::size_t end = at;
    for (; bytes.size() - end >= kWord; end += kWord)
    {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + end, kWord);
        if ((word & 0x8080808080808080U) != 0)
            break;
    }
    while (end < bytes.size() && static_cast<unsigned char>(bytes[end]) < 0x80)
        ++end;
    return end - at;
}

struct Sequence
{
    char32_t character;  // kBroken when the bytes are no character
    std::size_t length;  // of the character, or of the longest part that could begin one
};

// The second byte's range tells overlong forms, surrogates and what lies above U+10FFFF from characters.
struct LeadRule
{
    std::size_t length;  // 0: no character begins so
    unsigned char secondFrom;
    unsigned char secondTo;
};

LeadRule RuleOf(unsigned char lead)
{
    if (lead >= 0xC2 && lead <= 0xDF)
        return {2, 0x80, 0xBF};
    if (lead >= 0xE0 && lead <= 0xEF)
    {
        const bool surrogates = lead == 0xED;
        return {3, static_cast<unsigned char>(lead == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(surrogates ? 0x9F : 0xBF)};
    }
    if (lead >= 0xF0 && lead <= 0xF4)
        return {4, static_cast<unsigned char>(lead == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(lead == 0xF4 ? 0x8F : 0xBF)};
    return {0, 0, 0};
}

Sequence SequenceAt(std::string_view bytes, std::size_t at)
{
    const auto lead = static_cast<unsigned char>(bytes[at]);
    if (lead < 0x80)
        return {lead, 1};
    const LeadRule rule = RuleOf(lead);
    if (rule.length == 0)
        return {kBroken, 1};
    char32_t character = lead & (0x7FU >> rule.length);
    for (std::size_t i = 1; i < rule.length; ++i)
    {
        if (at + i >= bytes.size())
            return {kBroken, i};
        const auto byte = static_cast<unsigned char>(bytes[at + i]);
        const unsigned from = i == 1 ? rule.secondFrom : 0x80;
        const unsigned to = i == 1 ? rule.secondTo : 0xBF;
        if (byte < from || byte > to)
            return {kBroken, i};
        character = character << 6 | (byte & 0x3FU);
    }
    return {character, rule.length};
}

char16_t* PutUtf16(char32_t character, char16_t* out)
{
    if (character == kBroken)
    {
        *out++ = kReplacement;
    }
    else if (character < 0x10000)
    {
        *out++ = static_cast<char16_t>(character);
    }
    else
    {
        *out++ = static_cast<char16_t>(0xD7C0 + (character >> 10));
        *out++ = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    }
    return out;
}

// Moves `at` behind the character.
char32_t CharacterAt(std::u16string_view text, std::size_t& at)
{
    const char16_t unit = text[at++];
    if (IsHighSurrogate(unit) && at < text.size() && IsLowSurrogate(text[at]))
        return 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[at++]} - 0xDC00);
    return IsHighSurrogate(unit) || IsLowSurrogate(unit) ? char32_t{kReplacement} : char32_t{unit};
}

char* PutUtf8(char32_t character, char* out)
{
    const auto put = [&out](char32_t byte) { *out++ = static_cast<char>(byte); };
    if (character < 0x80)
    {
        put(character);
        return out;
    }
    if (character < 0x800)
    {
        put(0xC0 | character >> 6);
    }
    else if (character < 0x10000)
    {
        put(0xE0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3F));
    }
    else
    {
        put(0xF0 | character >> 18);
        put(0x80 | (character >> 12 & 0x3F));
        put(0x80 | (character >> 6 & 0x3F));
    }
    put(0x80 | (character & 0x3F));
    return out;
}

}  // namespace

void AppendUtf8(std::string_view bytes, std::u16string& out)
{
    const std::size_t start = out.size();
    out.resize(start + bytes.size());  // a character never takes more units than bytes
    char16_t* unit = out.data() + start;
    for (std::size_t at = 0; at < bytes.size();)
    {
        const std::size_t run = AsciiRun(bytes, at);
        for (std::size_t i = 0; i < run; ++i)
            unit[i] = static_cast<unsigned char>(bytes[at + i]);
        unit += run;
        at += run;
        if (at == bytes.size())
            break;
        const Sequence sequence = SequenceAt(bytes, at);
        unit = PutUtf16(sequence.character, unit);
        at += sequence.length;
    }
    out.resize(static_cast<std::size_t>(unit - out.data()));
}

std::u16string FromUtf8(std::string_view bytes)
{
    std::u16string text;
    AppendUtf8(bytes, text);
    return text;
}

bool IsUtf8(std::string_view bytes)
{
    for (std::size_t at = AsciiRun(bytes, 0); at < bytes.size(); at += AsciiRun(bytes, at))
    {
        const Sequence sequence = SequenceAt(bytes, at);
        if (sequence.character == kBroken)
            return false;
        at += sequence.length;
    }
    return true;
}

std::string ToUtf8(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 8);
    for (std::size_t at = 0; at < text.size();)
    {
        std::size_t asciiEnd = at;
        while (asciiEnd < text.size() && text[asciiEnd] < 0x80)
            ++asciiEnd;
        const std::size_t start = bytes.size();
        bytes.resize(start + asciiEnd - at);
        for (std::size_t i = 0; i < asciiEnd - at; ++i)
            bytes[start + i] = static_cast<char>(text[at + i]);
        at = asciiEnd;
        if (at == text.size())
            break;
        char sequence[4];
        bytes.append(sequence, PutUtf8(CharacterAt(text, at), sequence));
    }
    return bytes;
}

}  // namespace quillmarker
