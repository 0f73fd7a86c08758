#include "engine/document/edit.h"

#include "engine/document/format_edit.h"
#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

// The first format of a sample is the one without tags.
constexpr CharFormatId kPlain{};

std::string AfterText(std::string_view sample, TextRange range, std::u16string_view text)
{
    return DumpSample(WithText(SampleDocument(sample), range, text, kPlain));
}

// Each paragraph of `sample` with its number as its left indent, so that it can be told where a format came from.
Document Indented(std::string_view sample)
{
    Document document = SampleDocument(sample);
    for (std::int32_t i = 0; i < document.ParagraphCount(); ++i)
    {
        const Position start = document.StartOf(i);
        document = WithParagraphFormat(document, {start, start}, {.leftIndent = Twips{i + 1}});
    }
    return document;
}

std::vector<std::int32_t> IndentsOf(const Document& document)
{
    std::vector<std::int32_t> indents;
    document.Visit(0, [&](const Paragraph& paragraph) {
        indents.push_back(document.FormatOf(paragraph.Ending().format).leftIndent.value);
        return true;
    });
    return indents;
}

using Indents = std::vector<std::int32_t>;

TEST(Edit, EnterInTheMiddleMakesTwoParagraphs)
{
    EXPECT_EQ(AfterText("aaabbb", {{3}, {3}}, u"\r\n"), "aaa\nbbb");
    EXPECT_EQ(AfterText("aaabbb", {{3}, {3}}, u"\n"), "aaa\nbbb");
    EXPECT_EQ(AfterText("aaabbb", {{3}, {3}}, u"\r"), "aaa\nbbb");
}

TEST(Edit, LineEndsOfEveryKindAreOneEach)
{
    EXPECT_EQ(AfterText("", {}, u"a\rb\nc\r\nd\n\re"), "a\nb\nc\nd\n\ne");
    EXPECT_EQ(LengthInDocument(u"a\rb\nc\r\nd\n\re"), 15);
}

TEST(Edit, NulsAreLeftOutAndNeverEndTheText)
{
    EXPECT_EQ(AfterText("", {}, std::u16string_view(u"a\0b\0\r\0\n", 7)), "ab\n\n");
    EXPECT_EQ(LengthInDocument(std::u16string_view(u"a\0b\0\r\0\n", 7)), 6);
}

TEST(Edit, DeletingAcrossAMarkLeavesTheLaterMarksFormat)
{
    const Document document = Indented("one\ntwo\nthree");
    EXPECT_EQ(IndentsOf(WithText(document, {{1}, {6}}, u"", {})), (Indents{2, 3}));
    EXPECT_EQ(IndentsOf(WithText(document, {{3}, {5}}, u"", {})), (Indents{2, 3}));
    EXPECT_EQ(IndentsOf(WithText(document, {{0}, {document.Size()}}, u"", {})), (Indents{3}));
}

TEST(Edit, ANewParagraphIsLikeTheOneItIsPutIn)
{
    EXPECT_EQ(IndentsOf(WithText(Indented("one\ntwo\nthree"), {{6}, {6}}, u"x\r\ny", {})), (Indents{1, 2, 2, 3}));
}

TEST(Edit, AParagraphOfANestedTableStaysInItsCell)
{
    const Document document = WithText(SampleDocument("a<cell/><row/>"), {{1}, {1}}, u"\n", {});
    EXPECT_EQ(document.ParagraphAt(0).Ending().kind, Mark::Break);
    EXPECT_EQ(document.ParagraphAt(0).Ending().tableDepth, 1);
    EXPECT_EQ(document.ParagraphAt(1).Ending().kind, Mark::Cell);
    EXPECT_EQ(document.RowMarkOf(0), 2);
}

TEST(Edit, AFragmentWithoutAMarkBringsNoParagraphFormat)
{
    const Document fragment = Indented("x");
    EXPECT_EQ(IndentsOf(WithFragment(Indented("\none\ntwo"), {{3}, {3}}, fragment)), (Indents{1, 2, 3}));
}

TEST(Edit, EachMarkOfAFragmentBringsItsParagraphsFormat)
{
    const Document fragment = Indented("\n\n\nu\nv\nw");  // u, v and w have 4, 5 and 6
    const Document part = Slice(fragment, {{6}, {fragment.Size()}});
    const Document after = WithFragment(Indented("one\ntwo"), {{1}, {1}}, part);
    EXPECT_EQ(DumpSample(after), "ou\nv\nwne\ntwo");
    EXPECT_EQ(IndentsOf(after), (Indents{4, 5, 1, 2}));
}

TEST(Edit, ARangeThatTouchesALineEndTakesAllOfIt)
{
    EXPECT_EQ(AfterText("ab\ncd", {{3}, {3}}, u"x"), "abx\ncd");
    EXPECT_EQ(AfterText("ab\ncd", {{3}, {4}}, u"x"), "abxcd");
    EXPECT_EQ(AfterText("ab\ncd", {{1}, {3}}, u"x"), "axcd");
}

TEST(Edit, RangesOutsideAreClamped)
{
    EXPECT_EQ(AfterText("ab", {{-5}, {1}}, u"x"), "xb");
    EXPECT_EQ(AfterText("ab", {{1}, {99}}, u"x"), "ax");
    EXPECT_EQ(AfterText("ab", {{99}, {99}}, u"x"), "abx");
    EXPECT_EQ(AfterText("ab", {{2}, {1}}, u"x"), "abx");
}

TEST(Edit, ObjectsMoveWithTheTextAndGoWithIt)
{
    EXPECT_EQ(AfterText("a<pic/>b<pic/>", {{0}, {0}}, u"xx"), "xxa<pic/>b<pic/>");
    EXPECT_EQ(AfterText("a<pic/>b<pic/>", {{0}, {2}}, u""), "b<pic/>");
    EXPECT_EQ(DumpSample(Slice(SampleDocument("a<pic/>b<pic/>"), {{1}, {3}})), "<pic/>b");
}

TEST(Edit, AnObjectTakesThePlaceOfTheRange)
{
    const Document document = SampleDocument("abc\nd");
    const Document after = WithObject(document, {{1}, {5}}, Shared(SamplePicture()), kPlain);
    EXPECT_EQ(DumpSample(after), "a<pic/>d");
    EXPECT_EQ(*after.ParagraphAt(0).ObjectAt(1), SamplePicture());
}

TEST(Edit, ASliceOfARowKeepsTheRowsProperties)
{
    const Document document = SampleDocument("x\na<cell/>b<cell/><row/>y");
    const Document row = Slice(document, {{3}, {9}});
    EXPECT_EQ(DumpSample(row), "a<cell/>b<cell/><row/>");
    ASSERT_TRUE(row.ParagraphAt(2).Extras().row);
    EXPECT_EQ(row.ParagraphAt(2).Extras().row->cells.size(), 2U);
}

}  // namespace
}  // namespace quillmarker
