#include "content/report_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;

TEST(Redraw, IsFalseAtFirst)
{
    const Report report;
    EXPECT_FALSE(report.Redraw());
    EXPECT_FALSE(report.Changed());
}

TEST(Redraw, PutToFalseTakesTheSnapshotThenLocksThenIsFalseThenTells)
{
    Report report;
    report.SetRedraw(true);
    Fill(report.Box(), u"ab|");
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    std::vector<std::string> states;
    hooks.also = [&](std::string_view) {
        states.push_back(std::to_string(report.UndoSelStart()) + (report.Redraw() ? " true" : " false"));
    };
    report.SetRedraw(false);
    EXPECT_THAT(hooks.Taken(), ElementsAre("lock", "changed Redraw"));
    EXPECT_THAT(states, ElementsAre("2 true", "2 false"));
}

TEST(Redraw, PutToTrueUnlocksThenIsTrueThenTells)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    std::vector<bool> states;
    hooks.also = [&](std::string_view) { states.push_back(report.Redraw()); };
    report.SetRedraw(true);  // without a false before it
    EXPECT_THAT(hooks.Taken(), ElementsAre("unlock", "changed Redraw"));
    EXPECT_THAT(states, ElementsAre(false, true));
    EXPECT_EQ(report.UndoSelStart(), 0);  // takes no snapshot and drops none
}

TEST(Redraw, TheSameValueAgainIsWrittenAgain)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    report.SetRedraw(false);
    Fill(report.Box(), u"ab|");
    report.SetRedraw(false);
    EXPECT_THAT(hooks.Taken(), ElementsAre("lock", "changed Redraw", "lock", "changed Redraw"));
    EXPECT_EQ(report.UndoSelStart(), 2);
}

TEST(Redraw, ABracketIsOneStep)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.SetRedraw(false);
    report.InsertStringText(u"1", u"");
    report.InsertStringHidden(u"/h/", u"\r\n");
    report.InsertStringRTF(u"{\\rtf1 {\\b 2}}", u"");
    report.SetRedraw(true);
    const std::string after = Shown(report);
    report.Box().Undo();
    EXPECT_EQ(Shown(report), "ab|");
    report.Box().Redo();
    EXPECT_EQ(Shown(report), after);
}

TEST(Redraw, ABracketPutToFalseTwiceEndsWithOneTrue)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.SetRedraw(false);
    report.InsertStringText(u"1", u"");
    report.SetRedraw(false);
    report.InsertStringText(u"2", u"");
    report.SetRedraw(true);
    report.Box().SetSelText(u"3");
    report.Box().Undo();
    EXPECT_EQ(Shown(report), "ab12|");
    report.Box().Undo();
    EXPECT_EQ(Shown(report), "ab|");
}

TEST(Redraw, ABracketThatLeavesTheDocumentEqualIsNoStep)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.Box().ClearHistory();
    report.SetRedraw(false);
    report.InsertStringText(u"1", u"");
    report.Box().SetSelStart(2);
    report.Box().SetSelLength(1);
    report.Box().SetSelText(u"");
    report.SetRedraw(true);
    EXPECT_FALSE(report.Box().CanUndo());
    report.SetRedraw(false);
    report.SetRedraw(true);
    EXPECT_FALSE(report.Box().CanUndo());
}

TEST(Redraw, AnEmptyBracketLeavesWhatCanBeRedone)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.Box().Undo();
    report.SetRedraw(false);
    report.SetRedraw(true);
    EXPECT_TRUE(report.Box().CanRedo());
    report.Box().Redo();
    EXPECT_EQ(Shown(report), "ab|");
}

TEST(Redraw, PreviousFieldEndsTheBracket)
{
    Report report;
    report.SetRedraw(false);
    report.InsertStringText(u"1", u"");
    report.PreviousField(u"<", u">", false);
    report.Box().SetSelText(u"2");
    report.Box().Undo();
    EXPECT_EQ(Shown(report), "1|");
    report.Box().Undo();
    EXPECT_EQ(Shown(report), "|");
}

TEST(Redraw, ABracketLeavesTheInsertionFormat)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.SetRedraw(false);
    report.Box().SetSelBold(1);
    report.SetRedraw(true);
    report.Box().Type(u"c");
    EXPECT_EQ(Shown(report), "ab*c|");
}

}  // namespace
}  // namespace quillmarker
