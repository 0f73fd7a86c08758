#include "engine/document/format_edit.h"

#include "support/random_document.h"
#include "support/sample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace quillmarker
{
namespace
{

std::string Bold(std::string_view sample, std::int32_t begin, std::int32_t end)
{
    return DumpSample(WithCharFormat(SampleDocument(sample), {{begin}, {end}}, {.bold = true}));
}

TEST(CharFormatEdit, ChangesExactlyTheRange)
{
    EXPECT_EQ(Bold("abcd", 1, 3), "a<b>bc</b>d");
    EXPECT_EQ(Bold("ab\ncd", 1, 5), "a<b>b\nc</b>d");
    EXPECT_EQ(Bold("ab\ncd", 2, 4), "ab<b>\n</b>cd");
    EXPECT_EQ(Bold("a<cell/>b<cell/><row/>", 1, 4), "a<b><cell/>b<cell/></b><row/>");
}

TEST(CharFormatEdit, NeighboursOfOneFormatBecomeOneRun)
{
    const Document document = WithCharFormat(SampleDocument("<b>ab</b>cd<b>ef</b>"), {{2}, {4}}, {.bold = true});
    EXPECT_EQ(DumpSample(document), "<b>abcdef</b>");
    EXPECT_EQ(document.ParagraphAt(0).Runs().size(), 1U);
}

TEST(CharFormatEdit, OnAnEmptyRangeChangesNothing)
{
    const Document document = SampleDocument("abc");
    EXPECT_TRUE(WithCharFormat(document, {{1}, {1}}, {.bold = true}).IsSameAs(document));
}

TEST(CharFormatEdit, ARangeThatTouchesALineEndTakesAllOfIt)
{
    EXPECT_EQ(Bold("a\nb", 0, 2), "<b>a\n</b>b");
    EXPECT_EQ(Bold("a\nb", 2, 4), "a<b>\nb</b>");
}

TEST(CharFormatEdit, AnEmptyLastParagraphsMarkFollowsARangeThatReachesIt)
{
    const auto lastMarkIsBold = [](std::string_view sample, std::int32_t begin, std::int32_t end) {
        const Document after = WithCharFormat(SampleDocument(sample), {{begin}, {end}}, {.bold = true});
        return after.FormatOf(after.ParagraphAt(after.ParagraphCount() - 1).Ending().charFormat).bold;
    };
    EXPECT_TRUE(lastMarkIsBold("a\n", 0, 3));
    EXPECT_FALSE(lastMarkIsBold("a\nb", 0, 4));
    EXPECT_FALSE(lastMarkIsBold("ab", 0, 2));
    EXPECT_FALSE(lastMarkIsBold("ab", 1, 2));
    EXPECT_FALSE(lastMarkIsBold("ab", 0, 1));
}

TEST(CharFormatEdit, WhatDiffersInTheRangeIsMixed)
{
    const Document document = SampleDocument("a<b>b<i>c</i></b><b>\n</b>d");
    EXPECT_EQ(CharFormatOver(document, {{1}, {5}}).bold, true);
    EXPECT_EQ(CharFormatOver(document, {{1}, {5}}).italic, std::nullopt);
    EXPECT_EQ(CharFormatOver(document, {{0}, {2}}).bold, std::nullopt);
    EXPECT_EQ(CharFormatOver(document, {{0}, {2}}).italic, false);
    EXPECT_EQ(CharFormatOver(document, {{3}, {4}}).bold, true);  // half of the line end
    EXPECT_EQ(CharFormatOver(document, {{3}, {6}}).bold, std::nullopt);
}

TEST(CharFormatEdit, AnEmptyRangeHasNoFormatAtAll)
{
    EXPECT_EQ(CharFormatOver(SampleDocument("abc"), {{1}, {1}}), PartialCharFormat());
}

TEST(ParagraphFormatEdit, TouchesTheParagraphsOfTheRange)
{
    const auto keeps = [](std::int32_t begin, std::int32_t end) {
        const Document after = WithParagraphFormat(SampleDocument("a\nb\nc"), {{begin}, {end}}, {.keepLines = true});
        std::string kept;
        after.Visit(0, [&](const Paragraph& paragraph) {
            kept += after.FormatOf(paragraph.Ending().format).keepLines ? 'x' : '.';
            return true;
        });
        return kept;
    };
    EXPECT_EQ(keeps(0, 0), "x..");
    EXPECT_EQ(keeps(1, 1), "x..");
    EXPECT_EQ(keeps(3, 3), ".x.");
    EXPECT_EQ(keeps(0, 3), "x..");  // ends where the second begins
    EXPECT_EQ(keeps(0, 4), "xx.");
    EXPECT_EQ(keeps(1, 7), "xxx");
    EXPECT_EQ(keeps(6, 7), "..x");
}

TEST(ParagraphFormatEdit, WhatDiffersInTheRangeIsMixed)
{
    const Document document =
        WithParagraphFormat(SampleDocument("a\nb"), {{0}, {0}}, {.leftIndent = Twips{100}, .rightIndent = Twips{7}});
    EXPECT_EQ(ParagraphFormatOver(document, {{0}, {3}}).leftIndent, Twips{100});
    EXPECT_EQ(ParagraphFormatOver(document, {{0}, {4}}).leftIndent, std::nullopt);
    EXPECT_EQ(ParagraphFormatOver(document, {{0}, {4}}).spaceAfter, Twips{0});
    EXPECT_EQ(ParagraphFormatOver(document, {{3}, {3}}).leftIndent, Twips{0});
}

TEST(FormatEditLaws, PuttingWhatWasReadChangesNothingAndGivesTheVerySameValue)
{
    std::mt19937 random(81);
    for (int round = 0; round < 1000; ++round)
    {
        const Document document = RandomDocument(random, u"ab", 1 + Below(random, 9));
        const TextRange range = RandomRange(random, document);
        ASSERT_TRUE(WithCharFormat(document, range, CharFormatOver(document, range)).IsSameAs(document));
        ASSERT_TRUE(WithParagraphFormat(document, range, ParagraphFormatOver(document, range)).IsSameAs(document));
    }
}

TEST(FormatEditLaws, WhatWasPutIsReadAndTheTextStays)
{
    std::mt19937 random(82);
    for (int round = 0; round < 1000; ++round)
    {
        const Document document = RandomDocument(random, u"ab", 1 + Below(random, 9));
        const TextRange range = RandomRange(random, document);
        const Document after = WithCharFormat(document, range, {.italic = true, .offset = Twips{70}});
        ASSERT_EQ(after.Text(), document.Text());
        const PartialCharFormat read = CharFormatOver(after, range);
        ASSERT_EQ(read.italic, range.IsEmpty() ? std::nullopt : std::optional(true));
        ASSERT_EQ(read.offset, range.IsEmpty() ? std::nullopt : std::optional(Twips{70}));
        ASSERT_EQ(read.bold, CharFormatOver(document, range).bold);
        const Document moved = WithParagraphFormat(document, range, {.spaceAfter = Twips{30}});
        ASSERT_EQ(ParagraphFormatOver(moved, range).spaceAfter, Twips{30});
        ASSERT_EQ(ParagraphFormatOver(moved, range).leftIndent, ParagraphFormatOver(document, range).leftIndent);
    }
}

TEST(FormatEditLaws, NothingOutsideTheRangeChanges)
{
    std::mt19937 random(83);
    for (int round = 0; round < 300; ++round)
    {
        const Document document = RandomDocument(random, u"ab", 1 + Below(random, 9));
        const TextRange range = RandomRange(random, document);
        const Document after = WithCharFormat(document, range, {.italic = true});
        for (std::int32_t at = 0; at < document.Size(); ++at)
        {
            const bool isItalic = CharFormatOver(after, {{at}, {at + 1}}).italic == true;
            const std::u16string around = document.Text({{at}, {at + 1}});
            const bool isInMark = around == u"\r" || around == u"\n";  // half of it selected is all of it
            const bool isInside = at >= range.begin.value && at < range.end.value;
            ASSERT_TRUE(isItalic == isInside || isInMark) << at;
        }
    }
}

template <class Format>
bool IsAmong(const std::vector<Format>& formats, const Format& format)
{
    return std::ranges::find(formats, format) != formats.end();
}

std::vector<CharFormat> VisitedChars(const Document& document, TextRange range)
{
    std::vector<CharFormat> formats;
    VisitCharFormats(document, range, [&](const CharFormat& format) { formats.push_back(format); });
    return formats;
}

std::vector<ParagraphFormat> VisitedParagraphs(const Document& document, TextRange range)
{
    std::vector<ParagraphFormat> formats;
    VisitParagraphFormats(document, range, [&](const ParagraphFormat& format) { formats.push_back(format); });
    return formats;
}

/// The formats in a range, one position after the other.
std::vector<CharFormat> CharsOneByOne(const Document& document, TextRange range)
{
    std::vector<CharFormat> formats;
    for (std::int32_t at = range.begin.value; at < range.end.value; ++at)
    {
        const Location place = document.Locate({at});
        const Paragraph& paragraph = document.ParagraphAt(place.paragraph);
        formats.push_back(document.FormatOf(paragraph.FormatAt(static_cast<std::uint32_t>(place.offset))));
    }
    return formats;
}

// Most ranges are long: what a tree knows of many paragraphs at once is then used. There are too many formats for the
// upper nodes to know them all, and few enough for the lower ones.
TEST(FormatVisitLaws, EachFormatInTheRangeIsMetOnceAndNoOther)
{
    std::mt19937 random(84);
    for (int round = 0; round < 200; ++round)
    {
        Document document = RandomDocument(random, u"ab", 1 + Below(random, 400));
        const TextRange plain = RandomRange(random, document);
        document = WithCharFormat(document, plain, {.size = Points(30), .bold = true, .hidden = false});
        document = WithParagraphFormat(document, plain, {.leftIndent = Inches(9), .keepLines = true});
        const TextRange range = round % 2 == 0 ? plain : RandomRange(random, document);

        const std::vector<CharFormat> met = VisitedChars(document, range);
        const std::vector<CharFormat> there = CharsOneByOne(document, range);
        for (const CharFormat& format : there)
            ASSERT_TRUE(IsAmong(met, format));
        for (const CharFormat& format : met)
            ASSERT_EQ(std::ranges::count(met, format), 1);
        const Location end = document.Locate(range.end);
        const bool endsInEmptyLastMark = end.paragraph == document.ParagraphCount() - 1 && end.offset == 0;
        // Half a line end selected is all of it, and an empty last paragraph's mark is met too.
        if (document.Text({{range.begin.value - 1}, range.begin}) != u"\r" && !endsInEmptyLastMark)
        {
            for (const CharFormat& format : met)
                ASSERT_TRUE(IsAmong(there, format));
        }

        const std::vector<ParagraphFormat> metParagraphs = VisitedParagraphs(document, range);
        const std::int32_t last = end.offset == 0 && end.paragraph > 0 ? end.paragraph - 1 : end.paragraph;
        std::vector<ParagraphFormat> touched;
        for (std::int32_t i = document.Locate(range.begin).paragraph;
             i <= std::max(last, document.Locate(range.begin).paragraph); ++i)
            touched.push_back(document.FormatOf(document.ParagraphAt(i).Ending().format));
        for (const ParagraphFormat& format : touched)
            ASSERT_TRUE(IsAmong(metParagraphs, format));
        for (const ParagraphFormat& format : metParagraphs)
            ASSERT_TRUE(IsAmong(touched, format));
    }
}

}  // namespace
}  // namespace quillmarker
