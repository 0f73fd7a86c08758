#include "line_breaks.h"

#include "boundary_rules.h"
#include "line_rules.h"
#include "simple_characters.h"

#include <quillmarker/paragraph.h>

#include <algorithm>
#include <array>
#include <optional>

namespace quillmarker
{
namespace
{

struct RulesOfLanguage
{
    std::uint16_t language;  // the primary part of a Windows language identifier
    const char* locale;
};

/// Languages that break lines by rules of their own; the rest share the root's, dictionaries included.
constexpr std::array kRulesOfLanguages = {
    RulesOfLanguage{0x04, "zh"}, RulesOfLanguage{0x0B, "fi"}, RulesOfLanguage{0x11, "ja"},
    RulesOfLanguage{0x12, "ko"}, RulesOfLanguage{0x1D, "sv"},
};

const char* LocaleOf(std::uint16_t language)
{
    const auto* found = std::ranges::find(kRulesOfLanguages, language & 0x3FF, &RulesOfLanguage::language);
    return found == kRulesOfLanguages.end() ? "" : found->locale;
}

/// Letters of European alphabets, which line breaking treats alike (class AL), and digits.
constexpr bool IsLetterOrDigit(char16_t unit)
{
    if (unit < 0x80)
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9');
    if (unit < 0x250)
        return unit >= 0xC0 && unit != 0xD7 && unit != 0xF7;
    return (unit >= 0x386 && unit <= 0x3CE && unit != 0x387) || (unit >= 0x400 && unit <= 0x481);
}

/// The separators that stay with what is before and after them (class IS).
constexpr bool IsSeparator(char16_t unit) { return unit == u',' || unit == u'.' || unit == u':' || unit == u';'; }

constexpr bool IsOpening(char16_t unit) { return unit == u'(' || unit == u'[' || unit == u'{'; }

constexpr bool IsClosing(char16_t unit)
{
    return unit == u')' || unit == u']' || unit == u'}' || unit == u'!' || unit == u'?';
}

constexpr bool IsVisibleAscii(char16_t unit) { return unit > u' ' && unit < 0x7F; }

/// Behind these a line may begin whatever follows. The rules of Unicode know nothing of a column break, and keep
/// tabs together.
constexpr bool AlwaysEndsLine(char16_t unit) { return unit == u'\t' || unit == kColumnBreak; }

/// Whether a line may begin before `at`, if its neighbours tell; `at` is inside the text.
std::optional<bool> FromNeighbours(std::u16string_view text, std::size_t at)
{
    const char16_t before = text[at - 1];
    const char16_t after = text[at];
    if (after == u' ')
        return before == u' ' || IsVisibleAscii(before) || IsLetterOrDigit(before) ? std::optional(false)
                                                                                   : std::nullopt;
    if (IsLetterOrDigit(before))
        return IsLetterOrDigit(after) || IsSeparator(after) || IsClosing(after) ? std::optional(false) : std::nullopt;
    if (!IsLetterOrDigit(after))
        return std::nullopt;
    if (IsSeparator(before) || IsOpening(before))
        return false;
    if (before != u' ')
        return std::nullopt;
    // Blanks break, unless what opens stands before them.
    const std::size_t last = text.find_last_not_of(u' ', at - 1);
    const bool isKnown = last != std::u16string_view::npos && !IsOpening(text[last]) &&
                         (IsVisibleAscii(text[last]) || IsLetterOrDigit(text[last]));
    return isKnown ? std::optional(true) : std::nullopt;
}

}  // namespace

LineBreaks::LineBreaks(std::u16string_view text, std::uint16_t language, Means means)
    : m_text(text), m_language(language), m_means(means)
{
}

LineBreaks::~LineBreaks() = default;

LineRules& LineBreaks::Rules()
{
    if (!m_rules)
        m_rules = std::make_unique<LineRules>(m_text, LocaleOf(m_language));
    return *m_rules;
}

std::uint32_t LineBreaks::LastUpTo(std::uint32_t offset, std::uint32_t after)
{
    offset = std::min(offset, static_cast<std::uint32_t>(m_text.size()));
    if (offset == m_text.size())
        return std::max(offset, after);
    for (std::uint32_t at = offset; at > after; --at)
    {
        if (AlwaysEndsLine(m_text[at - 1]))
            return at;
        const std::optional<bool> known =
            m_means == Means::FastWherePossible ? FromNeighbours(m_text, at) : std::nullopt;
        if (known == true)
            return at;
        if (known == false)
            continue;
        const std::uint32_t found = std::max(Rules().LastUpTo(at), after);
        while (at > found && !AlwaysEndsLine(m_text[at - 1]))
            --at;
        return at;
    }
    return after;
}

std::uint32_t LineBreaks::NextBehind(std::uint32_t offset)
{
    const auto size = static_cast<std::uint32_t>(m_text.size());
    for (std::uint32_t at = offset + 1; at < size; ++at)
    {
        if (AlwaysEndsLine(m_text[at - 1]))
            return at;
        const std::optional<bool> known =
            m_means == Means::FastWherePossible ? FromNeighbours(m_text, at) : std::nullopt;
        if (known == true)
            return at;
        if (known == false)
            continue;
        const std::uint32_t found = Rules().NextBehind(at - 1);
        while (at < found && !AlwaysEndsLine(m_text[at - 1]))
            ++at;
        return at;
    }
    return size;
}

std::uint32_t LineBreaks::LastCharacterUpTo(std::uint32_t offset, std::uint32_t after) const
{
    const auto size = static_cast<std::uint32_t>(m_text.size());
    offset = std::min(offset, size);
    if (offset > after && offset < size && IsSimpleCharacter(m_text[offset - 1]) && IsSimpleCharacter(m_text[offset]))
        return offset;
    if (after >= size)
        return size;
    // From `after` on: flags come in pairs, which are counted from where the text begins.
    const BoundaryRules characters(UBRK_CHARACTER, "", m_text.substr(after));
    const std::uint32_t last = offset > after ? characters.LastUpTo(offset - after) : 0;
    return after + (last > 0 ? last : characters.NextBehind(0));
}

}  // namespace quillmarker
