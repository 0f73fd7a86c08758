#include "control/editor_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

/// Counts how often a widget is painted.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
    int times = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        times += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

void HandleEvents()
{
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
}

/// A control that shows text, at rest.
class EditorRedraw : public testing::Test
{
protected:
    void SetUp() override
    {
        ShowForTyping(m_editor);
        // The caret of a window that is not active does not blink.
        QApplication::setActiveWindow(nullptr);
        HandleEvents();
    }

    RichTextEditor m_editor;
};

TEST_F(EditorRedraw, TenThousandInsertionsBetweenFalseAndTruePaintOnce)
{
    PaintCount painted(*EngineOf(m_editor).viewport());
    m_editor.SetRedraw(false);
    for (int i = 0; i < 10'000; ++i)
    {
        m_editor.InsertStringRTF(QStringLiteral("{\\rtf1 a {\\b part}\\par}"), {});
        if (i % 1'000 == 0)
            HandleEvents();
    }
    HandleEvents();
    EXPECT_EQ(painted.times, 0);
    m_editor.SetRedraw(true);
    HandleEvents();
    EXPECT_EQ(painted.times, 1);
    EXPECT_EQ(m_editor.TextString().size(), 10'000 * 8);
}

TEST_F(EditorRedraw, PutToTrueWithoutABracketIsHarmless)
{
    Put(m_editor, "ab|");
    m_editor.SetRedraw(true);
    EXPECT_TRUE(m_editor.Redraw());
    EXPECT_EQ(Shown(m_editor), "ab|");
    PaintCount painted(*EngineOf(m_editor).viewport());
    m_editor.InsertStringText(QStringLiteral("c"), {});
    HandleEvents();
    EXPECT_GE(painted.times, 1);
}

TEST_F(EditorRedraw, PutToTrueLetsGoOfTheLockOfAnyEditor)
{
    RichTextEditor other;
    ShowForTyping(other);
    HandleEvents();
    other.SetRedraw(false);
    EXPECT_FALSE(EngineOf(other).updatesEnabled());
    m_editor.SetRedraw(true);
    EXPECT_TRUE(EngineOf(other).updatesEnabled());
    EXPECT_FALSE(other.Redraw());
}

TEST_F(EditorRedraw, OfTwoEditorsOneHoldsTheLockAndBothCanBeWorkedOn)
{
    auto other = std::make_unique<RichTextEditor>();
    ShowForTyping(*other);
    m_editor.SetRedraw(false);
    other->SetRedraw(false);
    EXPECT_FALSE(EngineOf(m_editor).updatesEnabled());
    EXPECT_TRUE(EngineOf(*other).updatesEnabled());
    QTest::keyClicks(EngineOf(m_editor).viewport(), QStringLiteral("one"));
    QTest::keyClicks(EngineOf(*other).viewport(), QStringLiteral("two"));
    EXPECT_EQ(Shown(m_editor), "one|");
    EXPECT_EQ(Shown(*other), "two|");
    EXPECT_FALSE(m_editor.Redraw() || other->Redraw());
    other.reset();
    EXPECT_FALSE(EngineOf(m_editor).updatesEnabled());
    m_editor.SetRedraw(true);
    EXPECT_TRUE(EngineOf(m_editor).updatesEnabled());
    m_editor.Undo();
    EXPECT_EQ(Shown(m_editor), "|");
}

TEST_F(EditorRedraw, AnEditorDeletedWhileItHoldsTheLockLetsGoOfIt)
{
    auto other = std::make_unique<RichTextEditor>();
    ShowForTyping(*other);
    other->SetRedraw(false);
    other.reset();
    m_editor.SetRedraw(false);
    EXPECT_FALSE(EngineOf(m_editor).updatesEnabled());
    m_editor.SetRedraw(true);
}

TEST_F(EditorRedraw, PreviousFieldPutsItToTrueAndUnlocks)
{
    Put(m_editor, "a <b>|");
    EngineOf(m_editor).SetText(QStringLiteral("a [b]"));
    EngineOf(m_editor).SelectFromTo(5, 5);
    m_editor.SetRedraw(false);
    EXPECT_EQ(m_editor.PreviousField(QStringLiteral("["), QStringLiteral("]"), false), QString());
    EngineOf(m_editor).SetText(QStringLiteral("a <b> c <d> e"));
    EngineOf(m_editor).SelectFromTo(13, 13);
    EXPECT_EQ(m_editor.PreviousField(QStringLiteral("<"), QStringLiteral(">"), false), QStringLiteral("d"));
    EXPECT_TRUE(m_editor.Redraw());
    EXPECT_TRUE(EngineOf(m_editor).updatesEnabled());
}

TEST_F(EditorRedraw, RefreshPaintsTheTextAtOnce)
{
    PaintCount painted(*EngineOf(m_editor).viewport());
    m_editor.Refresh();
    EXPECT_EQ(painted.times, 1);
}

}  // namespace
}  // namespace quillmarker
