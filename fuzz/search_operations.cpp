// Find against a search that looks at every place, Span and UpTo against a walk.

#include "document_laws.h"
#include "edit_session.h"
#include "require.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace quillmarker
{
namespace
{

enum class Answer : std::uint8_t { No, Yes, Open };

bool MatchesAt(std::u16string_view text, std::size_t at, std::u16string_view needle, int options)
{
    const auto equal = [&](char16_t a, char16_t b) {
        const bool ignoresCase = (options & kFindMatchCase) == 0;
        return a == b || (ignoresCase && u_foldCase(a, U_FOLD_CASE_DEFAULT) == u_foldCase(b, U_FOLD_CASE_DEFAULT));
    };
    return std::ranges::equal(text.substr(at, needle.size()), needle, equal);
}

/// Whether a unit belongs to a word; of marks, joiners and the like opinions differ.
Answer IsOfWord(char16_t unit)
{
    if (unit < 0x80)
    {
        const bool isOpen = unit == u'_' || unit == u'\'' || unit == u'-' || unit == u'.' || unit < 0x09;
        return isOpen ? Answer::Open : u_isalnum(unit) ? Answer::Yes : Answer::No;
    }
    return unit < 0x250 && u_isalpha(unit) ? Answer::Yes : Answer::Open;
}

/// Whether a word ends between two units.
Answer IsEdge(char16_t inside, char16_t outside)
{
    if (IsOfWord(outside) == Answer::No && IsOfWord(inside) == Answer::Yes)
        return Answer::Yes;
    return IsOfWord(outside) == Answer::Yes && IsOfWord(inside) == Answer::Yes ? Answer::No : Answer::Open;
}

Answer IsWholeWord(std::u16string_view text, std::size_t at, std::size_t length)
{
    const Answer before = IsEdge(text[at], at == 0 ? u' ' : text[at - 1]);
    const Answer behind = IsEdge(text[at + length - 1], at + length == text.size() ? u' ' : text[at + length]);
    if (before == Answer::No || behind == Answer::No)
        return Answer::No;
    return before == Answer::Yes && behind == Answer::Yes ? Answer::Yes : Answer::Open;
}

bool HasBreak(std::u16string_view text) { return text.find_first_of(u"\r\n") != text.npos; }

}  // namespace

/// Half of the needles are cut from the text, so that something is found.
std::u16string EditSession::Needle(ByteScript& script) const
{
    std::u16string needle = script.Text();
    if (script.Below(2) == 0)
    {
        const auto size = static_cast<std::size_t>(m_text.Size()) + 1;
        needle = m_text.text.substr(script.Byte() % size, script.Below(9));
    }
    // Half a break selects a whole one; that is looked at where selections are.
    std::erase_if(needle, [](char16_t unit) { return unit == u'\r' || unit == u'\n' || unit == u'\0'; });
    return needle;
}

void EditSession::Found(std::int32_t at, std::u16string_view needle, std::int32_t start, std::int32_t end, int options)
{
    const bool isWord = (options & kFindWholeWord) != 0;
    const auto detail = [&] {
        return "needle " + Printable(needle) + " from " + std::to_string(start) + " to " + std::to_string(end) +
               ", options " + std::to_string(options) + ": " + std::to_string(at) + " in " + Printable(m_text.text);
    };
    const auto length = static_cast<std::int32_t>(needle.size());
    for (std::int32_t place = start; length > 0 && place <= end - length; ++place)
    {
        const auto offset = static_cast<std::size_t>(place);
        if (!MatchesAt(m_text.text, offset, needle, options))
            continue;
        const Answer word = isWord ? IsWholeWord(m_text.text, offset, needle.size()) : Answer::Yes;
        if (word != Answer::No && place == at)
        {
            m_selection = {at, length};
            m_insertion.reset();
            return;
        }
        Require(word != Answer::Yes, "the first match is found", detail);
    }
    Require(at == -1, "what is found is there", detail);
}

void EditSession::FindFromCaret(ByteScript& script)
{
    const std::u16string needle = Needle(script);
    Found(m_box.Find(needle), needle, m_selection.start, m_text.Size(), 0);
}

void EditSession::FindInRange(ByteScript& script)
{
    const std::u16string needle = Needle(script);
    const std::int32_t start = std::max(script.Position(m_text.Size()), 0);
    const std::int32_t end = script.Position(m_text.Size());
    const int options = static_cast<int>(script.Byte());
    if (end >= 0 && end < start)
        return;  // which way that searches is the box's own affair
    const std::int32_t last = end < 0 ? m_text.Size() : std::min(end, m_text.Size());
    Found(m_box.Find(needle, start, end, options), needle, start, last, options);
}

void EditSession::SpanOver(ByteScript& script)
{
    const std::u16string set = script.Text();
    if (m_selection.length > 0 || HasBreak(set))
        return;
    m_box.Span(set);
    const std::size_t end = m_text.text.find_first_not_of(set, static_cast<std::size_t>(m_selection.start));
    const auto stop = end == std::u16string::npos ? m_text.Size() : static_cast<std::int32_t>(end);
    const std::int32_t length = set.empty() ? 0 : stop - m_selection.start;
    if (length > 0)
        m_insertion.reset();
    m_selection.length = length;
}

void EditSession::MoveUpTo(ByteScript& script)
{
    const std::u16string set = script.Text();
    if (m_selection.length > 0 || HasBreak(set))
        return;
    m_box.UpTo(set);
    const std::size_t found = m_text.text.find_first_of(set, static_cast<std::size_t>(m_selection.start));
    if (found == std::u16string::npos || static_cast<std::int32_t>(found) == m_selection.start)
        return;
    m_selection.start = static_cast<std::int32_t>(found);
    m_insertion.reset();
}

}  // namespace quillmarker
