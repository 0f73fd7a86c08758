#include "engine/layout/boundary_rules.h"
#include "engine/layout/line_breaks.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

namespace quillmarker
{
namespace
{

constexpr std::uint16_t kEnglish = 1033;
constexpr std::uint16_t kJapanese = 1041;

/// The text with a | wherever a line may begin.
std::u16string Marked(const std::u16string& text, std::uint16_t language = kEnglish)
{
    LineBreaks breaks(text, language);
    std::u16string marked;
    std::uint32_t from = 0;
    while (from < text.size())
    {
        const std::uint32_t to = breaks.NextBehind(from);
        marked += text.substr(from, to - from);
        if (to < text.size())
            marked += u'|';
        from = to;
    }
    return marked;
}

TEST(LineBreaks, ComeBehindBlanks)
{
    EXPECT_EQ(Marked(u"pay the total, now"), u"pay |the |total, |now");
    EXPECT_EQ(Marked(u"a  b   "), u"a  |b   ");
    EXPECT_EQ(Marked(u"  a"), u"  |a");
    EXPECT_EQ(Marked(u""), u"");
}

TEST(LineBreaks, KeepWhatBelongsTogether)
{
    EXPECT_EQ(Marked(u"( a) 1,200.50 x"), u"( a) |1,200.50 |x");
    EXPECT_EQ(Marked(u"a\u00A0b \u2011c"), u"a\u00A0b |\u2011c");
    EXPECT_EQ(Marked(u"$ 5 (is) \"it\" so!"), u"$ |5 |(is) |\"it\" |so!");
}

TEST(LineBreaks, ComeBehindHyphensSoftOnesToo)
{
    EXPECT_EQ(Marked(u"well-known co\u00ADop"), u"well-|known |co\u00AD|op");
}

TEST(LineBreaks, ComeBehindEveryTab) { EXPECT_EQ(Marked(u"a\tb\t\tc \td"), u"a\t|b\t|\t|c |\t|d"); }

TEST(LineBreaks, ComeBehindBreakCharactersAndAroundObjects)
{
    EXPECT_EQ(Marked(u"a\vb\fc\x000E"
                     u"d"),
              u"a\v|b\f|c\x000E|d");
    EXPECT_EQ(Marked(u"ab\uFFFCcd"), u"ab|\uFFFC|cd");
}

TEST(LineBreaks, KnowScriptsWithoutBlanks)
{
    EXPECT_EQ(Marked(u"\u6F22\u5B57\u3002\u6F22", kJapanese), u"\u6F22|\u5B57\u3002|\u6F22");
    EXPECT_EQ(Marked(u"\u0E2A\u0E27\u0E31\u0E2A\u0E14\u0E35\u0E0A\u0E32\u0E27\u0E42\u0E25\u0E01"),
              u"\u0E2A\u0E27\u0E31\u0E2A\u0E14\u0E35|\u0E0A\u0E32\u0E27|\u0E42\u0E25\u0E01");
}

TEST(LineBreaks, LastUpToLooksBackFromAPlace)
{
    const std::u16string text = u"pay the total";
    LineBreaks breaks(text, kEnglish);
    EXPECT_EQ(breaks.LastUpTo(3, 0), 0U);  // before the blank, which stays on the line
    EXPECT_EQ(breaks.LastUpTo(4, 0), 4U);
    EXPECT_EQ(breaks.LastUpTo(7, 0), 4U);
    EXPECT_EQ(breaks.LastUpTo(7, 4), 4U);  // none behind `after`
    EXPECT_EQ(breaks.LastUpTo(12, 0), 8U);
    EXPECT_EQ(breaks.LastUpTo(13, 0), 13U);  // the end
    EXPECT_EQ(breaks.LastUpTo(99, 0), 13U);
    EXPECT_EQ(breaks.NextBehind(99), 13U);
}

TEST(LineBreaks, CharactersAreNeverCutInTwo)
{
    const std::u16string text = u"ae\u0301\U0001F468\u200D\U0001F469z";
    const LineBreaks breaks(text, kEnglish);
    EXPECT_EQ(breaks.LastCharacterUpTo(1, 0), 1U);
    EXPECT_EQ(breaks.LastCharacterUpTo(2, 0), 1U);
    EXPECT_EQ(breaks.LastCharacterUpTo(3, 0), 3U);
    for (std::uint32_t inside = 4; inside < 8; ++inside)
        EXPECT_EQ(breaks.LastCharacterUpTo(inside, 0), 3U);
    EXPECT_EQ(breaks.LastCharacterUpTo(7, 3), 8U);  // at least one
    EXPECT_EQ(breaks.LastCharacterUpTo(9, 0), 9U);
    EXPECT_EQ(breaks.LastCharacterUpTo(2, 1), 3U);
}

TEST(LineBreaks, FlagsAreCountedFromTheLinesStart)
{
    std::u16string text;
    for (int i = 0; i < 9; ++i)
        text += u"\U0001F1E6";
    const LineBreaks breaks(text, kEnglish);
    EXPECT_EQ(breaks.LastCharacterUpTo(11, 0), 8U);
    EXPECT_EQ(breaks.LastCharacterUpTo(11, 8), 12U) << "at least one";
    EXPECT_EQ(breaks.LastCharacterUpTo(11, 2), 10U) << "a line that begins with the second half of a pair";
    EXPECT_EQ(breaks.LastCharacterUpTo(18, 16), 18U);
}

/// What ICU says of the whole text at once, and what holds beside.
std::set<std::uint32_t> AllPlaces(const std::u16string& text, const char* locale)
{
    const BoundaryRules rules(UBRK_LINE, locale, text);
    const auto size = static_cast<std::uint32_t>(text.size());
    std::set<std::uint32_t> places = {0, size};
    for (std::uint32_t at = 0; at < size; at = rules.NextBehind(at))
        places.insert(at);
    for (std::uint32_t at = 0; at < size; ++at)
    {
        if (text[at] == u'\t' || text[at] == u'\x000E')
            places.insert(at + 1);
    }
    return places;
}

/// Every way, from any place to any other, gives what ICU says of the whole text.
void ExpectLaw(std::mt19937& random, const std::u16string& text, std::uint16_t language, const char* locale)
{
    const std::set<std::uint32_t> places = AllPlaces(text, locale);
    for (const LineBreaks::Means means : {LineBreaks::Means::FastWherePossible, LineBreaks::Means::RulesOnly})
    {
        LineBreaks breaks(text, language, means);
        for (std::size_t probe = 0; probe < 2 * text.size(); ++probe)
        {
            const auto at = static_cast<std::uint32_t>(random() % text.size());
            const std::uint32_t after = random() % 2 ? 0 : at / 2;
            ASSERT_EQ(breaks.NextBehind(at), *places.upper_bound(at)) << ::testing::PrintToString(text) << " at " << at;
            ASSERT_EQ(breaks.LastUpTo(at, after), std::max(after, *std::prev(places.upper_bound(at))))
                << ::testing::PrintToString(text) << " at " << at;
        }
    }
}

TEST(LineBreaksLaw, TheFastWayAgreesWithTheRulesInAscii)
{
    std::mt19937 random(11);
    const std::u16string common = u"  abyz09,.;:()[]{}!?-/\"'%$+\t";
    for (int round = 0; round < 6000; ++round)
    {
        std::u16string text;
        for (unsigned length = 1 + random() % 24; length > 0; --length)
            text += random() % 8 ? common[random() % common.size()] : static_cast<char16_t>(random() % 0x80);
        ExpectLaw(random, text, kEnglish, "");
    }
}

TEST(LineBreaksLaw, TheFastWayAgreesWithTheRulesInAllOfUnicode)
{
    std::mt19937 random(12);
    const std::u16string common = u"  ab09,.()-\u00A0\u00AD\u00E9\u0142\u0416\u03C9\u2019\u201C\u00AB\u05D0\u0E01\u6F22"
                                  u"\u5B57\u304B\u3002\uFFFC\u0301\u200D\u200B\U0001F468\u2028";
    struct Language
    {
        std::uint16_t number;
        const char* locale;
    };
    for (const Language language : {Language{0, ""}, {kEnglish, ""}, {kJapanese, "ja"}, {0x040B, "fi"}})
    {
        for (int round = 0; round < 3000; ++round)
        {
            std::u16string text;
            for (unsigned length = 1 + random() % 30; length > 0; --length)
                text += random() % 5 ? common[random() % common.size()] : static_cast<char16_t>(random());
            ExpectLaw(random, text, language.number, language.locale);
        }
    }
}

TEST(LineBreaksLaw, EveryLetterTakenForOneOfAnAlphabetIsOne)
{
    std::mt19937 random(14);
    for (char16_t unit = 0x21; unit < 0x500; ++unit)
    {
        for (const std::u16string& text : {std::u16string{u'a', unit, u'b', u' ', unit, u' ', u'c', unit, unit},
                                           std::u16string{unit, u',', unit, u' ', u'1', unit, u')', u'(', unit}})
            ExpectLaw(random, text, kEnglish, "");
    }
}

TEST(LineBreaksLaw, CharacterBoundariesAreThoseFoundOneByOne)
{
    std::mt19937 random(13);
    const std::u16string common = u"ab \u0301\u200D\U0001F468\uAC00\u11A8\u1100\r\n\u0E33\u0915\u094D";
    for (int round = 0; round < 2000; ++round)
    {
        std::u16string text;
        for (unsigned length = 1 + random() % 16; length > 0; --length)
            text += random() % 8 ? common[random() % common.size()] : static_cast<char16_t>(random());
        const LineBreaks breaks(text, kEnglish);
        const auto size = static_cast<std::uint32_t>(text.size());
        std::set<std::uint32_t> boundaries;
        for (std::uint32_t at = 0; at < size; at = breaks.LastCharacterUpTo(at, at))
            boundaries.insert(at);
        boundaries.insert(size);
        for (std::uint32_t offset = 1; offset <= size; ++offset)
        {
            const std::uint32_t expected = *std::prev(boundaries.upper_bound(offset));
            ASSERT_EQ(breaks.LastCharacterUpTo(offset, 0), expected > 0 ? expected : *boundaries.upper_bound(0))
                << ::testing::PrintToString(text) << " at " << offset;
        }
    }
}

}  // namespace
}  // namespace quillmarker
