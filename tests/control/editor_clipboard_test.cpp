#include "control/clipboard_cleaning.h"
#include "control/editor_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMimeData>

namespace quillmarker
{
namespace
{

const auto kCtrl = Qt::ControlModifier;
const QString kHtml = QStringLiteral("text/html");
const QString kImage = QStringLiteral("application/x-qt-image");

/// The program's own clipboard, and a control with a sample in it.
class EditorClipboard : public testing::Test
{
protected:
    void SetUp() override
    {
        ShowForTyping(m_editor);
        QApplication::clipboard()->setText(QStringLiteral("before"));
    }

    static const QMimeData& Board() { return *QApplication::clipboard()->mimeData(); }
    static QString PlainText() { return TextOf(*MakeQtClipboard(), kClipboardText); }
    static QString RichText() { return TextOf(*MakeQtClipboard(), kClipboardRichText); }
    /// The clean-up leaves rich text and plain text only; what the text itself puts there has HTML beside them.
    static bool IsRewritten() { return !Board().hasFormat(kHtml); }
    static std::string Pasted()
    {
        SampleBox box("|");
        box.PasteRTFBytes(RichText().toStdString());
        return DumpSample(box.Value());
    }
    void KeyCopy() { QTest::keyClick(EngineOf(m_editor).viewport(), Qt::Key_C, kCtrl); }

    RichTextEditor m_editor;
};

TEST_F(EditorClipboard, CopyRewritesFromTwoCharactersOn)
{
    Put(m_editor, "a^b|c");
    m_editor.Copy();
    EXPECT_FALSE(IsRewritten());
    EXPECT_EQ(PlainText(), QStringLiteral("b"));
    Put(m_editor, "a^bc|");
    m_editor.Copy();
    EXPECT_TRUE(IsRewritten());
    EXPECT_EQ(PlainText(), QStringLiteral("bc"));
    EXPECT_EQ(Shown(m_editor), "a^bc|");
}

TEST_F(EditorClipboard, CutRewritesFromOneCharacterOn)
{
    Put(m_editor, "a^b|c");
    m_editor.Cut();
    EXPECT_TRUE(IsRewritten());
    EXPECT_EQ(PlainText(), QStringLiteral("b"));
    EXPECT_EQ(Shown(m_editor), "a|c");
}

TEST_F(EditorClipboard, TheKeyRewritesFromOneCharacterOn)
{
    Put(m_editor, "a^b|c");
    KeyCopy();
    EXPECT_TRUE(IsRewritten());
    EXPECT_EQ(PlainText(), QStringLiteral("b"));
}

TEST_F(EditorClipboard, NothingSelectedLeavesTheClipboard)
{
    Put(m_editor, "ab|c");
    m_editor.Copy();
    m_editor.Cut();
    m_editor.Delete();
    EXPECT_EQ(PlainText(), QStringLiteral("before"));
    EXPECT_EQ(Shown(m_editor), "ab|c");
}

TEST_F(EditorClipboard, MarkersStayBehindInBothFormats)
{
    using Command = void (RichTextEditor::*)();
    for (const Command command : {&RichTextEditor::Copy, &RichTextEditor::Cut})
    {
        Put(m_editor, "^ab/h/12/<b>cd</b>|");
        (m_editor.*command)();
        EXPECT_EQ(PlainText(), QStringLiteral("abcd"));
        EXPECT_FALSE(RichText().contains(QStringLiteral("/h/")));
        EXPECT_EQ(Pasted(), "ab<b>cd</b>");
    }
    Put(m_editor, "^ab<h>/h/12/</h>cd|");
    m_editor.Copy();
    EXPECT_EQ(Pasted(), "abcd");
    EXPECT_EQ(Shown(m_editor), "^ab<h>/h/12/</h>cd|");
}

TEST_F(EditorClipboard, WhatIsNoMarkerGoesAlong)
{
    Put(m_editor, "^/h/123456789012345678/ and /h/1/x|");
    m_editor.Copy();
    EXPECT_EQ(PlainText(), QStringLiteral("/h/123456789012345678/ and x"));
}

TEST_F(EditorClipboard, APictureAloneLosesItsImageWhenItIsRewritten)
{
    Put(m_editor, "a^<pic/>|b");
    m_editor.Copy();
    EXPECT_TRUE(Board().hasFormat(kImage));
    KeyCopy();
    EXPECT_FALSE(Board().hasImage());
    EXPECT_FALSE(Board().hasText());
    EXPECT_EQ(Pasted(), "<pic/>");
}

TEST_F(EditorClipboard, WithoutRichTextNothingIsRewritten)
{
    auto* data = new QMimeData;
    data->setText(QStringLiteral("a/h/1/b"));
    data->setData(QStringLiteral("application/x-other"), "other");
    QApplication::clipboard()->setMimeData(data);
    const std::unique_ptr<ClipboardService> clipboard = MakeQtClipboard();
    CleanClipboard(*clipboard, *MakeQtPendingEvents());
    EXPECT_EQ(PlainText(), QStringLiteral("a/h/1/b"));
    EXPECT_EQ(Board().data(QStringLiteral("application/x-other")), QByteArray("other"));
}

TEST_F(EditorClipboard, PasteTakesWhatCutLeft)
{
    Put(m_editor, "a^b<b>c</b>|d");
    m_editor.Cut();
    m_editor.CursorEnd();
    m_editor.Paste();
    EXPECT_EQ(Shown(m_editor), "adb<b>c</b>|");
}

TEST_F(EditorClipboard, WhatIsProtectedIsNotCut)
{
    Put(m_editor, "a^<p>b</p>|c");
    m_editor.Cut();
    EXPECT_EQ(Shown(m_editor), "a^<p>b</p>|c");
    EXPECT_EQ(PlainText(), QStringLiteral("before"));
}

/// A clipboard of a host's.
class OwnClipboard : public ClipboardService
{
public:
    const QMimeData* Content() const override { return m_content.get(); }
    void SetContent(std::unique_ptr<QMimeData> content) override { m_content = std::move(content); }
    void Clear() override { m_content.reset(); }
    bool IsOwn() const override { return true; }

private:
    std::unique_ptr<QMimeData> m_content;
};

TEST_F(EditorClipboard, OfTheHostIsUsedInsteadOfTheMachines)
{
    PlatformServices services;
    const auto own = std::make_shared<OwnClipboard>();
    services.clipboard = own;
    RichTextEditor editor(services);
    Put(editor, "^ab/h/12/cd|");
    editor.Copy();
    EXPECT_EQ(TextOf(*own), QStringLiteral("abcd"));
    editor.Paste();
    EXPECT_EQ(Shown(editor), "abcd|");
    EXPECT_EQ(PlainText(), QStringLiteral("before"));
}

TEST_F(EditorClipboard, WhatIsDraggedAwayLeavesItsMarkersBehind)
{
    Put(m_editor, "^ab<h>/h/12/</h>cd|");
    // What a drag carries is what the view itself copies.
    EngineOf(m_editor).RichTextView::Copy();
    EXPECT_FALSE(IsRewritten());
    EXPECT_EQ(Pasted(), "abcd");
}

}  // namespace
}  // namespace quillmarker
