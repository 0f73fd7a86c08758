#include "engine/document/field_instruction.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

/// The next word of a field's instruction: up to a blank, or what stands in quotes, where a backslash hides the next
/// character.
std::u16string TakeWord(std::u16string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(u' '), text.size()));
    const bool isQuoted = !text.empty() && text[0] == u'"';
    std::u16string word;
    std::size_t at = isQuoted ? 1 : 0;
    for (; at < text.size() && text[at] != (isQuoted ? u'"' : u' '); ++at)
    {
        if (isQuoted && text[at] == u'\\' && at + 1 < text.size())
            ++at;
        word += text[at];
    }
    text.remove_prefix(std::min(at + 1, text.size()));
    return word;
}

std::u16string Upper(std::u16string text)
{
    std::ranges::transform(text, text.begin(),
                           [](char16_t c) { return c >= u'a' && c <= u'z' ? char16_t(c - 32) : c; });
    return text;
}

/// A number as instructions write it: decimal, or hexadecimal behind 0x; 0 for anything else.
char16_t CharacterNumber(std::u16string_view text)
{
    const std::u16string digits = Upper(std::u16string(text));
    const bool isHex = digits.starts_with(u"0X");
    unsigned value = 0;
    for (const char16_t c : std::u16string_view(digits).substr(isHex ? 2 : 0))
    {
        const bool isLetter = isHex && c >= u'A' && c <= u'F';
        if (!isLetter && (c < u'0' || c > u'9'))
            return 0;
        value = value * (isHex ? 16 : 10) + (isLetter ? c - u'A' + 10U : c - u'0' + 0U);
        if (value > 0xFFFF)
            return 0;
    }
    return static_cast<char16_t>(value);
}

MissingResult Symbol(std::u16string_view rest)
{
    MissingResult result;
    const char16_t number = CharacterNumber(TakeWord(rest));
    while (!rest.empty())
    {
        if (TakeWord(rest) == u"\\f")
            result.font = TakeWord(rest);
    }
    constexpr char16_t kSymbolArea = 0xF000;
    if (number >= 0x20)
        result.text = static_cast<char16_t>(number < 0x100 && !result.font.empty() ? kSymbolArea + number : number);
    return result;
}

}  // namespace

MissingResult ResultOf(const Field& field)
{
    std::u16string_view rest = field.instruction;
    const std::u16string name = Upper(TakeWord(rest));
    if (name == u"SYMBOL")
        return Symbol(rest);
    if (name == u"PAGE" || name == u"NUMPAGES")
        return {u"1", {}};
    return {};
}

std::u16string LinkTarget(const Field& field)
{
    std::u16string_view rest = field.instruction;
    if (Upper(TakeWord(rest)) != u"HYPERLINK")
        return {};
    std::u16string target;
    std::u16string bookmark;
    while (!rest.empty())
    {
        rest.remove_prefix(std::min(rest.find_first_not_of(u' '), rest.size()));
        const bool isSwitch = rest.starts_with(u'\\');  // a quoted word that begins so is a path
        const std::u16string word = TakeWord(rest);
        if (isSwitch && word == u"\\l")
            bookmark = u"#" + TakeWord(rest);
        else if (isSwitch && (word == u"\\o" || word == u"\\t"))
            TakeWord(rest);
        else if (!isSwitch && target.empty())
            target = word;
    }
    return target + bookmark;
}

}  // namespace quillmarker
