#include "control/editor_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace quillmarker
{
namespace
{

/// A shown control, and a folder for files.
class EditorFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        ShowForTyping(m_editor);
        Put(m_editor, "ab|c");
    }

    QString Named(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    QString Written(const char* name, const QByteArray& bytes) const
    {
        QFile file(Named(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }

    QTemporaryDir m_folder;
    RichTextEditor m_editor;
};

TEST_F(EditorFiles, AMissingFileIsAPositiveNumberAndTheDocumentStays)
{
    QTest::keyClicks(EngineOf(m_editor).viewport(), QStringLiteral("x"));
    EXPECT_EQ(m_editor.OpenFileRTF(Named("none.rtf")), 53);
    EXPECT_EQ(m_editor.OpenFileText(Named("none.txt")), 53);
    EXPECT_EQ(Shown(m_editor), "abx|c");
    EXPECT_TRUE(m_editor.Changed());
}

TEST_F(EditorFiles, AnEmptyFileEmptiesTheDocument)
{
    EXPECT_EQ(m_editor.OpenFileRTF(Written("empty.rtf", "")), 0);
    EXPECT_EQ(m_editor.TextString(), QString());
    Put(m_editor, "ab|c");
    EXPECT_EQ(m_editor.OpenFileText(Written("empty.txt", "")), 0);
    EXPECT_EQ(m_editor.TextString(), QString());
}

TEST_F(EditorFiles, WhatIsNoRtfIsItsText)
{
    EXPECT_EQ(m_editor.OpenFileRTF(Written("plain.rtf", "plain text")), 0);
    EXPECT_EQ(m_editor.TextString(), QStringLiteral("plain text"));
}

TEST_F(EditorFiles, OpeningTellsOfAChangeAndLeavesNone)
{
    int changes = 0;
    QObject::connect(&m_editor, &RichTextEditor::Change, [&] { ++changes; });
    std::vector<QString> log;
    EditorState::Of(m_editor).parts = std::make_unique<RecordingParts>(log);
    QWidget other;
    other.setFocus();
    EXPECT_EQ(m_editor.OpenFileRTF(Written("bold.rtf", "{\\rtf1{\\b x}\\par}")), 0);
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(m_editor.Changed());
    EXPECT_TRUE(EngineOf(m_editor).hasFocus());
    EXPECT_THAT(log, testing::Contains(QStringLiteral("character buttons")));
    EXPECT_EQ(Shown(m_editor), "|<b>x</b>");
    EditorState::Of(m_editor).parts = std::make_unique<ControlParts>();
}

TEST_F(EditorFiles, AfterOpeningUndoHasNoSnapshotToGoBackTo)
{
    m_editor.SetRedraw(false);
    m_editor.InsertStringText(QStringLiteral("x"), {});
    EXPECT_EQ(m_editor.OpenFileText(Written("new.txt", "new")), 0);
    m_editor.Undo();
    EXPECT_EQ(m_editor.TextString(), QStringLiteral("new"));
    m_editor.SetRedraw(true);
}

TEST_F(EditorFiles, SavedAndOpenedADocumentIsTheSame)
{
    Put(m_editor, "a<b>b</b>\nc|");
    QTest::keyClicks(EngineOf(m_editor).viewport(), QStringLiteral("d"));
    EXPECT_TRUE(m_editor.Changed());
    EXPECT_EQ(m_editor.SaveFileRTF(Named("saved.rtf")), 0);
    EXPECT_FALSE(m_editor.Changed());
    m_editor.Clear();
    EXPECT_EQ(m_editor.OpenFileRTF(Named("saved.rtf")), 0);
    EXPECT_EQ(Shown(m_editor), "|a<b>b</b>\ncd");
}

TEST_F(EditorFiles, SavingIntoAMissingFolderLeavesTheChangeUnsaved)
{
    QTest::keyClicks(EngineOf(m_editor).viewport(), QStringLiteral("x"));
    EXPECT_EQ(m_editor.SaveFileRTF(Named("none/saved.rtf")), 76);
    EXPECT_TRUE(m_editor.Changed());
}

TEST_F(EditorFiles, AFileIsInsertedAtItsMarker)
{
    Put(m_editor, "|a [M] b");
    EXPECT_EQ(m_editor.InsertFileRTF(Written("part.rtf", "{\\rtf1{\\b xy}}"), QStringLiteral("[m]")), 4);
    EXPECT_EQ(Shown(m_editor), "a <b>xy</b>| b");
    EXPECT_EQ(m_editor.InsertFileRTF(Named("none.rtf"), {}), -53);
    m_editor.CursorStart();
    EXPECT_EQ(m_editor.InsertFileRTF(Written("empty.rtf", ""), {}), 0);
    EXPECT_EQ(m_editor.InsertFileRTF(Named("part.rtf"), QStringLiteral("[M]")), -1);
    EXPECT_EQ(Shown(m_editor), "|a <b>xy</b> b");
}

TEST_F(EditorFiles, AFieldIsReadBackBetweenItsEnds)
{
    Put(m_editor, "a {b1} c {d} e|");
    const auto field = [&](const char* prefix) {
        return m_editor.PreviousField(QLatin1String(prefix), QStringLiteral("}"), false);
    };
    EXPECT_EQ(field("{"), QStringLiteral("d"));
    m_editor.CursorStart();
    EXPECT_EQ(field("{"), QStringLiteral("d"));
    EXPECT_EQ(field(""), QString());
    EXPECT_TRUE(m_editor.Redraw());
}

}  // namespace
}  // namespace quillmarker
