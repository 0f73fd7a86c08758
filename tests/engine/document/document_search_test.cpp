#include "engine/document/document_search.h"

#include "support/random_document.h"
#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

using Places = std::optional<std::int32_t>;

struct Search
{
    std::u16string text;
    MatchCase matchCase = MatchCase::No;
    WholeWord wholeWord = WholeWord::No;
};

bool IsWordUnit(char16_t unit)
{
    return std::u16string_view(u"aAbBäÄwineWINE0123456789_").find(unit) != std::u16string_view::npos;
}

bool NaiveMatch(std::u16string_view text, const Search& search, std::size_t at)
{
    const std::u16string_view part = text.substr(at, search.text.size());
    if (search.matchCase == MatchCase::Yes ? part != search.text : Folded(part) != Folded(search.text))
        return false;
    const std::size_t end = at + search.text.size();
    const bool joinsBefore = at > 0 && IsWordUnit(text[at - 1]) && IsWordUnit(search.text.front());
    const bool joinsBehind = end < text.size() && IsWordUnit(text[end]) && IsWordUnit(search.text.back());
    return search.wholeWord == WholeWord::No || (!joinsBefore && !joinsBehind);
}

// Every place in the range where the text stands.
std::vector<std::int32_t> NaivePlaces(std::u16string_view text, const Search& search, TextRange range)
{
    std::vector<std::int32_t> places;
    const auto length = static_cast<std::int32_t>(search.text.size());
    for (std::int32_t at = std::max(range.begin.value, 0); length > 0 && at + length <= range.end.value; ++at)
    {
        if (at + length <= static_cast<std::int32_t>(text.size()) && NaiveMatch(text, search, std::size_t(at)))
            places.push_back(at);
    }
    return places;
}

// Mostly something that stands there, sometimes something else, in any case.
std::u16string RandomNeedle(std::mt19937& random, std::u16string_view text)
{
    if (text.empty() || Below(random, 4) == 0)
        return RandomText(random, u"aAb \t\r\n", Below(random, 5));
    const std::int32_t at = Below(random, static_cast<std::int32_t>(text.size()));
    std::u16string needle(text.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(Below(random, 8))));
    for (char16_t& unit : needle)
        unit = unit == u'a' && Below(random, 2) == 0 ? u'A' : unit;
    return needle;
}

Places ValueOf(std::optional<Position> position) { return position ? Places(position->value) : std::nullopt; }

TEST(DocumentSearch, FindsTheFirstAndTheLastThatAPlainLoopFinds)
{
    std::mt19937 random(101);
    int found = 0;
    for (int round = 0; round < 6000; ++round)
    {
        const Document document = RandomDocument(random, u"aAb ä\v", 1 + Below(random, 7));
        const std::u16string text = document.Text();
        const Search search{RandomNeedle(random, text), MatchCase{Below(random, 2) == 0},
                            WholeWord{Below(random, 2) == 0}};
        const TextRange range = RandomRange(random, document);
        const auto places = NaivePlaces(text, search, range);
        const DocumentSearch prepared(search.text, search.matchCase, search.wholeWord);
        const Places first = places.empty() ? Places() : places.front();
        const Places last = places.empty() ? Places() : places.back();
        ASSERT_EQ(ValueOf(prepared.First(document, range)), first) << "round " << round;
        ASSERT_EQ(ValueOf(prepared.Last(document, range)), last) << "round " << round;
        found += first ? 1 : 0;
    }
    EXPECT_GT(found, 500);
}

Places First(std::string_view sample, std::u16string_view text, WholeWord wholeWord = WholeWord::No)
{
    const Document document = SampleDocument(sample);
    return ValueOf(DocumentSearch(text, MatchCase::No, wholeWord).First(document, {{0}, {document.Size()}}));
}

TEST(DocumentSearch, NothingIsFoundWithoutATextOrADocument)
{
    EXPECT_EQ(First("abc", u""), std::nullopt);
    EXPECT_EQ(First("", u"a"), std::nullopt);
    EXPECT_EQ(First("", u""), std::nullopt);
}

TEST(DocumentSearch, FormatsDoNotHideAText) { EXPECT_EQ(First("a<b>{{</b>na<i>me}</i>}", u"{{name}}"), 1); }

TEST(DocumentSearch, HiddenTextIsFound) { EXPECT_EQ(First("a<h>MARK</h>b", u"mark"), 1); }

TEST(DocumentSearch, ATextMayRunOverLineEndsCellsAndRows)
{
    EXPECT_EQ(First("foo bar\nfoo bar", u"bar\r\nfoo"), 4);
    EXPECT_EQ(First("a<cell/>b<cell/><row/>c", u"b\t\r\nc"), 2);
    EXPECT_EQ(First("a\n\n\nb", u"\r\n\r\n"), 1);
    EXPECT_EQ(First("a\n\n\nb", u"a\r\n\r\n\r\nb"), 0);
    EXPECT_EQ(First("a\nb", u"\n"), 2);
    EXPECT_EQ(First("a\nb", u"\nb"), 2);
    EXPECT_EQ(First("a\nb", u"a\r"), 0);
    EXPECT_EQ(First("a\nb", u"a\n"), std::nullopt);
}

TEST(DocumentSearch, ATabOfTheTextAndTheEndOfACellAreTheSame)
{
    EXPECT_EQ(First("x\ty<cell/><row/>", u"x\ty\t"), 0);
    EXPECT_EQ(First("<cell/>\tz<cell/><row/>", u"\t\tz"), 0);
}

TEST(DocumentSearch, AnObjectIsABlank)
{
    EXPECT_EQ(First("a<pic/>b", u"a b"), 0);
    EXPECT_EQ(First("a<pic/>b", u"\uFFFC"), std::nullopt);
}

TEST(DocumentSearch, AWholeWordIsNotPartOfALongerOne)
{
    EXPECT_EQ(First("wine win", u"win", WholeWord::Yes), 5);
    EXPECT_EQ(First("wine", u"win", WholeWord::Yes), std::nullopt);
    EXPECT_EQ(First("twin win", u"win", WholeWord::Yes), 5);
    EXPECT_EQ(First("wi<b>n</b><i>e</i> win", u"win", WholeWord::Yes), 5);
    EXPECT_EQ(First("win<cell/>e<cell/><row/>", u"win", WholeWord::Yes), 0);
    EXPECT_EQ(First("e\nwin\ne", u"win", WholeWord::Yes), 3);
    EXPECT_EQ(First("a (win)b", u"(win)", WholeWord::Yes), 2);  // a bracket ends a word by itself
}

TEST(DocumentSearch, AMatchMayEndExactlyAtTheEndOfTheRange)
{
    const Document document = SampleDocument("ab ab");
    const DocumentSearch search(u"ab", MatchCase::No);
    EXPECT_EQ(ValueOf(search.First(document, {{1}, {5}})), 3);
    EXPECT_EQ(ValueOf(search.First(document, {{1}, {4}})), std::nullopt);
    EXPECT_EQ(ValueOf(search.Last(document, {{0}, {4}})), 0);
    EXPECT_EQ(ValueOf(search.Last(document, {{0}, {5}})), 3);
}

TEST(DocumentSearch, RangesOutsideAreCutToTheText)
{
    const Document document = SampleDocument("ab ab");
    const DocumentSearch search(u"ab", MatchCase::No);
    EXPECT_EQ(ValueOf(search.First(document, {{-9}, {900}})), 0);
    EXPECT_EQ(ValueOf(search.Last(document, {{-9}, {900}})), 3);
    EXPECT_EQ(ValueOf(search.First(document, {{4}, {1}})), std::nullopt);
    EXPECT_EQ(ValueOf(search.Last(document, {{77}, {99}})), std::nullopt);
}

}  // namespace
}  // namespace quillmarker
