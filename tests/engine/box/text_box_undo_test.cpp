#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

int StepsOf(TextBox& box)
{
    int steps = 0;
    for (; box.CanUndo() && steps < 1000; ++steps)
        box.Undo();
    return steps;
}

TEST(Undo, BringsBackTheDocumentAndTheSelection)
{
    SampleBox box("pay ^<b>tot</b>|al");
    box.SetSelText(u"x");
    EXPECT_EQ(Dump(box), "pay <b>x</b>|al");
    box.Undo();
    EXPECT_EQ(Dump(box), "pay ^<b>tot</b>|al");
    EXPECT_FALSE(box.CanUndo());
    box.Redo();
    EXPECT_EQ(Dump(box), "pay <b>x</b>|al");
    EXPECT_FALSE(box.CanRedo());
}

TEST(Undo, WithoutAHistoryDoesNothing)
{
    SampleBox box("a^b|c");
    int raised = 0;
    box.Change = box.SelChange = [&] { ++raised; };
    box.Undo();
    box.Redo();
    EXPECT_EQ(Dump(box), "a^b|c");
    EXPECT_EQ(raised, 0);
}

TEST(Undo, TypingInARowIsOneStep)
{
    SampleBox box("|");
    for (const char16_t* text : {u"a", u"b", u"c"})
        box.Type(text);
    EXPECT_EQ(StepsOf(box), 1);
    EXPECT_EQ(Dump(box), "|");
}

TEST(Undo, MovingTheCaretEndsATypingRun)
{
    SampleBox box("|");
    box.Type(u"a");
    box.Type(u"b");
    box.SetSelStart(0);
    box.Type(u"c");
    EXPECT_EQ(StepsOf(box), 2);
}

TEST(Undo, BackspaceDoesNotEndATypingRun)
{
    SampleBox box("|");
    box.Type(u"a");
    box.Type(u"b");
    box.TypeBackspace();
    box.Type(u"c");
    EXPECT_EQ(Dump(box), "ac|");
    EXPECT_EQ(StepsOf(box), 1);
}

TEST(Undo, EachEditOfTheHostIsAStepAndEndsATypingRun)
{
    SampleBox box("|");
    box.Type(u"a");
    box.SetSelText(u"b");
    box.SetSelText(u"c");
    box.Type(u"d");
    EXPECT_EQ(StepsOf(box), 4);
    EXPECT_EQ(Dump(box), "|");
}

TEST(Undo, APasteIsAStep)
{
    SampleBox box("|");
    box.Type(u"a");
    box.PasteText(u"b");
    box.PasteRTF(u"{\\rtf1 c}");
    EXPECT_EQ(StepsOf(box), 3);
}

TEST(Undo, KeepsAtLeastAHundredSteps)
{
    SampleBox box("|");
    for (int i = 0; i < 1000; ++i)
        box.SetSelText(u"x");
    EXPECT_GE(StepsOf(box), 100);
}

TEST(Undo, NewTypingClearsRedo)
{
    SampleBox box("|");
    box.Type(u"a");
    box.Undo();
    EXPECT_TRUE(box.CanRedo());
    box.Type(u"b");
    EXPECT_FALSE(box.CanRedo());
}

TEST(Undo, TypingAfterUndoIsAStepOfItsOwn)
{
    SampleBox box("|");
    box.SetSelText(u"a");
    box.Type(u"b");
    box.Undo();
    box.Type(u"c");
    EXPECT_EQ(Dump(box), "ac|");
    box.Undo();
    EXPECT_EQ(Dump(box), "a|");
}

TEST(Undo, FormatsAreSteps)
{
    SampleBox box("^a|");
    box.SetSelBold(true);
    box.SetSelAlignment(kAlignCentre);
    box.SetSelBold(true);  // changes nothing
    EXPECT_EQ(StepsOf(box), 2);
    EXPECT_EQ(Dump(box), "^a|");
}

TEST(Undo, SettingTheWholeIsAStep)
{
    SampleBox box("a|");
    box.SetTextRTF(u"{\\rtf1 b\\par}");
    box.SetText(u"c");
    EXPECT_EQ(StepsOf(box), 2);
    EXPECT_EQ(Dump(box), "a|");
}

TEST(Undo, OpeningAValueClearsTheHistoryAndPuttingOneIsAStep)
{
    SampleBox box("a|");
    box.SetSelText(u"b");
    box.Undo();
    box.OpenValue(SampleDocument("new"));
    EXPECT_FALSE(box.CanUndo() || box.CanRedo());
    EXPECT_EQ(Dump(box), "|new");
    box.SetValue(SampleDocument("other\n"), {2, 900});
    EXPECT_EQ(Dump(box), "ot^her\n|");
    EXPECT_EQ(StepsOf(box), 1);
    EXPECT_EQ(Dump(box), "|new");
}

TEST(Undo, AllStepsBackAndForthGiveEveryState)
{
    SampleBox box("a^b|c");
    std::vector<std::string> states = {Dump(box)};
    const auto note = [&] { states.push_back(Dump(box)); };
    box.SetSelBold(true), note();
    box.SetSelText(u"x\ny"), note();
    box.SetSelRTF(u"{\\rtf1{\\i z}\\par}"), note();
    box.InsertObject(SamplePicture()), note();
    for (int round = 0; round < 2; ++round)
    {
        for (std::size_t i = states.size() - 1; i > 0; --i)
        {
            box.Undo();
            EXPECT_EQ(Dump(box), states[i - 1]);
        }
        for (std::size_t i = 1; i < states.size(); ++i)
        {
            box.Redo();
            EXPECT_EQ(Dump(box), states[i]);
        }
    }
}

TEST(UndoBracket, IsOneStep)
{
    SampleBox box("a|");
    box.BeginStep();
    box.SetSelText(u"b");
    box.Type(u"c");
    box.BeginStep();
    box.SetSelText(u"d");
    box.EndStep();
    box.SetSelText(u"e");
    box.EndStep();
    EXPECT_EQ(StepsOf(box), 1);
    EXPECT_EQ(Dump(box), "a|");
    box.Redo();
    EXPECT_EQ(Dump(box), "abcde|");
}

TEST(UndoBracket, IsNoneWhenItLeavesTheDocumentEqual)
{
    SampleBox box("a|");
    box.BeginStep();
    box.EndStep();
    EXPECT_FALSE(box.CanUndo());
    box.BeginStep();
    box.SetSelText(u"b");
    box.TypeBackspace();
    box.EndStep();
    EXPECT_FALSE(box.CanUndo());
    EXPECT_EQ(Dump(box), "a|");
}

TEST(UndoBracket, ThatLeavesTheDocumentEqualKeepsRedo)
{
    SampleBox box("a|");
    box.SetSelText(u"b");
    box.Undo();
    box.BeginStep();
    box.SetSelText(u"x");
    box.TypeBackspace();
    box.EndStep();
    EXPECT_TRUE(box.CanRedo());
}

TEST(UndoBracket, AnEndWithoutABeginDoesNothing)
{
    SampleBox box("a|");
    box.EndStep();
    box.SetSelText(u"b");
    EXPECT_EQ(StepsOf(box), 1);
}

TEST(UndoBracket, UndoInsideBringsBackItsBegin)
{
    SampleBox box("a|");
    box.BeginStep();
    box.SetSelText(u"b");
    box.Undo();
    EXPECT_EQ(Dump(box), "a|");
    box.SetSelText(u"c");
    box.EndStep();
    EXPECT_EQ(StepsOf(box), 1);
    EXPECT_EQ(Dump(box), "a|");
}

}  // namespace
}  // namespace quillmarker
