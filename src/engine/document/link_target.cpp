#include <quillmarker/char_format.h>

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

}  // namespace

std::u16string LinkTarget(const Field& field)
{
    std::u16string_view rest = field.instruction;
    std::u16string name = TakeWord(rest);
    std::ranges::transform(name, name.begin(), [](char16_t c) { return c >= u'a' && c <= u'z' ? char16_t(c - 32) : c; });
    if (name != u"HYPERLINK")
        return {};
    std::u16string target;
    while (!rest.empty())
    {
        const std::u16string word = TakeWord(rest);
        if (word == u"\\l")
            target += u"#" + TakeWord(rest);
        else if (word == u"\\o" || word == u"\\t")
            TakeWord(rest);
        else if (!word.starts_with(u"\\") && target.empty())
            target = word;
    }
    return target;
}

}  // namespace quillmarker
