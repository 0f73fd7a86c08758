#include "engine/document/text_search.h"

#include <gtest/gtest.h>

#include "engine/document/unit_scan.h"

#include <algorithm>
#include <random>
#include <string>

namespace quillmarker
{
namespace
{

constexpr std::size_t kNone = std::u16string_view::npos;

std::u16string RandomText(std::mt19937& random, std::u16string_view alphabet, std::size_t length)
{
    std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
    std::u16string text(length, u' ');
    std::generate(text.begin(), text.end(), [&] { return alphabet[pick(random)]; });
    return text;
}

bool NaiveMatch(std::u16string_view hay, std::u16string_view text, MatchCase matchCase, std::size_t at)
{
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const bool same = matchCase == MatchCase::Yes ? hay[at + i] == text[i] : Fold(hay[at + i]) == Fold(text[i]);
        if (!same)
            return false;
    }
    return true;
}

std::size_t NaiveFirst(std::u16string_view hay, std::u16string_view text, MatchCase matchCase, std::size_t from)
{
    for (std::size_t at = from; !text.empty() && at + text.size() <= hay.size(); ++at)
    {
        if (NaiveMatch(hay, text, matchCase, at))
            return at;
    }
    return kNone;
}

std::size_t NaiveLast(std::u16string_view hay, std::u16string_view text, MatchCase matchCase, std::size_t endLimit)
{
    std::size_t found = kNone;
    for (std::size_t at = 0; !text.empty() && at + text.size() <= std::min(endLimit, hay.size()); ++at)
    {
        if (NaiveMatch(hay, text, matchCase, at))
            found = at;
    }
    return found;
}

void CompareWithNaive(std::mt19937& random, std::u16string_view alphabet)
{
    const std::u16string hay = RandomText(random, alphabet, random() % 130);
    const std::u16string text = RandomText(random, alphabet, random() % 6);
    const std::size_t position = random() % 140;
    for (const MatchCase matchCase : {MatchCase::Yes, MatchCase::No})
    {
        const Needle needle(text, matchCase);
        ASSERT_EQ(FindFirst(hay, needle, position), NaiveFirst(hay, text, matchCase, position));
        ASSERT_EQ(FindLast(hay, needle, position), NaiveLast(hay, text, matchCase, position));
        ASSERT_EQ(FindLast(hay, needle), NaiveLast(hay, text, matchCase, kNone));
    }
}

TEST(TextSearch, FindsWhatAPlainLoopFinds)
{
    std::mt19937 random(20240501);
    for (const std::u16string_view alphabet : {u"ab", u"aAb", u"kK\u212Ax", u"Σσςs", u"ßẞ\u017FsSﬁİi", u"\u0345Ιιι"})
    {
        for (int round = 0; round < 3000; ++round)
        {
            CompareWithNaive(random, alphabet);
            ASSERT_FALSE(HasFatalFailure()) << "round " << round;
        }
    }
}

TEST(TextSearch, AnEmptyNeedleIsNowhere)
{
    EXPECT_EQ(FindFirst(u"abc", Needle(u"", MatchCase::No)), kNone);
    EXPECT_EQ(FindLast(u"abc", Needle(u"", MatchCase::Yes)), kNone);
    EXPECT_EQ(FindFirst(u"", Needle(u"a", MatchCase::Yes)), kNone);
}

TEST(TextSearch, CaseCountsOnlyWhenAsked)
{
    EXPECT_EQ(FindFirst(u"one Total", Needle(u"tOTAL", MatchCase::No)), 4U);
    EXPECT_EQ(FindFirst(u"one Total", Needle(u"tOTAL", MatchCase::Yes)), kNone);
    EXPECT_EQ(FindFirst(u"one Total", Needle(u"Total", MatchCase::Yes)), 4U);
}

TEST(TextSearch, LettersWithManyFormsAreFoundInEachOfThem)
{
    EXPECT_EQ(FindFirst(u"273 \u212A", Needle(u"k", MatchCase::No)), 4U);
    EXPECT_EQ(FindFirst(u"Ὀδυσσεύς", Needle(u"ΟΔΥΣΣΕΎΣ", MatchCase::No)), kNone);  // the breathing is another letter
    EXPECT_EQ(FindFirst(u"Σίσυφος", Needle(u"ΣΊΣΥΦΟΣ", MatchCase::No)), 0U);
    EXPECT_EQ(FindFirst(u"STRASSE", Needle(u"straße", MatchCase::No)), kNone);  // one unit never equals two
    EXPECT_EQ(FindFirst(u"STRAẞE", Needle(u"straße", MatchCase::No)), 0U);
    EXPECT_EQ(FindFirst(u"İstanbul", Needle(u"istanbul", MatchCase::No)), kNone);
}

TEST(TextSearch, TheRangeLimitsTheWholeMatch)
{
    const std::u16string hay = u"xx12 xx12 xx12";
    const Needle needle(u"xx12", MatchCase::Yes);
    EXPECT_EQ(FindFirst(hay, needle, 1), 5U);
    EXPECT_EQ(FindFirst(hay, needle, 11), kNone);
    EXPECT_EQ(FindFirst(hay, needle, kNone), kNone);
    EXPECT_EQ(FindLast(hay, needle), 10U);
    EXPECT_EQ(FindLast(hay, needle, 13), 5U);
    EXPECT_EQ(FindLast(hay, needle, 3), kNone);
}

TEST(TextSearch, FindsAcrossEveryPlaceOfAScanBlock)
{
    for (std::size_t at = 0; at < 100; ++at)
    {
        std::u16string hay(100, u'.');
        hay.insert(at, u"Q?q");
        ASSERT_EQ(FindFirst(hay, Needle(u"q?Q", MatchCase::No)), at);
        ASSERT_EQ(FindLast(hay, Needle(u"Q?q", MatchCase::Yes)), at);
    }
}

#if defined(__SSE2__)
template <int Count>
void CompareScans(std::mt19937& random)
{
    const std::u16string text = RandomText(random, u"aAbB\uFFFF\u8000", 2 * kScanBlock);
    const ScanUnits first = {u'a', u'A', u'\uFFFF', u'\u8000'};
    const ScanUnits last = {u'B', u'\u8000', u'b', u'A'};
    const char16_t* lastAt = text.data() + random() % kScanBlock;
    ASSERT_EQ(PortableScan<Count>(text.data(), lastAt, first, last),
              VectorScan<Count>(text.data(), lastAt, first, last));
}

TEST(TextSearch, BothScansAgree)
{
    std::mt19937 random(7);
    for (int round = 0; round < 2000 && !HasFatalFailure(); ++round)
    {
        CompareScans<1>(random);
        CompareScans<2>(random);
        CompareScans<4>(random);
    }
}
#endif

}  // namespace
}  // namespace quillmarker
