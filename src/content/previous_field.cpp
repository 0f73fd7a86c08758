#include "content/previous_field.h"

#include "engine/document/document_search.h"

namespace quillmarker
{
namespace
{

/// A suffix must leave room behind the prefix: hosts rely on this bound, which is one more than what is needed.
bool HasRoom(std::int64_t sourceLength, std::int64_t prefixAt, std::size_t prefix, std::size_t suffix)
{
    const std::int64_t oneBased = prefixAt + 1;
    return sourceLength >= oneBased + static_cast<std::int64_t>(prefix + suffix) + 1;
}

}  // namespace

std::u16string FieldInSource(std::u16string_view source, std::u16string_view prefix, std::u16string_view suffix)
{
    const std::size_t at = FindLast(source, Needle(prefix, MatchCase::No));
    if (at == source.npos ||
        !HasRoom(static_cast<std::int64_t>(source.size()), static_cast<std::int64_t>(at), prefix.size(), suffix.size()))
        return {};
    const std::size_t begin = at + prefix.size();
    const std::size_t end = FindFirst(source, Needle(suffix, MatchCase::No), begin);
    return end == source.npos ? std::u16string() : std::u16string(source.substr(begin, end - begin));
}

std::u16string FieldInText(const Document& document, std::int32_t caret, std::u16string_view prefix,
                           std::u16string_view suffix)
{
    const Position size{document.Size()};
    Position end{caret};
    if (end < size)
    {
        // The line's end is looked for from the character before the caret on, and belongs to the text searched.
        const auto lineEnd = DocumentSearch(u"\r", MatchCase::Yes).First(document, {end - 1, size});
        if (lineEnd)
            end = *lineEnd + 1;
    }
    const auto at = DocumentSearch(prefix, MatchCase::No).Last(document, {{0}, end});
    if (!at || !HasRoom(end.value, at->value, prefix.size(), suffix.size()))
        return {};
    const Position begin = *at + static_cast<std::int32_t>(prefix.size());
    const auto stop = DocumentSearch(suffix, MatchCase::No).First(document, {begin, end});
    return stop ? document.Text({begin, *stop}) : std::u16string();
}

}  // namespace quillmarker
