#include "support/sample.h"

#include <quillmarker/rtf.h>

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

// The left indents of the paragraphs, in order.
std::vector<std::int32_t> Indents(const TextBox& box)
{
    std::vector<std::int32_t> indents;
    box.Value().Visit(0, [&](const Paragraph& paragraph) {
        indents.push_back(box.Value().FormatOf(paragraph.Ending().format).leftIndent.value);
        return true;
    });
    return indents;
}

TEST(TextBoxRtf, OfTheWholeDropsOneFinalBreakAndLeavesTheCaretAtTheBegin)
{
    SampleBox box("abc|");
    box.SetTextRTF(u"{\\rtf1 T\\par}");
    EXPECT_EQ(Dump(box), "|T");
    box.SetTextRTF(u"{\\rtf1 T\\par\\par}");
    EXPECT_EQ(box.Text(), u"T\r\n");
    EXPECT_EQ(box.SelStart(), 0);
}

TEST(TextBoxRtf, OverTheSelectionKeepsItsBreakAndLeavesTheCaretBehindIt)
{
    SampleBox box("pay ^tot|al");
    box.SetSelRTF(u"{\\rtf1 T\\par}");
    EXPECT_EQ(Dump(box), "pay T\n|al");
}

TEST(TextBoxRtf, WithoutABreakStaysInsideTheParagraphAndBringsNoParagraphFormat)
{
    SampleBox box("one\ntw|o");
    box.SetSelIndent(300);
    box.SetSelRTF(u"{\\rtf1\\pard\\li900\\qc x{\\b y}}");
    EXPECT_EQ(Dump(box), "one\ntwx<b>y</b>|o");
    EXPECT_EQ(Indents(box), (std::vector{0, 300}));
    EXPECT_EQ(box.SelAlignment(), kAlignLeft);
}

TEST(TextBoxRtf, EachBreakBringsItsParagraphsFormat)
{
    SampleBox box("ab|cd");
    box.SetSelIndent(300);
    box.SetSelRTF(u"{\\rtf1\\pard\\li100 x\\par\\pard\\li200 y\\par z}");
    EXPECT_EQ(Dump(box), "abx\ny\nz|cd");
    EXPECT_EQ(Indents(box), (std::vector{100, 200, 300}));
}

TEST(TextBoxRtf, WhatFollowsKeepsItsFormat)
{
    SampleBox box("a|<i>b</i>c");
    box.SetSelRTF(u"{\\rtf1\\b\\fs48 x}");
    EXPECT_EQ(Dump(box), "a<b>x</b>|<i>b</i>c");
    box.SetSelStart(2);
    box.SetSelLength(2);
    EXPECT_EQ(box.SelFontSize(), 10.0F);
}

TEST(TextBoxRtf, WhatAFragmentDoesNotStateIsAsThePlaceHasIt)
{
    TextBox box;
    box.SetText(u"ab");
    box.SetSelLength(2);
    box.SetSelFontName(u"Georgia");
    box.SetSelFontSize(14);
    box.SetSelStart(1);
    box.SetSelRTF(u"{\\rtf1 x}");
    box.SetSelStart(0);
    box.SetSelLength(3);
    EXPECT_EQ(box.SelText(), u"axb");
    EXPECT_EQ(box.SelFontName(), u"Georgia");
    EXPECT_EQ(box.SelFontSize(), 14.0F);
}

TEST(TextBoxRtf, TextThatIsNoRtfIsPutInAsText)
{
    SampleBox box("a|b");
    box.SetSelRTF(u"x\ny");
    EXPECT_EQ(Dump(box), "ax\ny|b");
    box.SetTextRTF(u"just text");
    EXPECT_EQ(Dump(box), "|just text");
}

TEST(TextBoxRtf, OfNothingDeletesTheSelection)
{
    SampleBox box("a^bc|d");
    box.SetSelRTF(u"");
    EXPECT_EQ(Dump(box), "a|d");
}

TEST(TextBoxRtf, AnEmptyFragmentDeletesTheSelection)
{
    SampleBox box("a^bc|d");
    box.SetSelRTF(u"{\\rtf1}");
    EXPECT_EQ(Dump(box), "a|d");
}

TEST(TextBoxRtf, AStringIsUnicodeAndBytesHaveACodePage)
{
    TextBox box;
    box.SetSelRTF(u"{\\rtf1 \u00E4\u20AC\U0001F4C4}");
    EXPECT_EQ(box.Text(), u"\u00E4\u20AC\U0001F4C4");
    box.SetTextRTFBytes("{\\rtf1\\ansi\\ansicpg1251 \xE4}");
    EXPECT_EQ(box.Text(), u"\u0434");
    box.SetSelRTFBytes("{\\rtf1 \x80}");
    EXPECT_EQ(box.Text(), u"\u20AC\u0434");
}

TEST(TextBoxRtf, OfTheSelectionIsThatPartOfTheDocument)
{
    SampleBox box("a<b>b^c\nd</b>e|f");
    const Document part = ReadRtf(box.SelRTF(), {.scope = RtfScope::Fragment, .formats = {}});
    EXPECT_EQ(DumpSample(part), "<b>c\nd</b>e");
}

TEST(TextBoxRtf, OfTheWholePutBackChangesNothing)
{
    SampleBox box("a<b>b\n</b>c<cell/>d<cell/><row/><pic/><h>h</h>");
    const Document before = box.Value();
    box.SetTextRTF(box.TextRTF());
    EXPECT_TRUE(SameContent(box.Value(), before)) << Dump(box.Value()) << "\nwas\n" << Dump(before);
}

TEST(TextBoxRtf, ACellCanBeReplacedWithoutBreakingItsRow)
{
    SampleBox box("^one|<cell/>two<cell/><row/>end");
    box.SetSelRTF(u"{\\rtf1{\\i 1}}");
    EXPECT_EQ(Dump(box), "<i>1</i>|<cell/>two<cell/><row/>end");
    EXPECT_EQ(box.Value().RowMarkOf(0), 2);
}

TEST(TextBoxRtf, AnObjectGoesOverTheSelection)
{
    SampleBox box("a^bc|d");
    box.InsertObject(SamplePicture());
    EXPECT_EQ(Dump(box), "a<pic/>|d");
    EXPECT_EQ(box.Text(), u"a d");
}

}  // namespace
}  // namespace quillmarker
