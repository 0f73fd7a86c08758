#include "format_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;

/// A box of three letters of that size each, of which the middle one is selected.
struct Letters
{
    explicit Letters(float points) : host("^abc|")
    {
        host.box.SetSelFontSize(points);
        host.box.Select({1, 1});
        host.box.ClearHistory();
    }

    SampleHost host;
    FormatCommands commands{host};
};

float SizeAt(TextBox& box, int start)
{
    TextBox probe;
    probe.OpenValue(box.Value());
    probe.Select({start, 1});
    return probe.SelFontSize().value_or(-1);
}

TEST(ScriptOffset, RaisesByTheSizeOfTheFirstCharacterAndReducesToSeventyPercent)
{
    Letters sample(12);
    sample.commands.ApplyScriptOffset(1, 8);
    EXPECT_FLOAT_EQ(sample.host.box.SelFontSize().value(), 8.4F);
    EXPECT_EQ(sample.host.box.SelCharOffset(), 96);
    EXPECT_EQ(Dump(sample.host.box), "a^b|c");
    EXPECT_THAT(sample.host.log, ElementsAre("no redraw", "redraw", "script buttons"));
}

TEST(ScriptOffset, LowersByHalfOfThat)
{
    Letters sample(10);
    sample.commands.ApplyScriptOffset(1, -4);
    EXPECT_EQ(sample.host.box.SelCharOffset(), -40);
    EXPECT_FLOAT_EQ(sample.host.box.SelFontSize().value(), 7);
}

TEST(ScriptOffset, ReleasedTextTakesTheSizeOfTheFirstCharacterWhateverItHadBefore)
{
    Letters sample(12);
    sample.host.box.SetSelFontSize(30);
    sample.host.box.SetSelCharOffset(77);
    sample.commands.ApplyScriptOffset(0, 8);
    EXPECT_EQ(sample.host.box.SelCharOffset(), 0);
    EXPECT_FLOAT_EQ(sample.host.box.SelFontSize().value(), 12);
}

TEST(ScriptOffset, FromSubscriptToSuperscriptKeepsTheReducedSize)
{
    Letters sample(10);
    sample.commands.ApplyScriptOffset(1, -4);
    sample.commands.ApplyScriptOffset(1, 8);
    EXPECT_EQ(sample.host.box.SelCharOffset(), 80);
    EXPECT_FLOAT_EQ(sample.host.box.SelFontSize().value(), 7);
}

TEST(ScriptOffset, AMixedSelectionKeepsItsSizes)
{
    Letters sample(10);
    sample.host.box.SetSelCharOffset(20);
    sample.host.box.Select({0, 3});
    sample.commands.ApplyScriptOffset(1, 8);
    EXPECT_EQ(sample.host.box.SelCharOffset(), 80);
    EXPECT_FLOAT_EQ(sample.host.box.SelFontSize().value(), 10);
}

TEST(ScriptOffset, TheBaseIsThatOfTheDocumentsTopAndNotOfTheSelection)
{
    Letters sample(10);
    sample.host.box.SetSelFontSize(40);
    sample.commands.ApplyScriptOffset(1, 8);
    EXPECT_EQ(sample.host.box.SelCharOffset(), 80);
    EXPECT_FLOAT_EQ(sample.host.box.SelFontSize().value(), 7);
}

TEST(ScriptOffset, OnAnEmptySelectionChangesOnlyWhatIsTypedNext)
{
    SampleHost host("ab|c");
    FormatCommands commands(host);
    host.box.SetSelBold(1);  // which stays
    commands.ApplyScriptOffset(1, 8);
    EXPECT_EQ(Dump(host.box), "ab|c");
    EXPECT_FALSE(host.box.CanUndo());
    host.box.Type(u"x");
    EXPECT_EQ(Dump(host.box), "ab<b>x</b>|c");
    host.box.Select({2, 1});
    EXPECT_EQ(host.box.SelCharOffset(), 80);
}

TEST(ScriptOffset, InAnEmptyDocumentTheBaseIsTheSizeAtItsOnlyPlace)
{
    SampleHost host("");
    FormatCommands commands(host);
    host.box.SetSelFontSize(20);
    commands.ApplyScriptOffset(1, 8);
    EXPECT_EQ(host.box.SelCharOffset(), 160);
    EXPECT_FLOAT_EQ(host.box.SelFontSize().value(), 14);
}

TEST(FontSize, RaisedTextStaysReducedAndInStepWithTheSize)
{
    Letters sample(10);
    sample.commands.ApplyScriptOffset(1, 8);
    sample.host.box.Select({0, 3});
    sample.commands.ApplyFontSize(20);
    EXPECT_EQ(Dump(sample.host.box), "^abc|");
    EXPECT_FLOAT_EQ(SizeAt(sample.host.box, 0), 20);
    EXPECT_FLOAT_EQ(SizeAt(sample.host.box, 1), 14);
    sample.host.box.Select({1, 1});
    EXPECT_EQ(sample.host.box.SelCharOffset(), 160);
}

TEST(FontSize, OfTextOnTheLineIsKeptToTheTwip)
{
    Letters sample(10);
    sample.commands.ApplyFontSize(10.15F);
    EXPECT_FLOAT_EQ(sample.host.box.SelFontSize().value(), 10.15F);
}

TEST(FontSize, ThatIsNoNumberIsZeroWhichTheTextRefuses)
{
    Letters sample(12);
    sample.commands.PickFontSize(u"abc", PaintingDuring::IsLocked);
    EXPECT_FLOAT_EQ(sample.host.box.SelFontSize().value(), 12);
    EXPECT_FALSE(sample.host.box.CanUndo());
}

TEST(FontSize, TypedInTheComboLocksThePaintingFromTheListItDoesNot)
{
    Letters sample(12);
    sample.commands.PickFontSize(u" 8", PaintingDuring::IsLocked);
    EXPECT_THAT(sample.host.log, ElementsAre("focus", "no redraw", "redraw", "refresh"));
    EXPECT_FLOAT_EQ(sample.host.box.SelFontSize().value(), 8);
    sample.host.log.clear();
    sample.commands.PickFontSize(u"36", PaintingDuring::GoesOn);
    EXPECT_THAT(sample.host.log, ElementsAre("focus", "refresh"));
}

TEST(FontName, OnAnEmptySelectionIsThatOfWhatIsTypedNext)
{
    SampleHost host("ab|c");
    FormatCommands commands(host);
    BoxFont greek = host.box.Font();
    greek.charset = 161;
    host.box.SetFont(greek);
    commands.PickFontName(u"Courier New");
    EXPECT_EQ(Dump(host.box), "ab|c");
    EXPECT_EQ(host.box.Font().charset, 0);
    host.box.Type(u"x");
    host.box.Select({2, 1});
    EXPECT_EQ(host.box.SelFontName(), u"Courier New");
    host.box.Undo();
    EXPECT_EQ(Dump(host.box), "ab|c");
    EXPECT_FALSE(host.box.CanUndo());
}

TEST(FontColour, GoesOnTheSelectionWithoutABracket)
{
    SampleHost host("ab|c");
    FormatCommands commands(host);
    commands.PickColour(Colour::Of(254, 254, 254));
    EXPECT_FALSE(host.box.CanUndo());
    EXPECT_EQ(host.box.SelColor(), Colour::Of(254, 254, 254));
    EXPECT_THAT(host.log, ElementsAre("focus"));
}

TEST(SetFont, WithoutNameAndSizeOnlyGivesTheFocus)
{
    Letters sample(12);
    sample.commands.SetFont(u"", 0);
    EXPECT_THAT(sample.host.log, ElementsAre("focus"));
    EXPECT_FALSE(sample.host.box.CanUndo());
}

TEST(SetFont, WithASizeAloneChangesOnlyThatAndResetsTheCharacterSet)
{
    Letters sample(10);
    sample.host.charset = 204;
    const auto name = sample.host.box.SelFontName();
    sample.commands.SetFont(u"", 12);
    EXPECT_EQ(sample.host.box.SelFontName(), name);
    EXPECT_FLOAT_EQ(sample.host.box.SelFontSize().value(), 12);
    EXPECT_EQ(sample.host.box.Font().charset, 204);
    EXPECT_THAT(sample.host.log, ElementsAre("focus", "no redraw", "redraw", "refresh"));
    sample.host.box.Undo();
    EXPECT_FALSE(sample.host.box.CanUndo());
}

TEST(FormatCommandsOfAUser, DoNothingWhereHeMayNotFormat)
{
    Letters sample(10);
    sample.host.mayFormat = false;
    sample.commands.PickFontName(u"Courier New");
    sample.commands.PickFontSize(u"36", PaintingDuring::GoesOn);
    sample.commands.PickColour(Colour::Of(255, 0, 0));
    EXPECT_FALSE(sample.host.box.CanUndo());
    EXPECT_THAT(sample.host.log, ElementsAre("focus", "focus", "focus"));
}

TEST(FormatCommandsOfAUser, GoOnWhenTheTextIsGoneInTheMiddle)
{
    Letters sample(10);
    sample.host.box.Change = [&] { sample.host.isGone = true; };
    sample.commands.PickFontSize(u"36", PaintingDuring::IsLocked);
    EXPECT_THAT(sample.host.log, ElementsAre("focus", "no redraw", "redraw", "refresh"));
}

}  // namespace
}  // namespace quillmarker
