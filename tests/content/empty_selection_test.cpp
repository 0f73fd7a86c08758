#include "content/report_sample.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillmarker
{
namespace
{

/// The way a character format is put on an empty selection: on a blank that is inserted, selected and deleted again.
void InABlank(TextBox& box, const std::function<void()>& apply)
{
    const int start = box.SelStart();
    const int length = box.SelLength();
    if (length == 0)
    {
        box.SetSelText(u" ");
        box.SetSelStart(start);
        box.SetSelLength(1);
    }
    apply();
    if (length == 0)
    {
        box.SetSelText(u"");
        box.SetSelLength(length);
        box.SetSelStart(start);
    }
}

void PutBold(TextBox& box)
{
    InABlank(box, [&] { box.SetSelBold(1); });
}

TEST(EmptySelection, AFormatPutOnABlankIsThatOfTheNextCharacterTyped)
{
    TextBox box;
    Fill(box, u"wo|rd");
    const Document before = box.Value();
    PutBold(box);
    EXPECT_EQ(Shown(box), "wo|rd");
    EXPECT_TRUE(SameContent(box.Value(), before));
    EXPECT_EQ(box.SelBold(), true);
    box.Type(u"x");
    box.Type(u"y");
    EXPECT_EQ(Shown(box), "wo*x*y|rd");
}

TEST(EmptySelection, SoItIsAtEveryPlaceOfALine)
{
    for (const std::u16string_view sample :
         {u"|", u"|ab", u"ab|", u"ab\r\n|", u"ab|\r\ncd", u"ab\r\n|cd", u"ab\r\n|\r\ncd"})
    {
        TextBox box;
        Fill(box, sample);
        const Document before = box.Value();
        PutBold(box);
        EXPECT_EQ(Shown(box), ToUtf8(sample));
        EXPECT_TRUE(SameContent(box.Value(), before)) << ToUtf8(sample);
        box.Type(u"x");
        EXPECT_TRUE(FormatAt(box, box.SelStart() - 1).bold) << ToUtf8(sample);
    }
}

TEST(EmptySelection, ASecondTimeSwitchesItOffAgain)
{
    TextBox box;
    Fill(box, u"wo|rd");
    PutBold(box);
    InABlank(box, [&] { box.SetSelItalic(1); });
    EXPECT_EQ(box.SelBold(), true);
    EXPECT_EQ(box.SelItalic(), true);
    InABlank(box, [&] { box.SetSelBold(0); });
    box.Type(u"x");
    EXPECT_EQ(Shown(box), "wox|rd");
    EXPECT_TRUE(FormatAt(box, 2).italic);
}

TEST(EmptySelection, ASelectionIsFormattedAsItIs)
{
    TextBox box;
    Fill(box, u"w^or|d");
    PutBold(box);
    EXPECT_EQ(Shown(box), "w^*o*r|d");
}

TEST(EmptySelection, TheFormatIsGoneWhenTheCaretGoes)
{
    TextBox box;
    Fill(box, u"wo|rd");
    PutBold(box);
    box.SetSelStart(1);
    box.SetSelStart(2);
    box.Type(u"x");
    EXPECT_EQ(Shown(box), "wox|rd");
}

TEST(EmptySelection, SizeNameAndColourComeAlong)
{
    TextBox box;
    Fill(box, u"wo|rd");
    InABlank(box, [&] {
        box.SetSelFontName(u"Courier New");
        box.SetSelFontSize(17.5F);
        box.SetSelColor(Colour::Of(1, 2, 3));
    });
    EXPECT_EQ(box.SelFontSize(), 17.5F);
    box.Type(u"x");
    EXPECT_EQ(FormatAt(box, 2).font.Text(), u"Courier New");
    EXPECT_EQ(FormatAt(box, 2).size, (Twips{350}));
    EXPECT_EQ(FormatAt(box, 2).colour, Colour::Of(1, 2, 3));
}

TEST(EmptySelection, InABracketItIsNoStepAndTheFormatStays)
{
    TextBox box;
    Fill(box, u"wo|rd");
    box.ClearHistory();
    box.BeginStep();
    PutBold(box);
    box.EndStep();
    EXPECT_FALSE(box.CanUndo());
    box.Type(u"x");
    EXPECT_EQ(Shown(box), "wo*x|rd");
    box.Undo();
    EXPECT_EQ(Shown(box), "wo|rd");
    EXPECT_FALSE(box.CanUndo());
}

TEST(EmptySelection, BeforeAHiddenTextAndAfterABoldOneTheTextAroundStaysAsItWas)
{
    TextBox box;
    box.SetTextRTF(u"{\\rtf1 {\\b ab}{\\v cd}e}");
    const Document before = box.Value();
    for (int caret = 0; caret <= 5; ++caret)
    {
        box.SetSelStart(caret);
        InABlank(box, [&] { box.SetSelItalic(1); });
        EXPECT_TRUE(SameContent(box.Value(), before)) << caret;
        EXPECT_EQ(box.SelStart(), caret);
        EXPECT_EQ(box.SelItalic(), true);
    }
}

}  // namespace
}  // namespace quillmarker
