#include "control/editor_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QMainWindow>
#include <QSignalSpy>

namespace quillmarker
{
namespace
{

const auto kCtrl = Qt::ControlModifier;
const auto kShift = Qt::ShiftModifier;

/// A control with the keyboard, and the clipboard of the program.
class EditorKeys : public testing::Test
{
protected:
    void SetUp() override { ShowForTyping(m_editor); }

    QWidget* Surface() { return EngineOf(m_editor).viewport(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(Surface(), key, modifiers); }
    void Type(const char* text) { QTest::keyClicks(Surface(), QString::fromUtf8(text)); }
    static void PutOnClipboard(const char* text) { QApplication::clipboard()->setText(QString::fromUtf8(text)); }
    static QString OnClipboard() { return QApplication::clipboard()->text(); }

    RichTextEditor m_editor;
};

TEST_F(EditorKeys, PolicyIsTheTable)
{
    struct Row
    {
        int key;
        Qt::KeyboardModifiers modifiers;
        std::optional<KeyPolicy> policy;
    };
    const std::optional<KeyPolicy> passes;
    const Row kRows[] = {
        {Qt::Key_V, kCtrl, KeyPolicy::Swallow},
        {Qt::Key_Insert, kShift, KeyPolicy::Swallow},
        {Qt::Key_C, kCtrl, KeyPolicy::Copy},
        {Qt::Key_Insert, kCtrl, KeyPolicy::Copy},
        {Qt::Key_Z, kCtrl, KeyPolicy::Swallow},
        {Qt::Key_X, kCtrl, KeyPolicy::Swallow},
        {Qt::Key_B, kCtrl, KeyPolicy::ToggleBold},
        {Qt::Key_I, kCtrl, KeyPolicy::ToggleItalic},
        {Qt::Key_U, kCtrl, KeyPolicy::ToggleUnderline},
        // The keypad's Insert is one too.
        {Qt::Key_Insert, kCtrl | Qt::KeypadModifier, KeyPolicy::Copy},
        {Qt::Key_Insert, kShift | Qt::KeypadModifier, KeyPolicy::Swallow},
        // A modifier more or less, and other keys whose old code was that of a letter.
        {Qt::Key_B, kCtrl | kShift, passes},
        {Qt::Key_B, kCtrl | Qt::AltModifier, passes},
        {Qt::Key_B, {}, passes},
        {Qt::Key_V, kShift, passes},
        {Qt::Key_Insert, {}, passes},
        {Qt::Key_Insert, kCtrl | kShift, passes},
        {Qt::Key_Delete, kShift, passes},
        {Qt::Key_A, kCtrl, passes},
        {Qt::Key_F7, kCtrl, passes},
        {Qt::Key_F11, kCtrl, passes},
        {Qt::Key_2, kCtrl | Qt::KeypadModifier, passes},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(PolicyOf(row.key, row.modifiers), row.policy) << row.key << " with " << row.modifiers.toInt();
}

TEST_F(EditorKeys, PasteCutAndUndoAreNotReachedFromTheKeyboard)
{
    PutOnClipboard("pasted");
    for (const auto& [key, modifier] : {std::pair{Qt::Key_V, kCtrl}, std::pair{Qt::Key_X, kCtrl},
                                        std::pair{Qt::Key_Z, kCtrl}, std::pair{Qt::Key_Insert, kShift}})
    {
        Put(m_editor, "|cd");
        Type("ab");
        EngineOf(m_editor).SelectFromTo(1, 3);
        m_editor.SetChanged(false);
        Press(key, modifier);
        EXPECT_EQ(Shown(m_editor), "a^bc|d") << key;
        EXPECT_EQ(OnClipboard(), QStringLiteral("pasted")) << key;
        EXPECT_FALSE(m_editor.Changed()) << key;
    }
}

TEST_F(EditorKeys, OtherKeysReachTheText)
{
    Put(m_editor, "|");
    Type("ab c");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Return);
    Press(Qt::Key_Home, kCtrl);
    EXPECT_EQ(Shown(m_editor), "|ab \n");
    Press(Qt::Key_A, kCtrl);
    EXPECT_EQ(Shown(m_editor), "^ab \n|");
}

TEST_F(EditorKeys, ToggleWhatIsSelected)
{
    Put(m_editor, "a^b|c");
    Press(Qt::Key_B, kCtrl);
    EXPECT_EQ(Shown(m_editor), "a^<b>b</b>|c");
    Press(Qt::Key_I, kCtrl);
    Press(Qt::Key_U, kCtrl);
    EXPECT_EQ(EngineOf(m_editor).SelItalic(), true);
    EXPECT_EQ(EngineOf(m_editor).SelUnderline(), true);
    Press(Qt::Key_B, kCtrl);
    Press(Qt::Key_I, kCtrl);
    Press(Qt::Key_U, kCtrl);
    EXPECT_EQ(Shown(m_editor), "a^b|c");
    EXPECT_TRUE(m_editor.Changed());
}

TEST_F(EditorKeys, AMixedSelectionIsSet)
{
    Put(m_editor, "a^b<b>c</b>|");
    Press(Qt::Key_B, kCtrl);
    EXPECT_EQ(EngineOf(m_editor).SelBold(), true);
    EXPECT_EQ(DumpSample(EngineOf(m_editor).Box().Value()), "a<b>bc</b>");
}

TEST_F(EditorKeys, WithShiftTooNothingIsToggled)
{
    Put(m_editor, "a^b|c");
    Press(Qt::Key_B, kCtrl | kShift);
    EXPECT_EQ(Shown(m_editor), "a^b|c");
    EXPECT_FALSE(m_editor.Changed());
}

TEST_F(EditorKeys, OnAnEmptySelectionTheNextCharactersAreFormatted)
{
    Put(m_editor, "a|c");
    Press(Qt::Key_B, kCtrl);
    EXPECT_EQ(Shown(m_editor), "a|c");
    Type("b");
    EXPECT_EQ(Shown(m_editor), "a<b>b</b>|c");
    Press(Qt::Key_B, kCtrl);
    Type("x");
    EXPECT_EQ(Shown(m_editor), "a<b>b</b>x|c");
}

TEST_F(EditorKeys, InAnEmptyDocumentTheFirstCharactersAreFormatted)
{
    RichTextView& engine = EngineOf(m_editor);
    Press(Qt::Key_I, kCtrl);
    Type("a");
    EXPECT_EQ(DumpSample(engine.Box().Value()), "<i>a</i>");
    EXPECT_EQ(engine.SelFontName(), QStringLiteral("Arial"));
    EXPECT_EQ(engine.SelFontSize(), 10);
}

TEST_F(EditorKeys, ATogglesBlankLeavesNoTraceInTextCaretOrHistory)
{
    for (const char* sample : {"|", "|ab", "ab|", "a|b", "a\n|", "a|\nb", "a<cell/>|<cell/><row/>b"})
    {
        Put(m_editor, sample);
        const QString before = m_editor.RTFString();
        Press(Qt::Key_B, kCtrl);
        EXPECT_EQ(Shown(m_editor), sample);
        EXPECT_EQ(m_editor.RTFString(), before) << sample;
        EXPECT_FALSE(EngineOf(m_editor).Box().CanUndo()) << sample;
    }
}

TEST_F(EditorKeys, AToggleOfASelectionIsOneStepOfUndo)
{
    m_editor.SetRedraw(true);
    Put(m_editor, "a^b|c");
    Press(Qt::Key_B, kCtrl);
    TextBox& box = EngineOf(m_editor).Box();
    ASSERT_TRUE(box.CanUndo());
    box.Undo();
    EXPECT_EQ(Shown(m_editor), "a^b|c");
    EXPECT_FALSE(box.CanUndo());
}

TEST_F(EditorKeys, WhatIsLockedOrProtectedIsNotFormatted)
{
    Put(m_editor, "a^b|c");
    EngineOf(m_editor).SetLocked(true);
    Press(Qt::Key_B, kCtrl);
    EXPECT_EQ(Shown(m_editor), "a^b|c");
    EngineOf(m_editor).SelectFromTo(1, 1);
    Press(Qt::Key_B, kCtrl);
    EXPECT_EQ(Shown(m_editor), "a|bc");
    EXPECT_FALSE(m_editor.Changed());
    EngineOf(m_editor).SetLocked(false);
    Put(m_editor, "a^<p>b</p>|c");
    Press(Qt::Key_B, kCtrl);
    EXPECT_EQ(Shown(m_editor), "a^<p>b</p>|c");
    EXPECT_FALSE(m_editor.Changed());
}

TEST_F(EditorKeys, CopyPutsASingleCharacterOnTheClipboardWithoutMarkers)
{
    Put(m_editor, "a^b|/h/12/cd");
    Press(Qt::Key_C, kCtrl);
    EXPECT_EQ(OnClipboard(), QStringLiteral("b"));
    EngineOf(m_editor).SelectAll();
    Press(Qt::Key_Insert, kCtrl);
    EXPECT_EQ(OnClipboard(), QStringLiteral("abcd"));
    EXPECT_EQ(Shown(m_editor), "^ab/h/12/cd|");
    EXPECT_FALSE(m_editor.Changed());
}

TEST_F(EditorKeys, CopyOfNothingLeavesTheClipboard)
{
    PutOnClipboard("before");
    Put(m_editor, "ab|");
    Press(Qt::Key_C, kCtrl);
    EXPECT_EQ(OnClipboard(), QStringLiteral("before"));
}

/// A host with actions of its own on the keys that the control keeps from the text.
TEST(EditorShortcuts, OfTheHostWinWhereTheTextDoesNotGetTheKey)
{
    QMainWindow host;
    auto* editor = new RichTextEditor(&host);
    host.setCentralWidget(editor);
    struct Row
    {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    };
    for (const Row& row : {Row{Qt::Key_C, kCtrl}, Row{Qt::Key_Z, kCtrl}, Row{Qt::Key_V, kCtrl}, Row{Qt::Key_X, kCtrl},
                           Row{Qt::Key_B, kCtrl}, Row{Qt::Key_Insert, kShift}})
    {
        auto* action = new QAction(&host);
        action->setShortcut(QKeySequence(QKeyCombination(row.modifiers, row.key)));
        host.addAction(action);
        QSignalSpy triggered(action, &QAction::triggered);
        host.show();
        QApplication::setActiveWindow(&host);
        EngineOf(*editor).setFocus();
        QApplication::processEvents();
        Put(*editor, "a^b|c");
        QTest::keyClick(host.windowHandle(), row.key, row.modifiers);
        EXPECT_EQ(triggered.count(), 1) << row.key;
        EXPECT_EQ(Shown(*editor), "a^b|c") << row.key;
        delete action;
    }
}

TEST(EditorShortcuts, OfTheHostDoNotTakeTheKeysOfTheText)
{
    QMainWindow host;
    auto* editor = new RichTextEditor(&host);
    host.setCentralWidget(editor);
    auto* action = new QAction(&host);
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+A")));
    host.addAction(action);
    QSignalSpy triggered(action, &QAction::triggered);
    host.show();
    QApplication::setActiveWindow(&host);
    EngineOf(*editor).setFocus();
    QApplication::processEvents();
    Put(*editor, "ab|c");
    QTest::keyClick(host.windowHandle(), Qt::Key_A, kCtrl);
    EXPECT_EQ(triggered.count(), 0);
    EXPECT_EQ(Shown(*editor), "^abc|");
}

}  // namespace
}  // namespace quillmarker
