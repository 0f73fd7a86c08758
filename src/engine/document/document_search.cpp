#include "engine/document/document_search.h"

#include "engine/document/text_copy.h"
#include "engine/document/tree.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace quillmarker
{
namespace
{

bool IsWordUnit(char16_t unit) { return unit == u'_' || u_isalnum(unit) || U_IS_SURROGATE(unit); }

/// The scanned text of a paragraph: its own memory, or `copy` when objects have to be seen as blanks.
std::u16string_view Scanned(const Paragraph& paragraph, std::u16string& copy)
{
    if (!paragraph.HasExtras() || paragraph.Extras().objects.empty())
        return paragraph.Text();
    copy.clear();
    AppendText(paragraph, 0, static_cast<std::int32_t>(paragraph.Text().size()), copy);
    return copy;
}

}  // namespace

DocumentSearch::DocumentSearch(std::u16string_view text, MatchCase matchCase, WholeWord wholeWord)
    : m_text(text),
      m_matchCase(matchCase),
      m_wholeWord(wholeWord),
      m_needle(text, matchCase),
      m_mayCrossMarks(text.find_first_of(u"\r\n\t") != text.npos),
      m_isOnlyAcross(text.find_first_of(u"\r\n") != text.npos)
{
}

std::optional<Position> DocumentSearch::First(const Document& document, TextRange range) const
{
    range.begin = std::max(range.begin, Position{0});
    range.end = std::min(range.end, Position{document.Size()});
    if (m_text.empty() || range.end - range.begin < Length())
        return std::nullopt;
    const Location begin = document.Locate(range.begin);
    Place place{begin.paragraph, range.begin - begin.offset};
    std::optional<Position> found;
    document.Content().Content()->tree.Visit(begin.paragraph, [&](const ParagraphRef& paragraph) {
        found = FirstIn(document, paragraph, place, range);
        place = {place.paragraph + 1, place.start + paragraph->Length()};
        return !found && place.start < range.end;
    });
    return found;
}

std::optional<Position> DocumentSearch::FirstIn(const Document& document, const ParagraphRef& paragraph,
                                                const Place& place, TextRange range) const
{
    std::optional<Position> found;
    if (m_mayCrossMarks)
        found = FirstAcrossMark(document, *paragraph, place, range);
    if (m_isOnlyAcross)
        return found;
    std::int32_t from = std::max(range.begin - place.start, 0);
    while (const auto offset = FirstInText(*paragraph, from))
    {
        const Position at = place.start + *offset;
        if (at + Length() > range.end || (found && *found <= at))
            return found;
        if (IsWord(document, at))
            return at;
        from = *offset + 1;
    }
    return found;
}

std::optional<std::int32_t> DocumentSearch::FirstInText(const Paragraph& paragraph, std::int32_t from) const
{
    std::u16string copy;
    const std::u16string_view text = Scanned(paragraph, copy);
    if (static_cast<std::size_t>(from) > text.size())
        return std::nullopt;
    const std::size_t found = FindFirst(text, m_needle, static_cast<std::size_t>(from));
    if (found == text.npos)
        return std::nullopt;
    return static_cast<std::int32_t>(found);
}

/// A match that takes in the paragraph's mark begins so far before it as the needle holds units before what the mark is.
std::optional<Position> DocumentSearch::FirstAcrossMark(const Document& document, const Paragraph& paragraph,
                                                        const Place& place, TextRange range) const
{
    const auto textLength = static_cast<std::int32_t>(paragraph.Text().size());
    const std::u16string_view mark = MarkText(paragraph.Ending().kind);
    std::optional<Position> found;
    for (std::int32_t i = 0; i < Length(); ++i)
    {
        const char16_t unit = m_text[static_cast<std::size_t>(i)];
        const std::size_t inMark = mark.find(unit);
        if (inMark == mark.npos || (unit == u'\n' && i > 0))
            continue;
        const Position at = place.start + (textLength + static_cast<std::int32_t>(inMark) - i);
        const bool isInside = at >= range.begin && at + Length() <= range.end && (!found || at < *found);
        if (isInside && IsMatch(document, at) && IsWord(document, at))
            found = at;
        if (unit == u'\r')
            break;
    }
    return found;
}

bool DocumentSearch::IsMatch(const Document& document, Position at) const
{
    const std::u16string text = document.Text({at, at + Length()});
    return text.size() == m_text.size() && m_needle.Matches(text, 0);
}

bool DocumentSearch::IsWord(const Document& document, Position at) const
{
    if (m_wholeWord == WholeWord::No)
        return true;
    const std::u16string before = document.Text({at - 1, at});
    const std::u16string behind = document.Text({at + Length(), at + Length() + 1});
    const bool joinsBefore = !before.empty() && IsWordUnit(before[0]) && IsWordUnit(m_text.front());
    const bool joinsBehind = !behind.empty() && IsWordUnit(behind[0]) && IsWordUnit(m_text.back());
    return !joinsBefore && !joinsBehind;
}

std::optional<Position> DocumentSearch::Last(const Document& document, TextRange range) const
{
    range.begin = std::max(range.begin, Position{0});
    range.end = std::min(range.end, Position{document.Size()});
    if (m_text.empty() || range.end - range.begin < Length())
        return std::nullopt;
    // From the end on, paragraph by paragraph: the last match that begins in a paragraph.
    Location place = document.Locate(range.end);
    Position start = range.end - place.offset;
    for (std::int32_t index = place.paragraph; index >= 0; --index)
    {
        const ParagraphRef paragraph = document.SharedParagraphAt(index);
        if (index != place.paragraph)
            start = start - paragraph->Length();
        const Position from = std::max(start, range.begin);
        const Position to = std::min(start + paragraph->Length() + (Length() - 1), range.end);
        std::optional<Position> last;
        std::optional<Position> next = First(document, {from, to});
        for (; next && *next < start + paragraph->Length(); next = First(document, {*next + 1, to}))
            last = next;
        if (last)
            return last;
        if (start <= range.begin)
            break;
    }
    return std::nullopt;
}

}  // namespace quillmarker
