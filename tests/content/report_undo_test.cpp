#include "content/report_sample.h"
#include "engine/box/file_store_sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

TEST(ReportUndo, AtFirstItEmptiesTheDocument)
{
    Report report;
    EXPECT_EQ(report.UndoSelStart(), 0);
    EXPECT_EQ(report.UndoSelLength(), 0);
    EXPECT_EQ(report.UndoRTF(), u"");
    Fill(report.Box(), u"abc|d");
    report.Undo();
    EXPECT_EQ(Shown(report), "|");
    report.Undo();
    EXPECT_EQ(Shown(report), "abc|d");
}

TEST(ReportUndo, GoesToAndFroBetweenTwoStates)
{
    Report report;
    Fill(report.Box(), u"a^b|c");
    report.InsertStringRTF(u"{\\rtf1 {\\b X}Y}", u"");
    for (int round = 0; round < 3; ++round)
    {
        EXPECT_EQ(Shown(report), "a*XY|c");
        report.Undo();
        EXPECT_EQ(Shown(report), "a^b|c");
        EXPECT_TRUE(report.Redraw());
        report.Undo();
    }
}

TEST(ReportUndo, TheSnapshotIsDroppedByAChangeWhileRedrawIsTrue)
{
    Report report;
    report.SetRedraw(true);
    Fill(report.Box(), u"abc|");
    EXPECT_EQ(report.UndoSelStart(), -1);
    report.InsertStringText(u"d", u"");
    EXPECT_EQ(report.UndoSelStart(), -1);  // taken, then dropped by its own insertion
    report.SaveUndoSnapshot();
    report.Box().SetSelStart(0);
    EXPECT_EQ(report.UndoSelStart(), 4);  // a caret is no change
}

TEST(ReportUndo, TheSnapshotSurvivesAChangeWhileRedrawIsFalse)
{
    Report report;
    EXPECT_FALSE(report.Redraw());
    Fill(report.Box(), u"abc|");
    report.SaveUndoSnapshot();
    report.Box().SetSelText(u"d");
    EXPECT_EQ(report.UndoSelStart(), 3);
    report.SetRedraw(true);
    report.SetRedraw(false);
    report.Box().SetSelText(u"e");
    EXPECT_EQ(report.UndoSelStart(), 4);
    report.SetRedraw(true);
    EXPECT_EQ(report.UndoSelStart(), 4);
    report.Box().SetSelText(u"f");
    EXPECT_EQ(report.UndoSelStart(), -1);
}

TEST(ReportUndo, RestoresTheLatestOfSeveralSnapshots)
{
    Report report;
    Fill(report.Box(), u"abc|");
    report.SetRedraw(true);
    report.SetRedraw(false);
    report.InsertStringText(u"1", u"");
    report.InsertStringHidden(u"/h/", u"");
    report.InsertStringText(u"2", u"");
    report.SetRedraw(true);
    report.Undo();
    EXPECT_EQ(Shown(report), "abc1~/~h~/|");
}

TEST(ReportUndo, PreviousFieldMakesTheNextChangeDropTheSnapshot)
{
    Report report;
    Fill(report.Box(), u"abc|");
    report.SaveUndoSnapshot();
    report.PreviousField(u"<", u">", false);
    EXPECT_EQ(report.UndoSelStart(), 3);
    report.Box().SetSelText(u"d");
    EXPECT_EQ(report.UndoSelStart(), -1);
}

TEST(ReportUndo, AfterClearBringsTheDocumentBackAndThenEmptiesItAgain)
{
    Report report;
    report.Box().SetTextRTF(u"{\\rtf1 a{\\b bc}\\par\\qc d}");
    report.Box().SetSelStart(1);
    report.Box().SetSelLength(2);
    const Document before = report.Box().Value();
    report.Clear();
    EXPECT_EQ(Shown(report), "|");
    report.Undo();
    EXPECT_EQ(Shown(report), "a^*b*c|\r\nd");
    EXPECT_TRUE(SameContent(report.Box().Value(), before));
    report.Undo();
    EXPECT_EQ(Shown(report), "|");
}

TEST(ReportUndo, AfterTypingIsTheBoxesOwn)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.SetRedraw(true);
    report.Box().Type(u"c");
    report.Box().Type(u"d");
    report.Undo();
    EXPECT_EQ(Shown(report), "ab|");
    EXPECT_TRUE(report.Box().CanRedo());
    report.Undo();  // the box goes on back, it does not toggle
    EXPECT_EQ(Shown(report), "|");
}

TEST(ReportUndo, WithNothingToUndoDoesNothing)
{
    Report report;
    report.DropUndoSnapshot();
    report.Undo();
    EXPECT_EQ(Shown(report), "|");
    EXPECT_FALSE(report.Changed());
}

TEST(ReportUndo, OfTheBoxLeavesRedrawAloneAndTheSnapshotsSetsIt)
{
    Report report;
    report.DropUndoSnapshot();
    Fill(report.Box(), u"ab|");
    report.Undo();
    EXPECT_FALSE(report.Redraw());
    report.SaveUndoSnapshot();
    report.Undo();
    EXPECT_TRUE(report.Redraw());
}

TEST(ReportUndo, TheSnapshotsSourceIsTheDocumentAsItWas)
{
    Report report;
    report.Box().SetTextRTF(u"{\\rtf1 a{\\b b}c}");
    const std::u16string before = report.Box().TextRTF();
    report.SaveUndoSnapshot();
    report.Box().SetText(u"other");
    EXPECT_EQ(report.UndoRTF(), before);
    EXPECT_NE(report.UndoRTF(), report.Box().TextRTF());
}

TEST(ReportUndo, IsAChangeOfTheDocument)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.SetChanged(false);
    int changes = 0;
    report.Change = [&] { ++changes; };
    report.Undo();
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(report.Changed());
}

TEST(ReportUndo, ItselfIsOneStepOfTheBoxesHistory)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.Undo();
    EXPECT_EQ(Shown(report), "|");
    report.Box().Undo();
    EXPECT_EQ(Shown(report), "ab|");
    report.Box().Undo();
    EXPECT_EQ(Shown(report), "|");
    EXPECT_FALSE(report.Box().CanUndo());
}

using ReportUndoAndFiles = FileStore;

TEST_F(ReportUndoAndFiles, OpeningDropsTheSnapshotAndTheHistory)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.SaveUndoSnapshot();
    EXPECT_EQ(report.OpenFileRTF(Made("a.rtf", "{\\rtf1 new}")), 0);
    EXPECT_EQ(report.UndoSelStart(), -1);
    report.Undo();
    EXPECT_EQ(Shown(report), "|new");
}

TEST_F(ReportUndoAndFiles, AFailedOpeningLeavesTheSnapshot)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.SaveUndoSnapshot();
    EXPECT_NE(report.OpenFileRTF(In("none.rtf")), 0);
    EXPECT_EQ(report.UndoSelStart(), 2);
}

}  // namespace
}  // namespace quillmarker
