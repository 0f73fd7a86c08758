#include "control/editor_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace quillmarker
{
namespace
{

void Type(RichTextEditor& editor, const char* text)
{
    QTest::keyClicks(EngineOf(editor).viewport(), QString::fromUtf8(text));
}

TEST(EditorUndo, OnANewControlEmptiesTheDocument)
{
    RichTextEditor editor;
    ShowForTyping(editor);
    Type(editor, "abc");
    ASSERT_EQ(Shown(editor), "abc|");
    editor.Undo();
    EXPECT_EQ(Shown(editor), "|");
    editor.Undo();
    EXPECT_EQ(Shown(editor), "abc|");
}

TEST(EditorUndo, RightAfterClearRestoresTheDocumentAndTheSelectionAndThenEmptiesItAgain)
{
    RichTextEditor editor;
    Put(editor, "a<b>b^c</b>d|e\nf");
    const QString before = editor.RTFString();
    editor.Clear();
    EXPECT_EQ(Shown(editor), "|");
    editor.Undo();
    EXPECT_EQ(editor.RTFString(), before);
    EXPECT_EQ(Shown(editor), "a<b>b^c</b>d|e\nf");
    editor.Undo();
    EXPECT_EQ(Shown(editor), "|");
    editor.Undo();
    EXPECT_EQ(editor.RTFString(), before);
}

TEST(EditorUndo, OfABracketGoesToAndFro)
{
    RichTextEditor editor;
    Put(editor, "a |");
    editor.SetRedraw(false);
    editor.InsertStringText(QStringLiteral("b "), {});
    editor.InsertStringRTF(QStringLiteral("{\\rtf1 {\\b c}}"), {});
    editor.SetRedraw(true);
    ASSERT_EQ(Shown(editor), "a b <b>c</b>|");
    // What the last insertion replaced is what comes back.
    editor.Undo();
    EXPECT_EQ(Shown(editor), "a b |");
    editor.Undo();
    EXPECT_EQ(Shown(editor), "a b <b>c</b>|");
}

TEST(EditorUndo, AfterTypingIsTheTextsOwn)
{
    RichTextEditor editor;
    ShowForTyping(editor);
    editor.SetRedraw(true);
    Put(editor, "one |");
    Type(editor, "two");
    QTest::keyClick(EngineOf(editor).viewport(), Qt::Key_Left);
    Type(editor, "x");
    editor.Undo();
    EXPECT_EQ(Shown(editor), "one tw|o");
    editor.Undo();
    EXPECT_EQ(Shown(editor), "one |");
    editor.Undo();
    EXPECT_EQ(Shown(editor), "one |");
}

TEST(EditorUndo, AChangeWhileRedrawIsTrueDropsTheSnapshotAndOneWhileItIsFalseKeepsIt)
{
    RichTextEditor editor;
    ShowForTyping(editor);
    const Report& report = *EditorState::Of(editor).report;
    editor.SetRedraw(false);
    Type(editor, "a");
    EXPECT_EQ(report.UndoSelStart(), 0);
    editor.SetRedraw(true);
    EXPECT_EQ(report.UndoSelStart(), 0);
    Type(editor, "b");
    EXPECT_EQ(report.UndoSelStart(), -1);
}

TEST(EditorUndo, OfTheEngineObjectIsTheControls)
{
    RichTextEditor editor;
    Put(editor, "abc|");
    editor.Clear();
    QMetaObject::invokeMethod(editor.RTFObj(), "Undo");
    EXPECT_EQ(Shown(editor), "abc|");
}

TEST(EditorUndo, AfterOpeningAFileHasNothingToGoBackTo)
{
    RichTextEditor editor;
    Put(editor, "before|");
    editor.Clear();
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("saved.rtf"));
    Put(editor, "sa<b>ve</b>d|");
    ASSERT_EQ(editor.SaveFileRTF(path), 0);
    editor.Clear();
    ASSERT_EQ(editor.OpenFileRTF(path), 0);
    editor.Undo();
    EXPECT_EQ(Shown(editor), "|sa<b>ve</b>d");
}

}  // namespace
}  // namespace quillmarker
