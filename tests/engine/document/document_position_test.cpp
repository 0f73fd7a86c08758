#include "support/random_document.h"
#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

// A paragraph, a row of two cells, and a last paragraph that is a picture.
Document Mixed() { return SampleDocument("ab\nc<cell/><cell/><row/>e<pic/>"); }

TEST(DocumentPositions, ABreakCountsTwoACellOneARowTwoAndAnObjectOne)
{
    EXPECT_EQ(Mixed().Text(), u"ab\r\nc\t\t\r\ne ");
    EXPECT_EQ(Mixed().Size(), 11);
    EXPECT_EQ(Mixed().ParagraphCount(), 5);
}

TEST(DocumentPositions, AnEmptyDocumentIsOneParagraphOfNoText)
{
    const Document empty;
    EXPECT_EQ(empty.Size(), 0);
    EXPECT_EQ(empty.Text(), u"");
    EXPECT_EQ(empty.ParagraphCount(), 1);
    EXPECT_EQ(empty.StartOf(1), Position{0});
    EXPECT_EQ(empty.Locate({7}).paragraph, 0);
    EXPECT_EQ(empty.Locate({7}).offset, 0);
}

TEST(DocumentPositions, PositionsOutsideAreMovedToTheNearestEnd)
{
    EXPECT_EQ(Mixed().Locate({-5}).paragraph, 0);
    EXPECT_EQ(Mixed().Locate({-5}).offset, 0);
    EXPECT_EQ(Mixed().Locate({500}).paragraph, 4);
    EXPECT_EQ(Mixed().Locate({500}).offset, 2);
    EXPECT_EQ(Mixed().StartOf(-3), Position{0});
    EXPECT_EQ(Mixed().StartOf(5), Position{11});
    EXPECT_EQ(Mixed().StartOf(500), Position{11});
}

TEST(DocumentPositions, APositionInsideAMarkStaysThere)
{
    EXPECT_EQ(Mixed().Locate({3}).paragraph, 0);
    EXPECT_EQ(Mixed().Locate({3}).offset, 3);  // the text has two units
}

TEST(DocumentPositions, FooBarOnTwoLinesIsCountedAsInTheText)
{
    const Document document = SampleDocument("foo bar\nfoo bar");
    EXPECT_EQ(document.Text({{4}, {12}}), u"bar\r\nfoo");
}

TEST(DocumentPositions, TextOfARangeOutsideIsWhatLiesInside)
{
    EXPECT_EQ(Mixed().Text({{-4}, {2}}), u"ab");
    EXPECT_EQ(Mixed().Text({{9}, {400}}), u"e ");
    EXPECT_EQ(Mixed().Text({{4}, {4}}), u"");
    EXPECT_EQ(Mixed().Text({{6}, {2}}), u"");
    EXPECT_EQ(Mixed().Text({{3}, {8}}), u"\nc\t\t\r");
}

TEST(DocumentPositions, EveryRangeIsThatPartOfTheText)
{
    std::mt19937 random(61);
    for (int round = 0; round < 40; ++round)
    {
        const Document document = RandomDocument(random, u"ab\v", 1 + Below(random, 12));
        const std::u16string text = document.Text();
        ASSERT_EQ(static_cast<std::int32_t>(text.size()), document.Size());
        for (std::int32_t begin = 0; begin <= document.Size(); ++begin)
        {
            for (std::int32_t end = begin; end <= document.Size(); ++end)
                ASSERT_EQ(document.Text({{begin}, {end}}), text.substr(std::size_t(begin), std::size_t(end - begin)));
        }
    }
}

TEST(DocumentPositions, WhereAPositionLiesLeadsBackToIt)
{
    std::mt19937 random(62);
    const Document document = RandomDocument(random, u"abc", 300);
    for (std::int32_t at = 0; at <= document.Size(); ++at)
    {
        const Location location = document.Locate({at});
        ASSERT_EQ(document.StartOf(location.paragraph) + location.offset, Position{at});
        ASSERT_LT(location.offset, document.ParagraphAt(location.paragraph).Length());
    }
}

TEST(DocumentPositions, VisitingGoesThroughAllParagraphsFromThere)
{
    const Document document = Mixed();
    std::int32_t index = 2;
    document.Visit(2, [&](const Paragraph& paragraph) {
        EXPECT_EQ(&paragraph, &document.ParagraphAt(index));
        return ++index < 4;
    });
    EXPECT_EQ(index, 4);
}

TEST(DocumentPositions, ACellKnowsItsRow)
{
    const Document document = Mixed();
    EXPECT_EQ(document.RowMarkOf(0), -1);
    EXPECT_EQ(document.RowMarkOf(1), 3);
    EXPECT_EQ(document.RowMarkOf(2), 3);
    EXPECT_EQ(document.RowMarkOf(3), 3);
    EXPECT_EQ(document.RowMarkOf(4), -1);
    ASSERT_TRUE(document.ParagraphAt(3).Extras().row);
    EXPECT_EQ(document.ParagraphAt(3).Extras().row->cells.size(), 2U);
}

TEST(DocumentPositions, AMarkBehindTheTextHasItsOwnFormat)
{
    const Document document = SampleDocument("a<b>\n</b>b");
    const Paragraph& first = document.ParagraphAt(0);
    EXPECT_FALSE(document.FormatOf(first.FormatAt(0)).bold);
    EXPECT_TRUE(document.FormatOf(first.FormatAt(1)).bold);
    EXPECT_TRUE(document.FormatOf(first.FormatAt(2)).bold);
}

TEST(DocumentPositions, TheCharacterOfAnObjectLeadsToIt)
{
    const Document document = Mixed();
    const Paragraph& last = document.ParagraphAt(4);
    EXPECT_EQ(last.Text(), u"e\uFFFC");
    EXPECT_EQ(last.ObjectAt(0), nullptr);
    ASSERT_NE(last.ObjectAt(1), nullptr);
    EXPECT_EQ(std::get<InlinePicture>(*last.ObjectAt(1)).kind, PictureKind::Png);
    EXPECT_EQ(last.ObjectAt(2), nullptr);
}

}  // namespace
}  // namespace quillmarker
