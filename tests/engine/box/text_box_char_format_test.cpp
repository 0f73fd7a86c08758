#include "support/sample.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillmarker
{
namespace
{

TEST(CharacterToggles, BoldOverPartOfAWordKeepsTheSelection)
{
    SampleBox box("pay ^tot|al now");
    box.SetSelBold(true);
    EXPECT_EQ(Dump(box), "pay ^<b>tot</b>|al now");
    box.SetSelBold(false);
    EXPECT_EQ(Dump(box), "pay ^tot|al now");
}

TEST(CharacterToggles, EachReachesItsFormat)
{
    SampleBox box("^a|");
    box.SetSelItalic(1);
    box.SetSelUnderline(1);
    box.SetSelStrikeThru(1);
    box.SetSelProtected(1);
    EXPECT_EQ(Dump(box), "^<p><i><u><s>a</s></u></i></p>|");
    EXPECT_EQ(box.SelItalic(), true);
    EXPECT_EQ(box.SelUnderline(), true);
    EXPECT_EQ(box.SelStrikeThru(), true);
    EXPECT_EQ(box.SelProtected(), true);
    EXPECT_EQ(box.SelBold(), false);
}

TEST(CharacterToggles, AnyNumberButZeroIsTrue)
{
    for (const int on : {1, -1, 2, 256, std::numeric_limits<int>::min()})
    {
        SampleBox box("^a|");
        box.SetSelBold(on);
        EXPECT_EQ(box.SelBold(), true) << on;
    }
}

TEST(CharacterToggles, AreMixedWhereTheSelectionDiffers)
{
    const SampleBox box("^a<b>b</b><i><s>c</s></i>|");
    EXPECT_EQ(box.SelBold(), std::nullopt);
    EXPECT_EQ(box.SelItalic(), std::nullopt);
    EXPECT_EQ(box.SelStrikeThru(), std::nullopt);
    EXPECT_EQ(box.SelUnderline(), false);
}

TEST(CharacterToggles, TwoKindsOfUnderlineAreBothUnderlined)
{
    SampleBox box("^a|b");
    box.SetSelCharFormat({.underline = Underline::Wave});
    box.SetSelStart(1);
    box.SetSelLength(1);
    box.SetSelUnderline(1);
    box.SetSelStart(0);
    box.SetSelLength(2);
    EXPECT_EQ(box.SelUnderline(), true);
    EXPECT_EQ(box.SelCharFormat().underline, std::nullopt);
}

TEST(CharFormat, AnOffsetIsKeptInTwipsAndDoesNotChangeTheSize)
{
    SampleBox box("a^b|c");
    for (const std::int32_t twips : {60, -60, 61, 1})
    {
        box.SetSelCharOffset(twips);
        EXPECT_EQ(box.SelCharOffset(), twips);
        EXPECT_EQ(box.SelFontSize(), 10.0F);
    }
    box.SetSelStart(0);
    box.SetSelLength(2);
    EXPECT_EQ(box.SelCharOffset(), std::nullopt);
}

TEST(CharFormat, ASelectionThatIsHalfSuperscriptIsMixed)
{
    SampleBox box("a^b|");
    box.SetSelCharFormat({.script = Script::Super});
    box.SetSelStart(0);
    box.SetSelLength(2);
    EXPECT_EQ(box.SelCharFormat().script, std::nullopt);
    EXPECT_EQ(box.SelCharFormat().bold, false);
}

TEST(CharFormat, ASizeOfZeroOrLessIsRefused)
{
    SampleBox box("^a|");
    box.SetSelFontSize(12.5F);
    for (const float size : {0.0F, -1.0F, -0.01F, std::numeric_limits<float>::quiet_NaN(), -INFINITY})
        box.SetSelFontSize(size);
    EXPECT_EQ(box.SelFontSize(), 12.5F);
    box.SetSelFontSize(INFINITY);
    EXPECT_GT(box.SelFontSize(), 1000.0F);
}

TEST(CharFormat, AnUnknownFontIsKept)
{
    SampleBox box("^a|");
    box.SetSelFontName(u"No Such Font 7");
    EXPECT_EQ(box.SelFontName(), u"No Such Font 7");
    EXPECT_NE(box.TextRTF().find(u"No Such Font 7"), std::u16string::npos);
    box.SetSelFontName(u"");
    EXPECT_EQ(box.SelFontName(), u"No Such Font 7");
}

TEST(CharFormat, ColourIsReadAsItWasSet)
{
    SampleBox box("^a|b");
    EXPECT_TRUE(box.SelColor()->IsAutomatic());
    box.SetSelColor(Colour::Of(1, 128, 255));
    EXPECT_EQ(box.SelColor(), Colour::Of(1, 128, 255));
    box.SetSelLength(2);
    EXPECT_EQ(box.SelColor(), std::nullopt);
}

TEST(CharFormat, PuttingWhatWasReadChangesNothingAndNotifiesNothing)
{
    SampleBox box("^a<b>b</b>\n<i>c</i>|d");
    int changes = 0;
    box.Change = [&] { ++changes; };
    box.SetSelCharFormat(box.SelCharFormat());
    box.SetSelParagraphFormat(box.SelParagraphFormat());
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(box.CanUndo());
}

TEST(InsertionFormat, AppliesToWhatIsPutInNext)
{
    SampleBox box("a|b");
    box.SetSelBold(true);
    EXPECT_EQ(box.SelBold(), true);
    box.SetSelText(u"x");
    EXPECT_EQ(Dump(box), "a<b>x</b>|b");
    box.SetSelText(u"y");
    EXPECT_EQ(Dump(box), "a<b>xy</b>|b");
}

TEST(InsertionFormat, IsKeptWhenTheSamePlaceIsSelectedAgainAndLostWhenTheCaretMoves)
{
    SampleBox box("a|b");
    box.SetSelBold(true);
    box.SetSelStart(1);
    EXPECT_EQ(box.SelBold(), true);
    box.SetSelStart(2);
    box.SetSelStart(1);
    EXPECT_EQ(box.SelBold(), false);
}

TEST(InsertionFormat, NotifiesNothingAndIsNoStep)
{
    SampleBox box("a|b");
    int raised = 0;
    box.Change = box.SelChange = [&] { ++raised; };
    box.SetSelBold(true);
    box.SetSelFontSize(20);
    EXPECT_EQ(raised, 0);
    EXPECT_FALSE(box.CanUndo());
}

TEST(InsertionFormat, IsNotLostWhenTheParagraphIsFormatted)
{
    SampleBox box("a|b");
    box.SetSelBold(true);
    box.SetSelAlignment(kAlignCentre);
    EXPECT_EQ(box.SelBold(), true);
    box.SetSelTabCount(2);
    EXPECT_EQ(box.SelBold(), true);
}

TEST(InsertionFormat, DeletedTextLeavesItsFormat)
{
    SampleBox box("a^<b>b</b>|c");
    box.SetSelText(u"");
    EXPECT_EQ(box.SelBold(), true);
    box.SetSelText(u"x");
    EXPECT_EQ(Dump(box), "a<b>x</b>|c");
}

TEST(InsertionFormat, DeletedTextLeavesNothingWhereAHandlerHasGone)
{
    SampleBox box("a^<b>b</b>|c");
    box.Change = [&] { box.SetSelStart(0); };
    box.SetSelText(u"");
    EXPECT_EQ(Dump(box), "|ac");
    EXPECT_EQ(box.SelBold(), false);
}

TEST(InsertionFormat, OfAnEmptyBoxIsItsFont)
{
    TextBox box;
    box.SetFont({.name = u"Georgia", .size = 12});
    EXPECT_EQ(box.SelFontName(), u"Georgia");
    EXPECT_EQ(box.SelFontSize(), 12.0F);
    box.SetText(u"abc");
    box.SetSelLength(3);
    EXPECT_EQ(box.SelFontName(), u"Georgia");
}

}  // namespace
}  // namespace quillmarker
