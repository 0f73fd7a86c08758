#include "text_change.h"

#include "engine/document/utf.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quillmarker
{
namespace
{

/// Where the text of some neighbouring paragraphs lies.
TextRange RangeOf(const Document& document, std::int32_t first, std::int32_t count)
{
    return {document.StartOf(first), document.StartOf(first + count)};
}

/// The same, from the end of the paragraph before.
TextRange WithMarkBefore(const Document& document, TextRange range, std::int32_t first)
{
    const auto length = static_cast<std::int32_t>(document.ParagraphAt(first - 1).Text().size());
    return {document.StartOf(first - 1) + length, range.end};
}

/// The text that a change takes and the text it brings.
struct ChangedRanges
{
    TextRange before;
    TextRange after;
};

ChangedRanges RangesOf(const Document& before, const Document& after, const DocumentChange& change)
{
    ChangedRanges ranges{RangeOf(before, change.oldFirst, change.oldCount),
                         RangeOf(after, change.newFirst, change.newCount)};
    // The mark of the last paragraph is no text: putting paragraphs behind it makes it one, taking them takes it.
    const bool isAtEnd = change.oldFirst + change.oldCount == before.ParagraphCount();
    if (isAtEnd && change.oldFirst > 0 && change.newFirst > 0 && (change.oldCount == 0 || change.newCount == 0))
    {
        ranges.before = WithMarkBefore(before, ranges.before, change.oldFirst);
        ranges.after = WithMarkBefore(after, ranges.after, change.newFirst);
    }
    return ranges;
}

/// How many units two texts have in common at their start; not half a pair.
std::size_t CommonStart(std::u16string_view a, std::u16string_view b)
{
    const auto [end, other] = std::ranges::mismatch(a, b);
    auto length = static_cast<std::size_t>(end - a.begin());
    if (length > 0 && IsHighSurrogate(a[length - 1]))
        --length;
    return length;
}

std::size_t CommonEnd(std::u16string_view a, std::u16string_view b)
{
    std::size_t length = 0;
    const std::size_t longest = std::min(a.size(), b.size());
    while (length < longest && a[a.size() - 1 - length] == b[b.size() - 1 - length])
        ++length;
    if (length > 0 && IsLowSurrogate(a[a.size() - length]))
        --length;
    return length;
}

TextChange Narrowed(Position at, std::u16string_view before, std::u16string_view after)
{
    if (before == after)
        return {at, {}, {}};
    const std::size_t start = CommonStart(before, after);
    before.remove_prefix(start);
    after.remove_prefix(start);
    const std::size_t end = CommonEnd(before, after);
    before.remove_suffix(end);
    after.remove_suffix(end);
    return {at + static_cast<std::int32_t>(start), std::u16string(before), std::u16string(after)};
}

/// A keystroke in a very long paragraph: narrowed where the text lies, copying only what differs.
std::optional<TextChange> WithinParagraph(const Document& before, const Document& after, const DocumentChange& change)
{
    if (change.oldCount != 1 || change.newCount != 1)
        return std::nullopt;
    const Paragraph& old = before.ParagraphAt(change.oldFirst);
    const Paragraph& now = after.ParagraphAt(change.newFirst);
    const bool isSameEnd = old.Ending().kind == now.Ending().kind;
    if (!isSameEnd)
        return std::nullopt;
    TextChange narrowed = Narrowed(after.StartOf(change.newFirst), old.Text(), now.Text());
    // Objects are another character in the text that hosts see.
    const auto asText = [](std::u16string& text) { std::ranges::replace(text, kObjectCharacter, u' '); };
    asText(narrowed.removed);
    asText(narrowed.inserted);
    return narrowed;
}

}  // namespace

TextChanges TextChangesBetween(const Document& before, const Document& after)
{
    TextChanges result;
    std::int64_t told = 0;
    for (const DocumentChange& change : Differences(before, after))
    {
        std::optional<TextChange> within = WithinParagraph(before, after, change);
        if (!within)
        {
            const ChangedRanges ranges = RangesOf(before, after, change);
            if (ranges.before.Length() > kMaxTextChange || ranges.after.Length() > kMaxTextChange)
                return {{}, true};
            within = Narrowed(ranges.after.begin, before.Text(ranges.before), after.Text(ranges.after));
        }
        told += static_cast<std::int64_t>(within->removed.size() + within->inserted.size());
        if (told > kMaxTextChange)
            return {{}, true};
        result.changes.push_back(std::move(*within));
    }
    return result;
}

}  // namespace quillmarker
