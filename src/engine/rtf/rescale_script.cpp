#include "engine/rtf/rescale_script.h"

#include "engine/document/case_folding.h"
#include "engine/document/parse_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

namespace quillmarker
{

namespace
{

constexpr std::u16string_view kSizeWord = u"\\fs";
constexpr float kReduced = 0.7F;
constexpr double kOffsetDivisor = 20;
constexpr std::size_t kNone = std::u16string::npos;

bool IsNumberUnit(char16_t unit) { return (unit >= u'0' && unit <= u'9') || unit == u',' || unit == u'.'; }

// A whole number, halves away from zero.
std::u16string WholeNumber(double value)
{
    std::array<char, 64> digits{};
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), std::round(value), std::chars_format::fixed, 0);
    return {digits.data(), end};
}

// The text while it is rewritten: a head that has been touched, and the rest as it came. Changes happen near the
// head's end, so that the work is linear in the text. Positions count from the beginning of the whole text.
class Rewriting
{
public:
    explicit Rewriting(std::u16string_view text) : m_rest(text) { m_head.reserve(text.size() + text.size() / 16); }

    // The next `word` that begins at or after `from`, ignoring case; the head then holds it. The word begins with a
    // backslash.
    std::size_t Find(std::u16string_view word, std::size_t from)
    {
        for (std::size_t at = Backslash(from); at != kNone; at = Backslash(at + 1))
        {
            if (IsAt(word, at))
                return at;
        }
        return kNone;
    }

    // The last `word` that begins between `floor` and `from`, `from` included.
    std::size_t FindBack(std::u16string_view word, std::size_t from, std::size_t floor)
    {
        for (std::size_t at = from + 1; at-- > floor;)
        {
            if (IsAt(word, at))
                return at;
        }
        return kNone;
    }

    // The number at `at`, as far as it goes; it may be empty.
    std::u16string_view NumberAt(std::size_t at)
    {
        std::size_t end = at;
        for (Reach(end + 1); end < m_head.size() && IsNumberUnit(m_head[end]); Reach(end + 1))
            ++end;
        return std::u16string_view(m_head).substr(std::min(at, m_head.size()), end - at);
    }

    // How many units the text got shorter by; 0 when it got longer.
    std::size_t ReplaceNumberAt(std::size_t at, const std::u16string& number)
    {
        const std::size_t length = NumberAt(at).size();
        m_head.replace(std::min(at, m_head.size()), length, number);
        return length > number.size() ? length - number.size() : 0;
    }

    std::u16string Finished()
    {
        m_head += m_rest;
        return std::move(m_head);
    }

private:
    // Makes the head hold the first `length` units, if there are as many.
    void Reach(std::size_t length)
    {
        if (length <= m_head.size())
            return;
        const std::size_t count = std::min(length - m_head.size(), m_rest.size());
        m_head += m_rest.substr(0, count);
        m_rest.remove_prefix(count);
    }

    std::size_t Backslash(std::size_t from) const
    {
        const std::size_t inHead = m_head.find(u'\\', from);
        if (inHead != kNone)
            return inHead;
        const std::size_t skipped = from > m_head.size() ? from - m_head.size() : 0;
        const std::size_t inRest = m_rest.find(u'\\', skipped);
        return inRest == kNone ? kNone : m_head.size() + inRest;
    }

    bool IsAt(std::u16string_view word, std::size_t at)
    {
        Reach(at + word.size());
        if (at + word.size() > m_head.size())
            return false;
        return std::equal(word.begin(), word.end(), m_head.begin() + static_cast<std::ptrdiff_t>(at),
                          [](char16_t a, char16_t b) { return Fold(a) == Fold(b); });
    }

    std::u16string m_head;
    std::u16string_view m_rest;
};

// Finds the size before a position that only moves on, so that no stretch of text is looked through twice.
class SizeFinder
{
public:
    // Where the digits of the nearest size before `position` begin.
    std::size_t DigitsBefore(Rewriting& text, std::size_t position)
    {
        const std::size_t word = text.FindBack(kSizeWord, position, m_searched);
        if (word != kNone)
            m_word = word;
        m_searched = position;
        return m_word == kNone ? kNone : m_word + kSizeWord.size();
    }

    // The size found last got shorter by `shrunk` units, which brings text from behind `position` before it, and then
    // a number was written at `position`, which can tear apart a size word that was there.
    void Changed(std::size_t position, std::size_t shrunk)
    {
        const bool atPosition = m_word + kSizeWord.size() > position;
        m_searched = atPosition ? 0 : std::max(m_word + 1, position - std::min(position, shrunk));
        if (atPosition)
            m_word = kNone;
    }

private:
    std::size_t m_searched = 0;  // no size word begins between m_word and this
    std::size_t m_word = kNone;
};

// What offset the unreduced size gives; empty beyond 32 bits, where the rule's own arithmetic ends.
std::optional<double> OffsetOf(float size, int factor)
{
    const double product = std::round(double{size} * factor);
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    if (product > kMost || product < -double{kMost} - 1)
        return std::nullopt;
    return std::floor(product / kOffsetDivisor);
}

}  // namespace

// Where no size stands before a keyword there is nothing to take 70 % of, and its own number stays too.
void RescaleScriptRTF(std::u16string& rtf, std::u16string_view keyword, int factor)
{
    if (keyword.empty() || keyword.front() != u'\\')
        return;
    Rewriting text(rtf);
    SizeFinder sizes;
    for (std::size_t at = text.Find(keyword, 0); at != kNone;)
    {
        // A size that gets shorter moves the text to the left, and `position` stays where it was, on purpose.
        const std::size_t position = at + keyword.size();
        const std::size_t digits = sizes.DigitsBefore(text, position);
        if (digits != kNone)
        {
            const float size = ParseSize(text.NumberAt(digits));
            const std::size_t shrunk = text.ReplaceNumberAt(digits, WholeNumber(size * kReduced));
            if (const std::optional<double> offset = OffsetOf(size, factor))
                text.ReplaceNumberAt(position, WholeNumber(*offset));
            sizes.Changed(position, shrunk);
        }
        at = text.Find(keyword, position + 1);
    }
    rtf = text.Finished();
}

}  // namespace quillmarker
