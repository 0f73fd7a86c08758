#include "support/sample.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillmarker
{
namespace
{

constexpr std::int32_t kHuge = std::numeric_limits<std::int32_t>::max();

std::string Selected(std::string_view sample, std::int32_t start, std::int32_t length)
{
    SampleBox box(sample);
    box.SetSelStart(start);
    box.SetSelLength(length);
    return Dump(box);
}

TEST(TextBoxSelection, BeginsAtZeroInAnEmptyBox)
{
    const TextBox box;
    EXPECT_EQ(box.Text(), u"");
    EXPECT_EQ(box.TextLength(), 0);
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_EQ(box.SelLength(), 0);
    EXPECT_EQ(box.SelText(), u"");
}

TEST(TextBoxSelection, IsCountedInUnitsOfTheText)
{
    EXPECT_EQ(Selected("foo bar\nfoo bar", 4, 8), "foo ^bar\nfoo| bar");
    EXPECT_EQ(Selected("a<cell/>b<cell/><row/>c", 1, 3), "a^<cell/>b<cell/>|<row/>c");
    EXPECT_EQ(Selected("a<cell/>b<cell/><row/>c", 4, 2), "a<cell/>b<cell/>^<row/>|c");
    EXPECT_EQ(Selected("a<pic/>b", 1, 1), "a^<pic/>|b");
    EXPECT_EQ(Selected("a<h>hid</h>b", 2, 3), "a<h>h^id</h>b|");
}

TEST(TextBoxSelection, BeyondTheEndIsMovedToTheEnd)
{
    EXPECT_EQ(Selected("abc", kHuge, 0), "abc|");
    EXPECT_EQ(Selected("abc", 4, 1), "abc|");
    EXPECT_EQ(Selected("abc", 1, kHuge), "a^bc|");
    EXPECT_EQ(Selected("abc", 0, 4), "^abc|");
}

TEST(TextBoxSelection, ANegativeValueIsRefusedAndChangesNothing)
{
    SampleBox box("a^bc|d");
    box.SetSelStart(-1);
    EXPECT_EQ(Dump(box), "a^bc|d");
    box.SetSelLength(-1);
    EXPECT_EQ(Dump(box), "a^bc|d");
    box.SetSelStart(std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(Dump(box), "a^bc|d");
}

TEST(TextBoxSelection, SettingItsStartLeavesNothingSelected)
{
    SampleBox box("a^bc|d");
    box.SetSelStart(3);
    EXPECT_EQ(Dump(box), "abc|d");
    box.SetSelLength(1);
    box.SetSelStart(3);
    EXPECT_EQ(Dump(box), "abc|d");
}

TEST(TextBoxSelection, AStartInsideALineEndMovesBeforeItAndAnEndBehindIt)
{
    EXPECT_EQ(Selected("a\nb", 2, 0), "a|\nb");
    EXPECT_EQ(Selected("a\nb", 0, 2), "^a\n|b");
    EXPECT_EQ(Selected("a\nb", 1, 1), "a^\n|b");
    EXPECT_EQ(Selected("<cell/><row/>b", 2, 0), "<cell/>|<row/>b");
    EXPECT_EQ(Selected("<cell/><row/>b", 0, 2), "^<cell/><row/>|b");
}

TEST(TextBoxSelection, EveryPairOfPositionsGivesItsPartOfTheText)
{
    SampleBox box("one\ntwo<pic/>\n\na<cell/><cell/><row/>end");
    const std::u16string text = box.Text();
    for (std::int32_t start = 0; start <= box.TextLength(); ++start)
    {
        for (std::int32_t length = 0; start + length <= box.TextLength() + 1; ++length)
        {
            box.SetSelStart(start);
            box.SetSelLength(length);
            ASSERT_EQ(box.SelText(), text.substr(std::size_t(box.SelStart()), std::size_t(box.SelLength())));
            ASSERT_LE(box.SelStart(), start);
            ASSERT_GE(box.SelStart(), start - 1);
            ASSERT_LE(box.SelStart() + box.SelLength(), box.TextLength());
        }
    }
}

TEST(TextBoxText, ReplacesEverythingAndLeavesTheCaretAtTheBegin)
{
    SampleBox box("a<b>bc</b>d|");
    box.SetText(u"new");
    EXPECT_EQ(Dump(box), "|new");
    box.SetSelStart(2);
    box.SetText(u"new");
    EXPECT_EQ(Dump(box), "|new");
}

TEST(TextBoxText, ALoneLineEndBecomesAWholeOne)
{
    TextBox box;
    box.SetText(u"a\rb\nc\r\nd\n\r");
    EXPECT_EQ(box.Text(), u"a\r\nb\r\nc\r\nd\r\n\r\n");
    EXPECT_EQ(box.Value().ParagraphCount(), 6);
}

TEST(TextBoxText, OverTheSelectionLeavesTheCaretBehindIt)
{
    SampleBox box("pay ^tot|al");
    box.SetSelText(u"x\ny");
    EXPECT_EQ(Dump(box), "pay x\ny|al");
    EXPECT_EQ(box.SelStart(), 8);
    box.SetSelText(u"");
    EXPECT_EQ(Dump(box), "pay x\ny|al");
}

TEST(TextBoxText, OfNothingDeletesTheSelection)
{
    SampleBox box("a^b\nc|d");
    box.SetSelText(u"");
    EXPECT_EQ(Dump(box), "a|d");
}

TEST(TextBoxText, OverASelectionTakesTheFormatOfItsFirstCharacter)
{
    SampleBox box("a^<b>b</b>c|d");
    box.SetSelText(u"xyz");
    EXPECT_EQ(Dump(box), "a<b>xyz</b>|d");
    SampleBox later("<b>a</b>^bc|<i>d</i>");
    later.SetSelText(u"xyz");
    EXPECT_EQ(Dump(later), "<b>a</b>xyz|<i>d</i>");
}

TEST(TextBoxText, AtTheCaretIsLikeTheCharacterBeforeAndAtAParagraphsStartLikeTheOneBehind)
{
    SampleBox inside("<b>a</b>|b");
    inside.SetSelText(u"x");
    EXPECT_EQ(Dump(inside), "<b>ax</b>|b");
    SampleBox start("<i>a\n</i>|<b>b</b>");
    start.SetSelText(u"x");
    EXPECT_EQ(Dump(start), "<i>a\n</i><b>x|b</b>");
}

TEST(TextBoxText, InAnEmptyParagraphIsLikeItsMark)
{
    SampleBox box("a\n|<b>\n</b>c");
    box.SetSelText(u"x");
    EXPECT_EQ(Dump(box), "a\n<b>x|\n</b>c");
}

TEST(TextBoxText, BehindHiddenTextIsNotHidden)
{
    SampleBox box("a<h>key</h>|b");
    box.SetSelText(u"x");
    EXPECT_EQ(Dump(box), "a<h>key</h>x|b");
    SampleBox inside("a<h>k|ey</h>b");
    inside.SetSelText(u"x");
    EXPECT_EQ(Dump(inside), "a<h>kx|ey</h>b");
}

}  // namespace
}  // namespace quillmarker
