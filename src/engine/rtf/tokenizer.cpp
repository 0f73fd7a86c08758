#include "engine/rtf/tokenizer.h"

#include "engine/rtf/hex.h"

#include <algorithm>
#include <array>
#include <limits>

namespace quillmarker
{
namespace
{

enum class ByteClass : std::uint8_t { Text, Ignored, Syntax };

constexpr auto kClasses = [] {
    std::array<ByteClass, 256> classes{};
    for (std::size_t byte = 0; byte < 0x20; ++byte)
        classes[byte] = ByteClass::Ignored;
    classes['\t'] = ByteClass::Text;
    classes['\\'] = classes['{'] = classes['}'] = ByteClass::Syntax;
    return classes;
}();

ByteClass ClassOf(char byte) { return kClasses[static_cast<unsigned char>(byte)]; }

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

Token Tokenizer::Next()
{
    while (m_at < m_source.size())
    {
        const char c = m_source[m_at];
        switch (ClassOf(c))
        {
        case ByteClass::Text:
            return TextToken();
        case ByteClass::Ignored:
            ++m_at;
            break;
        case ByteClass::Syntax:
            ++m_at;
            if (c == '\\')
                return AfterBackslash();
            return {.kind = c == '{' ? TokenKind::Open : TokenKind::Close, .text = {}, .parameter = {}};
        }
    }
    return {};
}

Token Tokenizer::TextToken()
{
    const std::size_t begin = m_at;
    unsigned char bits = 0;
    for (; m_at < m_source.size() && ClassOf(m_source[m_at]) == ByteClass::Text; ++m_at)
        bits = static_cast<unsigned char>(bits | static_cast<unsigned char>(m_source[m_at]));
    return {
        .kind = TokenKind::Text, .isAscii = bits < 0x80, .text = m_source.substr(begin, m_at - begin), .parameter = {}};
}

Token Tokenizer::AfterBackslash()
{
    if (m_at >= m_source.size())
        return {};
    const char c = m_source[m_at];
    if (IsLetter(c))
        return WordToken();
    ++m_at;
    if (c == '\'')
    {
        const int high = m_at < m_source.size() ? HexValue(m_source[m_at]) : -1;
        const int low = m_at + 1 < m_source.size() ? HexValue(m_source[m_at + 1]) : -1;
        if (high < 0 || low < 0)
            return {.kind = TokenKind::Symbol, .text = {}, .parameter = {}, .byte = '\''};
        m_at += 2;
        return {
            .kind = TokenKind::Byte, .text = {}, .parameter = {}, .byte = static_cast<unsigned char>(high * 16 + low)};
    }
    if (c == '\r' && m_at < m_source.size() && m_source[m_at] == '\n')
        ++m_at;
    return {.kind = TokenKind::Symbol, .text = {}, .parameter = {}, .byte = static_cast<unsigned char>(c)};
}

Token Tokenizer::WordToken()
{
    const std::size_t begin = m_at;
    while (m_at < m_source.size() && IsLetter(m_source[m_at]))
        ++m_at;
    Token token{.kind = TokenKind::Word, .text = m_source.substr(begin, m_at - begin), .parameter = {}};
    const std::size_t behindName = m_at;
    token.parameter = ReadParameter();
    // After \v only the exact digits 0 and 1 are a parameter: hidden text may begin with a digit right behind it.
    const bool isHiding = token.text == "v" && token.parameter.IsGiven();
    if (isHiding && token.parameter.digits != "0" && token.parameter.digits != "1")
    {
        m_at = behindName;
        token.parameter = {};
        return token;
    }
    if (m_at < m_source.size() && m_source[m_at] == ' ')
        ++m_at;
    return token.text == "bin" ? Binary(token.parameter) : token;
}

Parameter Tokenizer::ReadParameter()
{
    const std::size_t begin = m_at;
    std::size_t at = m_at;
    const bool isNegative = at < m_source.size() && m_source[at] == '-';
    if (isNegative)
        ++at;
    if (at >= m_source.size() || !IsDigit(m_source[at]))
        return {};
    constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
    std::int64_t value = 0;
    for (; at < m_source.size() && IsDigit(m_source[at]); ++at)
        value = std::min(value * 10 + (m_source[at] - '0'), kLargest);
    m_at = at;
    return {static_cast<std::int32_t>(isNegative ? -value : value), m_source.substr(begin, at - begin)};
}

Token Tokenizer::Binary(const Parameter& count)
{
    const std::size_t begin = m_at;
    auto left = static_cast<std::size_t>(std::max(count.value, 0));
    if (m_kind == SourceKind::Bytes)
        m_at += std::min(left, m_source.size() - m_at);
    else
    {
        const auto isContinuation = [&] { return (static_cast<unsigned char>(m_source[m_at]) & 0xC0) == 0x80; };
        for (; left > 0 && m_at < m_source.size(); --left)
        {
            ++m_at;
            while (m_at < m_source.size() && isContinuation())
                ++m_at;
        }
    }
    return {.kind = TokenKind::Binary, .text = m_source.substr(begin, m_at - begin), .parameter = count};
}

void Tokenizer::SkipGroup()
{
    for (std::size_t depth = 1; depth > 0;)
    {
        // Only braces and backslashes matter here, so everything else is passed over at the speed of a scan.
        while (m_at < m_source.size() && ClassOf(m_source[m_at]) != ByteClass::Syntax)
            ++m_at;
        if (m_at >= m_source.size())
            return;
        const char c = m_source[m_at++];
        if (c == '{')
            ++depth;
        else if (c == '}')
            --depth;
        else if (IsAt("bin"))
            AfterBackslash();
        else if (m_at < m_source.size() && !IsLetter(m_source[m_at]))
            ++m_at;
    }
}

bool Tokenizer::SkipNextGroup()
{
    const std::size_t start = m_at;
    while (m_at < m_source.size() && (m_source[m_at] == ' ' || ClassOf(m_source[m_at]) == ByteClass::Ignored))
        ++m_at;
    if (m_at >= m_source.size() || m_source[m_at] != '{')
    {
        m_at = start;
        return false;
    }
    ++m_at;
    SkipGroup();
    return true;
}

}  // namespace quillmarker
