#include "control/editor_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>

namespace quillmarker
{
namespace
{

struct SelectRow
{
    int start;
    int finish;
    int startAfter;
    int finishAfter;
    const char* shown;
};

TEST(EditorSelection, SelectTextWritesItsClampsBack)
{
    const SelectRow kRows[] = {
        {5, -1, 5, -1, "01234^56789|"},  {999, 999, 10, 10, "0123456789|"}, {2, 4, 2, 4, "01^23|456789"},
        {8, 999, 8, 10, "01234567^89|"}, {0, 0, 0, 0, "|0123456789"},       {10, -1, 10, -1, "0123456789|"},
    };
    for (const SelectRow& row : kRows)
    {
        RichTextEditor editor;
        Put(editor, "0123456789|");
        int start = row.start;
        int finish = row.finish;
        editor.SelectText(start, finish);
        EXPECT_EQ(start, row.startAfter);
        EXPECT_EQ(finish, row.finishAfter);
        EXPECT_EQ(Shown(editor), row.shown);
    }
}

TEST(EditorSelection, WhatIsRefusedLeavesTheCaretAtTheStart)
{
    RichTextEditor editor;
    Put(editor, "0123456789|");
    int start = 7;
    int finish = 3;
    editor.SelectText(start, finish);
    EXPECT_EQ(Shown(editor), "0123456|789");
    start = -5;
    finish = -3;
    editor.SelectText(start, finish);
    EXPECT_EQ(start, -5);
    EXPECT_EQ(finish, -3);
    EXPECT_EQ(EngineOf(editor).SelStart(), 7);
}

TEST(EditorSelection, TheCursorGoesToBothEnds)
{
    RichTextEditor editor;
    Put(editor, "a^b\nc|d\n");
    editor.CursorEnd();
    EXPECT_EQ(Shown(editor), "ab\ncd\n|");
    editor.CursorStart();
    EXPECT_EQ(Shown(editor), "|ab\ncd\n");
}

TEST(EditorSelection, DeleteTakesOnlyWhatIsSelected)
{
    RichTextEditor editor;
    Put(editor, "a^b|c");
    QSignalSpy changes(&editor, &RichTextEditor::Change);
    editor.Delete();
    EXPECT_EQ(Shown(editor), "a|c");
    editor.Delete();
    EXPECT_EQ(Shown(editor), "a|c");
    EXPECT_EQ(changes.count(), 1);
}

TEST(EditorInsertion, GoesToTheCaretOrToTheMarkerBehindIt)
{
    RichTextEditor editor;
    Put(editor, "[M] x ^old| [m] y");
    EXPECT_EQ(editor.InsertStringRTF(QStringLiteral("{\\rtf1 n{\\b ew}}"), {}), 9);
    EXPECT_EQ(Shown(editor), "[M] x n<b>ew</b>| [m] y");
    EXPECT_EQ(editor.InsertStringText(QStringLiteral("abc"), QStringLiteral("[M]")), 13);
    EXPECT_EQ(Shown(editor), "[M] x n<b>ew</b> abc| y");
    const QString before = editor.RTFString();
    EXPECT_EQ(editor.InsertStringText(QStringLiteral("abc"), QStringLiteral("[M]")), -1);
    EXPECT_EQ(editor.RTFString(), before);
}

TEST(EditorInsertion, OfHiddenTextIsInTheSourceBetweenItsSwitchesAndInTheBackgroundsColour)
{
    RichTextEditor editor;
    const QColor paper(255, 250, 240);
    EngineOf(editor).SetBackColor(paper);
    Put(editor, "ab|cd");
    EXPECT_EQ(editor.InsertStringHidden(QStringLiteral("123"), QStringLiteral("-")), 6);
    EXPECT_EQ(Shown(editor), "ab<h>123</h>-|cd");
    EXPECT_THAT(editor.RTFString().toStdString(), testing::ContainsRegex(R"(\\v 123[^ ]*\\v0 )"));
    EngineOf(editor).SelectFromTo(2, 5);
    EXPECT_EQ(EngineOf(editor).SelColor().value<QColor>(), paper);
}

TEST(EditorInsertion, OfAFileThatIsMissingInsertsNothingAndIsNegative)
{
    RichTextEditor editor;
    Put(editor, "a^b|");
    EXPECT_LT(editor.InsertFileRTF(QStringLiteral("/nowhere/at all.rtf"), {}), 0);
    EXPECT_EQ(Shown(editor), "a^b|");
    EXPECT_FALSE(editor.Changed());
}

}  // namespace
}  // namespace quillmarker
