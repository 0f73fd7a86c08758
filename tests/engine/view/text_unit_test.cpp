#include "engine/view/text_unit.h"

#include "support/random_document.h"
#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

std::u16string Around(const Document& document, std::int32_t at, TextUnit unit)
{
    return document.Text(UnitAround(document, {at}, unit));
}

TEST(TextUnits, AWordHasTheBlanksBehindIt)
{
    const Document document = SampleDocument("pay the total\nnow");
    EXPECT_EQ(Around(document, 0, TextUnit::Word), u"pay ");
    EXPECT_EQ(Around(document, 3, TextUnit::Word), u"pay ");
    EXPECT_EQ(Around(document, 9, TextUnit::Word), u"total");
    EXPECT_EQ(Around(document, 15, TextUnit::Word), u"now");
}

TEST(TextUnits, ALineEndIsACharacterAndAWordOfItsOwn)
{
    const Document document = SampleDocument("ab\nc");
    for (const std::int32_t at : {2, 3})
    {
        EXPECT_EQ(Around(document, at, TextUnit::Character), u"\r\n") << at;
        EXPECT_EQ(Around(document, at, TextUnit::Word), u"\r\n") << at;
    }
    EXPECT_EQ(Around(document, 2, TextUnit::Paragraph), u"ab\r\n");
}

TEST(TextUnits, TheEndOfTheTextIsInTheLastParagraph)
{
    const Document document = SampleDocument("ab\ncd");
    EXPECT_EQ(Around(document, 6, TextUnit::Paragraph), u"cd");
    EXPECT_EQ(UnitAround(document, {6}, TextUnit::Character), (TextRange{{6}, {6}}));
    EXPECT_EQ(UnitAround(document, {6}, TextUnit::Word), (TextRange{{6}, {6}}));
    const Document empty = SampleDocument("");
    for (const TextUnit unit : {TextUnit::Character, TextUnit::Word, TextUnit::Sentence, TextUnit::Paragraph})
        EXPECT_EQ(UnitAround(empty, {0}, unit), TextRange{});
}

TEST(TextUnits, ACharacterIsWhatAPersonCallsOne)
{
    const Document document = SampleDocument("a\u0301b\U0001F4C4");
    EXPECT_EQ(Around(document, 0, TextUnit::Character), u"a\u0301");
    EXPECT_EQ(Around(document, 1, TextUnit::Character), u"a\u0301");
    EXPECT_EQ(Around(document, 4, TextUnit::Character), u"\U0001F4C4");
}

TEST(TextUnits, SentencesEndBehindTheirBlanks)
{
    const Document document = SampleDocument("One here. Two there.\nThree");
    EXPECT_EQ(Around(document, 4, TextUnit::Sentence), u"One here. ");
    EXPECT_EQ(Around(document, 10, TextUnit::Sentence), u"Two there.");
    EXPECT_EQ(Around(document, 24, TextUnit::Sentence), u"Three");
}

TEST(TextUnits, FollowEachOtherWithoutGaps)
{
    std::mt19937 random(5);
    for (int round = 0; round < 300; ++round)
    {
        const Document document = RandomDocument(random, u"ab. \t\u0301\U0001F4C4", 1 + Below(random, 5));
        for (const TextUnit unit : {TextUnit::Character, TextUnit::Word, TextUnit::Sentence, TextUnit::Paragraph})
        {
            std::u16string text;
            for (Position at{0}; at.value < document.Size();)
            {
                const TextRange range = UnitAround(document, at, unit);
                ASSERT_EQ(range.begin, at) << static_cast<int>(unit) << testing::PrintToString(document.Text());
                ASSERT_GT(range.end, at);
                text += document.Text(range);
                at = range.end;
            }
            ASSERT_EQ(text, document.Text());
        }
    }
}

}  // namespace
}  // namespace quillmarker
