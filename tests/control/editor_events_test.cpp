#include "control/editor_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>

#include <functional>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

/// A control on the screen that notes its events and what it tells its parts, in one list.
class EditorEvents : public testing::Test
{
protected:
    void SetUp() override
    {
        ShowForTyping(m_editor);
        EditorState::Of(m_editor).parts = std::make_unique<RecordingParts>(m_log);
        NoteEvent(&RichTextEditor::Change, "Change");
        NoteEvent(&RichTextEditor::Click, "Click");
        NoteEvent(&RichTextEditor::DblClick, "DblClick");
        NoteEvent(&RichTextEditor::RClick, "RClick");
    }
    void TearDown() override { EditorState::Of(m_editor).parts = std::make_unique<ControlParts>(); }

    void Load(std::string_view sample)
    {
        Put(m_editor, sample);
        QApplication::processEvents();
        m_log.clear();
    }
    QWidget* Surface() { return EngineOf(m_editor).viewport(); }
    QPoint PointAt(int position) { return EngineOf(m_editor).CharacterRectangle(position).center(); }
    /// What is left when the refreshes are taken out.
    std::vector<QString> Events() const
    {
        std::vector<QString> events;
        for (const QString& entry : m_log)
            if (!entry.contains(QLatin1Char(' ')))
                events.push_back(entry);
        return events;
    }

    std::vector<QString> m_log;
    RichTextEditor m_editor;

private:
    void NoteEvent(void (RichTextEditor::*signal)(), const char* name)
    {
        QObject::connect(&m_editor, signal, &m_editor, [this, name] { m_log.push_back(QLatin1String(name)); });
    }
};

const std::vector<QString> kRefresh = {QStringLiteral("character buttons"), QStringLiteral("paragraph buttons"),
                                       QStringLiteral("ruler, reread")};

TEST_F(EditorEvents, AChangeIsHeardWhileChangedIsAsItWasAndRaisesIt)
{
    std::vector<bool> seen;
    QObject::connect(&m_editor, &RichTextEditor::Change, &m_editor, [&] { seen.push_back(m_editor.Changed()); });
    Load("ab|");
    seen.clear();
    QTest::keyClick(Surface(), Qt::Key_X);
    EXPECT_TRUE(m_editor.Changed());
    QTest::keyClick(Surface(), Qt::Key_Y);
    m_editor.SetChanged(false);
    EXPECT_FALSE(m_editor.Changed());
    QTest::keyClick(Surface(), Qt::Key_Backspace);
    EXPECT_TRUE(m_editor.Changed());
    EXPECT_THAT(seen, ElementsAre(false, true, false));
}

TEST_F(EditorEvents, AChangeOfTheHostIsHeardOnceAnEdit)
{
    Load("ab|");
    m_editor.InsertStringText(QStringLiteral("c"), {});
    m_editor.InsertStringRTF(QStringLiteral("{\\rtf1 {\\b d}\\par e}"), {});
    m_editor.InsertStringText(QStringLiteral("f"), QStringLiteral("[not there]"));
    EXPECT_THAT(Events(), ElementsAre(QStringLiteral("Change"), QStringLiteral("Change")));
}

TEST_F(EditorEvents, MovingTheCaretRefreshesAndChangesNothing)
{
    Load("a|b");
    QTest::keyPress(Surface(), Qt::Key_Right);
    EXPECT_EQ(m_log, kRefresh);
    m_log.clear();
    QTest::keyRelease(Surface(), Qt::Key_Right);
    EXPECT_EQ(m_log, kRefresh);
    EXPECT_FALSE(m_editor.Changed());
}

TEST_F(EditorEvents, ARefreshUpdatesCharacterButtonsThenParagraphButtonsThenTheRuler)
{
    Load("a|b");
    EditorState::Of(m_editor).RefreshUIState();
    EXPECT_EQ(m_log, kRefresh);
}

TEST_F(EditorEvents, AClickIsHeardWhenTheButtonIsReleased)
{
    Load("one two|");
    QTest::mousePress(Surface(), Qt::LeftButton, {}, PointAt(1));
    EXPECT_THAT(Events(), IsEmpty());
    m_log.clear();
    QTest::mouseRelease(Surface(), Qt::LeftButton, {}, PointAt(1));
    EXPECT_THAT(Events(), ElementsAre(QStringLiteral("Click")));
    EXPECT_THAT(m_log, testing::IsSupersetOf(kRefresh));
}

TEST_F(EditorEvents, ADoubleClickIsHeardOnce)
{
    Load("one two|");
    QTest::mouseDClick(Surface(), Qt::LeftButton, {}, PointAt(1));
    EXPECT_EQ(std::ranges::count(m_log, QStringLiteral("DblClick")), 1);
    EXPECT_EQ(Shown(m_editor), "^one |two");
}

TEST_F(EditorEvents, TheRightButtonIsHeardOnceBeforeItIsReleased)
{
    Load("one two|");
    QTest::mousePress(Surface(), Qt::RightButton, {}, PointAt(1));
    EXPECT_THAT(m_log, ElementsAre(QStringLiteral("RClick")));
    m_log.clear();
    QTest::mouseRelease(Surface(), Qt::RightButton, {}, PointAt(1));
    EXPECT_EQ(m_log, kRefresh);
    EXPECT_EQ(Shown(m_editor), "one two|");
}

TEST_F(EditorEvents, OtherButtonsRaiseNoRightClick)
{
    Load("one two|");
    QTest::mouseClick(Surface(), Qt::LeftButton, {}, PointAt(1));
    QTest::mouseClick(Surface(), Qt::MiddleButton, {}, PointAt(1));
    EXPECT_THAT(Events(), ElementsAre(QStringLiteral("Click")));
}

TEST_F(EditorEvents, AReleaseOnTheControlsOwnSurfaceRefreshes)
{
    Load("a|");
    auto& ruler = *m_editor.findChild<QWidget*>(QStringLiteral("iRuler"));
    const QPoint beside(m_editor.width() - 2, ruler.geometry().center().y());
    ASSERT_EQ(m_editor.childAt(beside), nullptr);
    QTest::mouseRelease(&m_editor, Qt::LeftButton, {}, beside);
    EXPECT_EQ(m_log, kRefresh);
}

TEST_F(EditorEvents, AButtonOnTheStatusBarClosesThePickers)
{
    auto& status = *m_editor.findChild<QWidget*>(QStringLiteral("iStatus"));
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton})
    {
        m_log.clear();
        QTest::mouseClick(&status, button, {}, status.rect().center());
        EXPECT_THAT(m_log, ElementsAre(QStringLiteral("popups hidden")));
    }
}

TEST_F(EditorEvents, AKeyReleaseInTheOutlineDrawsTheRuler)
{
    m_log.clear();
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
    QApplication::sendEvent(m_editor.findChild<QWidget*>(QStringLiteral("Outline")), &release);
    EXPECT_THAT(m_log, ElementsAre(QStringLiteral("ruler, reread")));
}

/// Parts that ask for another refresh in the middle of one, as a combo does whose text is set.
class AskingParts : public ControlParts
{
public:
    explicit AskingParts(EditorState& state) : m_state(state) {}

    void UpdateCharacterButtons() override
    {
        ++times;
        wasActive = m_state.refreshActive;
        m_state.RefreshUIState();
    }

    int times = 0;
    bool wasActive = false;

private:
    EditorState& m_state;
};

TEST(EditorRefresh, IsNotEnteredTwice)
{
    RichTextEditor editor;
    EditorState& state = EditorState::Of(editor);
    auto parts = std::make_unique<AskingParts>(state);
    const AskingParts& asking = *parts;
    state.parts = std::move(parts);
    state.RefreshUIState();
    EXPECT_EQ(asking.times, 1);
    EXPECT_TRUE(asking.wasActive);
    EXPECT_FALSE(state.refreshActive);
    state.RefreshUIState();
    EXPECT_EQ(asking.times, 2);
}

TEST(EditorRefresh, WritesNothingBack)
{
    RichTextEditor editor;
    ShowForTyping(editor);
    Put(editor, "a^<b>b</b><i>c</i>d|e\nf");
    const QString before = editor.RTFString();
    QSignalSpy changes(&editor, &RichTextEditor::Change);
    for (int i = 0; i < 3; ++i)
        EditorState::Of(editor).RefreshUIState();
    EXPECT_EQ(editor.RTFString(), before);
    EXPECT_EQ(Shown(editor), "a^<b>b</b><i>c</i>d|e\nf");
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_FALSE(editor.Changed());
}

TEST(EditorFocus, GoesToTheTextWithEveryMemberThatWorksOnIt)
{
    struct Row
    {
        const char* name;
        std::function<void(RichTextEditor&)> call;
    };
    const Row kRows[] = {
        {"TextString", [](RichTextEditor& e) { e.TextString(); }},
        {"RTFString", [](RichTextEditor& e) { e.RTFString(); }},
        {"Clear", [](RichTextEditor& e) { e.Clear(); }},
        {"CursorEnd", [](RichTextEditor& e) { e.CursorEnd(); }},
        {"CursorStart", [](RichTextEditor& e) { e.CursorStart(); }},
        {"Copy", [](RichTextEditor& e) { e.Copy(); }},
        {"Cut", [](RichTextEditor& e) { e.Cut(); }},
        {"Paste", [](RichTextEditor& e) { e.Paste(); }},
        {"Delete", [](RichTextEditor& e) { e.Delete(); }},
        {"Undo", [](RichTextEditor& e) { e.Undo(); }},
        {"SelectText",
         [](RichTextEditor& e) {
             int start = 0;
             int finish = 1;
             e.SelectText(start, finish);
         }},
        {"PreviousField", [](RichTextEditor& e) { e.PreviousField(QStringLiteral("<"), QStringLiteral(">"), false); }},
        {"InsertStringText", [](RichTextEditor& e) { e.InsertStringText(QStringLiteral("x"), {}); }},
        {"InsertStringRTF", [](RichTextEditor& e) { e.InsertStringRTF(QStringLiteral("{\\rtf1 x}"), {}); }},
        {"InsertStringHidden", [](RichTextEditor& e) { e.InsertStringHidden(QStringLiteral("1"), {}); }},
        {"SaveFileRTF", [](RichTextEditor& e) { e.SaveFileRTF(QStringLiteral("/nowhere/at/all.rtf")); }},
    };
    QWidget host;
    auto* other = new QWidget(&host);
    auto* editor = new RichTextEditor(&host);
    other->setFocusPolicy(Qt::StrongFocus);
    host.show();
    QApplication::setActiveWindow(&host);
    for (const Row& row : kRows)
    {
        other->setFocus();
        ASSERT_TRUE(other->hasFocus());
        row.call(*editor);
        EXPECT_TRUE(EngineOf(*editor).hasFocus()) << row.name;
    }
}

TEST(EditorFocus, StaysWhereItIsWhenAPropertyIsReadOrSet)
{
    QWidget host;
    auto* other = new QWidget(&host);
    auto* editor = new RichTextEditor(&host);
    other->setFocusPolicy(Qt::StrongFocus);
    host.show();
    QApplication::setActiveWindow(&host);
    other->setFocus();
    editor->SetChanged(editor->Changed());
    editor->SetRedraw(false);
    editor->SetRedraw(true);
    editor->SetMeasureInches(true);
    editor->SetLeftMargin(editor->LeftMargin());
    editor->SetRuler(false);
    editor->Refresh();
    EXPECT_TRUE(other->hasFocus());
}

}  // namespace
}  // namespace quillmarker
