#include "engine/document/edit.h"
#include "engine/document/format_edit.h"
#include "support/random_document.h"
#include "support/sample.h"

#include <quillmarker/rtf.h>

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

Document Read(std::string_view rtf) { return ReadRtf("{\\rtf1 " + std::string(rtf) + "}"); }

TEST(SameContent, HoldsForDocumentsThatWereMadeTheSameWay)
{
    for (const unsigned seed : {1U, 2U, 3U})
    {
        std::mt19937 left(seed);
        std::mt19937 right(seed);
        EXPECT_TRUE(SameContent(RandomDocument(left, u"ab", 100), RandomDocument(right, u"ab", 100)));
    }
}

TEST(SameContent, DoesNotHoldForAnyTwoSamplesThatDiffer)
{
    constexpr std::array kSamples = {"",
                                     "a",
                                     "b",
                                     "a\n",
                                     "<b>a</b>",
                                     "a<b>\n</b>",
                                     "a<cell/>",
                                     "a<cell/>\n",
                                     "a<row/>",
                                     "\t",
                                     "a<cell/>b<row/>",
                                     "<pic/>",
                                     "a<pic/>",
                                     "<i>a</i>",
                                     "<h>a</h>",
                                     "<cell/>",
                                     "a<cell/>b<cell/><row/>",
                                     "\n\n"};
    for (const char* left : kSamples)
    {
        for (const char* right : kSamples)
            EXPECT_EQ(SameContent(SampleDocument(left), SampleDocument(right)), std::string_view(left) == right)
                << left << " and " << right;
    }
}

TEST(SameContent, SeesWhatTheLastMarkCarries)
{
    const Document document = SampleDocument("a");
    EXPECT_FALSE(SameContent(document, WithParagraphFormat(document, {}, {.keepLines = true})));
}

TEST(SameContent, SeesTheRowsProperties)
{
    EXPECT_FALSE(
        SameContent(Read("\\trowd\\cellx100\\intbl a\\cell\\row"), Read("\\trowd\\cellx200\\intbl a\\cell\\row")));
    EXPECT_TRUE(
        SameContent(Read("\\trowd\\cellx100\\intbl a\\cell\\row"), Read("\\trowd\\cellx100\\intbl a\\cell\\row")));
}

TEST(SameContent, SeesNestedBodies)
{
    const auto footnote = [](const char* text) { return Read("a{\\footnote " + std::string(text) + "}"); };
    EXPECT_TRUE(SameContent(footnote("one"), footnote("one")));
    EXPECT_FALSE(SameContent(footnote("one"), footnote("two")));
    EXPECT_FALSE(SameContent(footnote("one"), footnote("\\b one")));
    const auto header = [](const char* text) { return Read("{\\header " + std::string(text) + "}a"); };
    EXPECT_TRUE(SameContent(header("one"), header("one")));
    EXPECT_FALSE(SameContent(header("one"), header("two")));
    EXPECT_FALSE(SameContent(header("one"), Read("a")));
}

TEST(SameContent, SeesTheDocumentsProperties)
{
    EXPECT_FALSE(SameContent(Read("\\paperw9000 a"), Read("a")));
    EXPECT_FALSE(SameContent(Read("{\\info{\\title x}}a"), Read("{\\info{\\title y}}a")));
    EXPECT_TRUE(SameContent(Read("{\\info{\\title x}}a"), Read("{\\info{\\title x}}a")));
}

TEST(SameContent, SeesFieldsButNotTheNumbersThatTellNeighboursApart)
{
    const auto link = [](const char* target) {
        return "{\\field{\\*\\fldinst HYPERLINK \"" + std::string(target) + "\"}{\\fldrslt x}}";
    };
    EXPECT_TRUE(SameContent(Read(link("a") + link("b")), Read(link("a") + link("b"))));
    EXPECT_FALSE(SameContent(Read(link("a")), Read(link("b"))));
    const auto serial = [](std::uint32_t number) {
        const Shared field(Field{.instruction = u"PAGE", .switches = "", .outer = {}, .serial = number});
        return WithCharFormat(SampleDocument("x"), {{0}, {1}}, {.field = field});
    };
    EXPECT_TRUE(SameContent(serial(1), serial(2)));
}

TEST(SameContent, OneEditMakesADifferenceAndTheOppositeEditNone)
{
    std::mt19937 random(111);
    for (int round = 0; round < 300; ++round)
    {
        const Document document = RandomDocument(random, u"ab", 1 + Below(random, 9));
        const std::int32_t at = Below(random, document.Size() + 1);
        const Position begin = Snapped(document, {{at}, {at}}).begin;
        const Document longer = WithText(document, {begin, begin}, u"x", {});
        ASSERT_FALSE(SameContent(longer, document));
        ASSERT_TRUE(SameContent(WithText(longer, {begin, begin + 1}, u"", {}), document));
    }
}

}  // namespace
}  // namespace quillmarker
