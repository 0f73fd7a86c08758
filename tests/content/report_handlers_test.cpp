#include "content/report_sample.h"
#include "engine/box/file_store_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

void Fail() { throw std::runtime_error("a host's handler"); }

TEST(ReportChange, SeesChangedAsItWasBefore)
{
    Report report;
    std::vector<bool> seen;
    report.Change = [&] { seen.push_back(report.Changed()); };
    report.InsertStringText(u"a", u"");
    EXPECT_TRUE(report.Changed());
    report.InsertStringText(u"b", u"");
    report.SetChanged(false);
    report.InsertStringText(u"c", u"");
    EXPECT_THAT(seen, testing::ElementsAre(false, true, false));
}

TEST(ReportChange, SeesTheDocumentAndTheSelectionAfterTheEdit)
{
    Report report;
    Fill(report.Box(), u"a^b|c");
    std::string seen;
    report.Change = [&] { seen = Shown(report); };
    report.InsertStringRTF(u"{\\rtf1 {\\b X}}", u"");
    EXPECT_EQ(seen, "a*X|c");
}

TEST(ReportChange, SeesTheSnapshotThatItsOwnChangeIsAboutToDrop)
{
    Report report;
    report.SetRedraw(true);
    int seen = -2;
    report.Change = [&] { seen = report.UndoSelStart(); };
    report.InsertStringText(u"a", u"");
    EXPECT_EQ(seen, 0);
    EXPECT_EQ(report.UndoSelStart(), -1);
}

TEST(ReportChange, IsRaisedOnceAnEditAndNotForACaret)
{
    Report report;
    int changes = 0;
    report.Change = [&] { ++changes; };
    report.InsertStringText(u"abc [m]", u"");
    EXPECT_EQ(changes, 1);
    report.CursorStart();
    report.InsertStringText(u"x", u"[m]");
    EXPECT_EQ(changes, 2);
    report.CursorEnd();
    report.PreviousField(u"<", u">", true);
    EXPECT_EQ(changes, 2);
    report.Clear();
    EXPECT_EQ(changes, 3);
}

TEST(ReportChange, AHandlerThatClearsChangedIsOverruled)
{
    Report report;
    report.Change = [&] { report.SetChanged(false); };
    report.InsertStringText(u"a", u"");
    EXPECT_TRUE(report.Changed());
}

TEST(ReportChange, AHandlerMayCallBackIn)
{
    Report report;
    int depth = 0;
    report.Change = [&] {
        if (depth++ == 0)
            report.InsertStringText(u"2", u"");
    };
    EXPECT_EQ(report.InsertStringText(u"1", u""), 2);
    EXPECT_EQ(Shown(report), "12|");
    EXPECT_EQ(depth, 2);
    EXPECT_TRUE(report.Changed());
}

TEST(ReportChange, AHandlerMayReplaceOrRemoveItself)
{
    Report report;
    int changes = 0;
    report.Change = [&] {
        ++changes;
        report.Change = nullptr;
    };
    report.InsertStringText(u"a", u"");
    report.InsertStringText(u"b", u"");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(Shown(report), "ab|");
}

TEST(ReportChange, AHandlerThatThrowsSkipsNothing)
{
    Report report;
    report.SetRedraw(true);
    report.Change = Fail;
    EXPECT_EQ(report.InsertStringText(u"ab", u""), 2);
    EXPECT_TRUE(report.Changed());
    EXPECT_EQ(report.UndoSelStart(), -1);
    EXPECT_EQ(report.InsertStringRTF(u"{\\rtf1 {\\b c}}", u""), 3);
    EXPECT_EQ(report.InsertStringHidden(u"/1/", u"!"), 7);
    EXPECT_EQ(Shown(report), "ab*c*~/*~1*~/*!|");
    report.Clear();
    EXPECT_EQ(Shown(report), "|");
    report.Undo();
    EXPECT_EQ(Shown(report), "ab*c*~/*~1*~/*!|");
}

TEST(ReportHandlers, AWindowInWhichEverythingFailsStopsNothing)
{
    Report report;
    FailingHooks hooks;
    report.SetHooks(&hooks);
    report.SetDefaultCharset(238);
    EXPECT_EQ(report.InsertStringText(u"ab <c> d", u""), 8);
    EXPECT_EQ(report.InsertStringRTF(u"{\\rtf1 {\\b e}}", u""), 9);
    EXPECT_EQ(report.Box().Font().charset, 238);
    EXPECT_EQ(report.InsertStringHidden(u"/1/", u""), 12);
    EXPECT_EQ(report.PreviousField(u"<", u">", false), u"c");
    EXPECT_TRUE(report.Redraw());
    report.SetRedraw(false);
    EXPECT_FALSE(report.Redraw());
    EXPECT_EQ(report.UndoSelStart(), 12);
    report.SetRedraw(true);
    EXPECT_TRUE(report.Redraw());
    EXPECT_EQ(report.TextString(), u"ab <c> de/1/");
    report.Clear();
    EXPECT_EQ(report.TextString(), u"");
    report.Undo();
    report.CursorStart();
    EXPECT_EQ(Shown(report), "|ab <c> d*e*~/*~1*~/");
}

TEST(ReportHandlers, ARefreshMayMoveTheCaretAndTheResultIsFromBefore)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    hooks.also = [&](std::string_view call) {
        if (call == "refresh")
            report.Box().SetSelStart(0);
    };
    EXPECT_EQ(report.InsertStringText(u"abc", u""), 3);
    EXPECT_EQ(Shown(report), "|abc");
}

TEST(ReportHandlers, NoHooksAreTheOnesThatDoNothing)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    report.SetHooks(nullptr);
    EXPECT_EQ(report.InsertStringText(u"a", u""), 1);
    EXPECT_THAT(hooks.calls, testing::IsEmpty());
}

TEST(ReportHandlers, ASelectionHandlerThatThrowsSkipsNoStep)
{
    Report report;
    Fill(report.Box(), u"|ab [m].cd");
    report.Box().SelChange = Fail;
    EXPECT_EQ(report.InsertStringText(u"X", u"[m]"), 4);
    EXPECT_EQ(Shown(report), "ab X|.cd");
    EXPECT_EQ(report.InsertStringHidden(u"/1/", u"!"), 8);
    EXPECT_EQ(Shown(report), "ab X~/~1~/!|.cd");
    EXPECT_EQ(report.PreviousField(u"ab", u"X", true), u"");
    int start = 1;
    int finish = 3;
    report.SelectText(start, finish);
    EXPECT_EQ(Shown(report), "a^b |X~/~1~/!.cd");
}

using ReportHandlersAndFiles = FileStore;

TEST_F(ReportHandlersAndFiles, ThatThrowDoNotMakeAnOpeningFail)
{
    Report report;
    FailingHooks hooks;
    Fill(report.Box(), u"ab|");
    report.SetHooks(&hooks);
    report.Change = Fail;
    EXPECT_EQ(report.OpenFileRTF(Made("a.rtf", "{\\rtf1 new}")), 0);
    EXPECT_EQ(Shown(report), "|new");
    EXPECT_FALSE(report.Changed());
    EXPECT_EQ(report.SaveFileRTF(In("b.rtf")), 0);
}

TEST_F(ReportHandlersAndFiles, ASelectionHandlerThatThrowsDoesNotMakeAnOpeningFail)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.Box().SelChange = Fail;
    EXPECT_EQ(report.OpenFileRTF(Made("a.rtf", "{\\rtf1 new}")), 0);
    EXPECT_EQ(Shown(report), "|new");
    EXPECT_FALSE(report.Changed());
    EXPECT_EQ(report.UndoSelStart(), -1);
    EXPECT_FALSE(report.Box().CanUndo());
}

}  // namespace
}  // namespace quillmarker
