#include "text_breaks.h"

#include <quillmarker/paragraph.h>

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf16.h>

#include <memory>

namespace quillmarker
{
namespace
{

enum class Kind : std::uint8_t { Blank, Alone, Sign, Letters };

/// One of ICU's iterators over a text that lies where it is.
class Breaks
{
public:
    using Maker = icu::BreakIterator* (*)(const icu::Locale&, UErrorCode&);

    /// Making an iterator reads its rules, so each thread keeps one.
    Breaks(std::u16string_view text, std::unique_ptr<icu::BreakIterator>& kept, Maker make)
        : m_text(text), m_iterator(kept)
    {
        UErrorCode error = U_ZERO_ERROR;
        if (!kept)
            kept.reset(make(icu::Locale::getRoot(), error));
        UText units = UTEXT_INITIALIZER;
        utext_openUChars(&units, text.data(), static_cast<std::int64_t>(text.size()), &error);
        if (kept)
            kept->setText(&units, error);
        utext_close(&units);
        if (U_FAILURE(error))
            kept.reset();
    }

    /// Without ICU's data, each unit is a character and a word.
    std::int32_t Behind(std::int32_t offset) const { return m_iterator ? m_iterator->following(offset) : offset + 1; }
    std::int32_t Before(std::int32_t offset) const
    {
        // Between two surrogates ICU takes the place before both.
        const bool isInPair = offset < static_cast<std::int32_t>(m_text.size()) &&
                              U16_IS_TRAIL(m_text[static_cast<std::size_t>(offset)]) &&
                              U16_IS_LEAD(m_text[static_cast<std::size_t>(offset) - 1]);
        return m_iterator ? m_iterator->preceding(offset + (isInPair ? 1 : 0)) : offset - 1;
    }
    bool IsAt(std::int32_t offset) const { return !m_iterator || m_iterator->isBoundary(offset); }

    /// Whether letters or digits stand in front of the boundary that was found last.
    bool IsWord() const { return m_iterator && m_iterator->getRuleStatus() >= UBRK_WORD_NONE_LIMIT; }

private:
    std::u16string_view m_text;
    std::unique_ptr<icu::BreakIterator>& m_iterator;
};

Breaks CharacterBreaks(std::u16string_view text)
{
    thread_local std::unique_ptr<icu::BreakIterator> kept;
    return {text, kept, &icu::BreakIterator::createCharacterInstance};
}

Breaks WordBreaks(std::u16string_view text)
{
    thread_local std::unique_ptr<icu::BreakIterator> kept;
    return {text, kept, &icu::BreakIterator::createWordInstance};
}

std::int32_t Length(std::u16string_view text) { return static_cast<std::int32_t>(text.size()); }

char16_t UnitAt(std::u16string_view text, std::int32_t offset) { return text[static_cast<std::size_t>(offset)]; }

/// Units below this one never join with each other, but for CR LF.
constexpr char16_t kFirstCombining = 0x0300;

bool StandsAlone(std::u16string_view text, std::int32_t offset)
{
    const char16_t unit = UnitAt(text, offset);
    return unit == u'\t' || unit == kObjectCharacter || IsBreakCharacter(text, offset);
}

bool IsBlank(std::u16string_view text, std::int32_t offset)
{
    return u_isUWhiteSpace(UnitAt(text, offset)) && !StandsAlone(text, offset);
}

/// Two neighbours of which neither is letters nor stands alone are one word of signs.
bool IsSign(std::u16string_view text, const Breaks& words, std::int32_t begin)
{
    if (IsBlank(text, begin) || StandsAlone(text, begin))
        return false;
    words.Behind(begin);
    return !words.IsWord();
}

}  // namespace

bool IsBreakCharacter(std::u16string_view text, std::int32_t offset)
{
    const char16_t unit = UnitAt(text, offset);
    return unit == kLineBreak || unit == kPageBreak || unit == kColumnBreak;
}

std::int32_t NextCharacterBreak(std::u16string_view text, std::int32_t offset)
{
    if (offset >= Length(text))
        return Length(text);
    const bool isSimple = UnitAt(text, offset) < kFirstCombining && UnitAt(text, offset) != u'\r';
    if (isSimple && (offset + 1 == Length(text) || UnitAt(text, offset + 1) < kFirstCombining))
        return offset + 1;
    return CharacterBreaks(text).Behind(offset);
}

std::int32_t PreviousCharacterBreak(std::u16string_view text, std::int32_t offset)
{
    if (offset <= 0)
        return 0;
    const bool isSimple = UnitAt(text, offset - 1) < kFirstCombining && UnitAt(text, offset - 1) != u'\n';
    if (isSimple && (offset == 1 || UnitAt(text, offset - 2) < kFirstCombining))
        return offset - 1;
    return CharacterBreaks(text).Before(offset);
}

bool IsCharacterBreak(std::u16string_view text, std::int32_t offset)
{
    if (offset <= 0 || offset >= Length(text))
        return true;
    if (UnitAt(text, offset) < kFirstCombining && UnitAt(text, offset) != u'\n' &&
        UnitAt(text, offset - 1) < kFirstCombining)
        return true;
    return CharacterBreaks(text).IsAt(offset);
}

std::int32_t WordEnd(std::u16string_view text, std::int32_t offset)
{
    std::int32_t end = offset;
    if (IsBlank(text, offset))
    {
        while (end < Length(text) && IsBlank(text, end))
            ++end;
        return end;
    }
    if (StandsAlone(text, offset))
        return offset + 1;
    const Breaks words = WordBreaks(text);
    end = words.Behind(offset);
    if (words.IsWord())
        return end;
    while (end < Length(text) && IsSign(text, words, end))
        end = words.Behind(end);
    return end;
}

std::int32_t NextWordStart(std::u16string_view text, std::int32_t offset)
{
    if (offset >= Length(text))
        return Length(text);
    const std::int32_t end = IsBlank(text, offset) ? offset : WordEnd(text, offset);
    return end < Length(text) && IsBlank(text, end) ? WordEnd(text, end) : end;
}

std::int32_t PreviousWordStart(std::u16string_view text, std::int32_t offset)
{
    while (offset > 0 && IsBlank(text, offset - 1))
        --offset;
    if (offset <= 0)
        return 0;
    if (StandsAlone(text, offset - 1))
        return offset - 1;
    const Breaks words = WordBreaks(text);
    std::int32_t begin = words.Before(offset);
    if (!IsSign(text, words, begin))
        return begin;
    while (begin > 0)
    {
        const std::int32_t before = words.Before(begin);
        if (!IsSign(text, words, before))
            break;
        begin = before;
    }
    return begin;
}

}  // namespace quillmarker
