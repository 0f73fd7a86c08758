#include "control/editor_formatting_sample.h"

#include <QAccessible>
#include <QMenu>
#include <QSignalSpy>

#include <set>

namespace quillmarker
{
namespace
{

class EditorToolbar : public EditorFormatting
{
};

/// A click on each button of the real toolbar, on real text.
TEST_F(EditorToolbar, EveryButtonDoesWhatItSaysAndTellsTheHost)
{
    struct Row
    {
        const char* key;
        const char* after;
        int value;
    };
    const Row rows[] = {
        {"new", "pay ^tot|al", 0},          {"open", "pay ^tot|al", 0},          {"save", "pay ^tot|al", 0},
        {"print", "pay ^tot|al", 0},        {"preview", "pay ^tot|al", 0},       {"cut", "pay |al", 0},
        {"copy", "pay ^tot|al", 0},         {"paste", "pay pasted|al", 0},       {"delete", "pay |al", 0},
        {"redo", "pay ^tot|al", 0},         {"font", "pay ^tot|al", 0},          {"size", "pay ^tot|al", 0},
        {"colour", "pay ^tot|al", 0},       {"bold", "pay ^<b>tot</b>|al", 1},   {"italic", "pay ^<i>tot</i>|al", 1},
        {"uline", "pay ^<u>tot</u>|al", 1}, {"strike", "pay ^<s>tot</s>|al", 1}, {"sub", "pay ^tot|al", 1},
        {"super", "pay ^tot|al", 1},        {"left", "pay ^tot|al", 1},          {"centre", "pay ^tot|al", 1},
        {"right", "pay ^tot|al", 1},        {"bullet", "pay ^tot|al", 1},        {"search", "pay ^tot|al", 0},
        {"spell", "pay ^tot|al", 0},        {"help", "pay ^tot|al", 0},
    };
    QSignalSpy told(&m_editor, &RichTextEditor::ToolbarClick);
    for (const Row& row : rows)
    {
        Put(m_editor, "pay ^tot|al");
        QApplication::clipboard()->setText(QStringLiteral("pasted"));
        told.clear();
        Click(row.key);
        EXPECT_EQ(Shown(m_editor), row.after) << row.key;
        EXPECT_EQ(Button(row.key).Value(), row.value) << row.key;
        EXPECT_FALSE(Button(row.key).MixedState()) << row.key;
        ASSERT_EQ(told.size(), 1) << row.key;
        EXPECT_EQ(told[0][0].toString(), QLatin1String(row.key));
        if (row.value == 0)
            continue;
        EXPECT_EQ(m_editor.Changed(), std::string_view(row.key) != "left") << row.key;
        // Once more: it is released; alignments stay.
        Click(row.key);
        const bool isOneOfGroup = Button(row.key).Row().style == ButtonStyle::ButtonGroup;
        EXPECT_EQ(Button(row.key).Value(), isOneOfGroup ? 1 : 0) << row.key;
        EXPECT_EQ(Shown(m_editor), "pay ^tot|al") << row.key;
    }
    // Undo is the last: it goes back one step, and the host hears of it.
    Put(m_editor, "pay ^tot|al");
    Click("bold");
    told.clear();
    Click("undo");
    EXPECT_EQ(Shown(m_editor), "pay ^tot|al");
    EXPECT_EQ(told.size(), 1);
    const auto clickable = std::ranges::count_if(kToolbarButtons, [](const ToolbarButton& button) {
        return button.style != ButtonStyle::Separator && button.style != ButtonStyle::Placeholder;
    });
    EXPECT_EQ(static_cast<std::ptrdiff_t>(std::size(rows)) + 1, clickable);
}

TEST_F(EditorToolbar, FormatsOfTheParagraphAndOffsetsAreInTheDocument)
{
    Put(m_editor, "pay ^tot|al");
    Click("super");
    EXPECT_EQ(Box().SelCharOffset(), 80);
    EXPECT_EQ(Box().SelFontSize(), 7);
    Click("sub");
    EXPECT_EQ(Box().SelCharOffset(), -40);
    EXPECT_EQ(Box().SelFontSize(), 7);
    EXPECT_EQ(Button("super").Value(), 0);
    EXPECT_EQ(Button("sub").Value(), 1);
    Click("centre");
    EXPECT_EQ(Box().SelAlignment(), kAlignCentre);
    EXPECT_EQ(Button("left").Value(), 0);
    Click("bullet");
    EXPECT_EQ(Box().SelBullet(), true);
}

TEST_F(EditorToolbar, TypingAfterEachToggleOnAnEmptySelectionHasItsFormat)
{
    for (const auto& [key, after] : {std::pair{"bold", "to<b>x</b>|tal"},
                                     {"italic", "to<i>x</i>|tal"},
                                     {"uline", "to<u>x</u>|tal"},
                                     {"strike", "to<s>x</s>|tal"}})
    {
        Put(m_editor, "to|tal");
        Click(key);
        EXPECT_EQ(Shown(m_editor), "to|tal") << key;
        EXPECT_FALSE(Box().CanUndo()) << key;
        EXPECT_EQ(Button(key).Value(), 1) << key;
        EXPECT_TRUE(TextHasFocus()) << key;
        Type("x");
        EXPECT_EQ(Shown(m_editor), after) << key;
        Box().Undo();
        EXPECT_EQ(Shown(m_editor), "to|tal") << key;
    }
    for (const auto& [key, offset] : {std::pair{"super", 80}, {"sub", -40}})
    {
        Put(m_editor, "to|tal");
        Click(key);
        EXPECT_EQ(Button(key).Value(), 1) << key;
        Type("x");
        EXPECT_EQ(Shown(m_editor), "tox|tal") << key;
        EXPECT_EQ(Box().SelCharOffset(), offset) << key;
    }
}

TEST_F(EditorToolbar, AMixedSelectionShowsItAndAClickSetsIt)
{
    Put(m_editor, "a^b<b>c</b>|d");
    EngineOf(m_editor).SelectFromTo(1, 1);
    EngineOf(m_editor).SelectFromTo(1, 3);
    EXPECT_TRUE(Button("bold").MixedState());
    EXPECT_EQ(Shown(m_editor), "a^b<b>c</b>|d");
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&Button("bold"));
    ASSERT_NE(heard, nullptr);
    EXPECT_TRUE(heard->state().checkStateMixed);
    EXPECT_FALSE(heard->state().checked);
    EXPECT_EQ(heard->text(QAccessible::Name), QStringLiteral("Bold text"));
    EXPECT_EQ(heard->text(QAccessible::Description), QStringLiteral("Bold"));
    Click("bold");
    EXPECT_EQ(Shown(m_editor), "a^<b>bc</b>|d");
    EXPECT_FALSE(Button("bold").MixedState());
    EXPECT_FALSE(heard->state().checkStateMixed);
    EXPECT_TRUE(heard->state().checked);
}

TEST_F(EditorToolbar, ParagraphsThatDifferShowAllThreeAlignmentsMixed)
{
    Put(m_editor, "^a|\nb");
    Box().SetSelAlignment(kAlignCentre);
    EngineOf(m_editor).SelectFromTo(0, 4);
    for (const char* key : {"left", "centre", "right"})
        EXPECT_TRUE(Button(key).MixedState()) << key;
    Click("right");
    for (const char* key : {"left", "centre", "right"})
    {
        EXPECT_FALSE(Button(key).MixedState()) << key;
        EXPECT_EQ(Button(key).Value(), std::string_view(key) == "right" ? 1 : 0) << key;
    }
    EXPECT_EQ(Box().SelAlignment(), kAlignRight);
}

TEST_F(EditorToolbar, MixedPressedAndReleasedLookDifferentInLightAndDark)
{
    for (const QColor& window : {QColor(240, 240, 240), QColor(45, 45, 45)})
    {
        m_editor.setPalette(QPalette(window, window));
        ToolButton& bold = Button("bold");
        const auto look = [&] { return bold.grab().toImage(); };
        bold.SetValue(0);
        const QImage released = look();
        bold.SetValue(1);
        const QImage pressed = look();
        bold.SetMixedState(true);
        const QImage mixed = look();
        bold.SetMixedState(false);
        EXPECT_NE(released, pressed);
        EXPECT_NE(released, mixed);
        EXPECT_NE(pressed, mixed);
    }
}

TEST_F(EditorToolbar, AButtonWhoseFormatCouldNotBePutSpringsBack)
{
    Put(m_editor, "pay ^tot|al");
    EngineOf(m_editor).SetLocked(true);
    for (const char* key : {"bold", "super", "centre", "bullet"})
    {
        Click(key);
        EXPECT_EQ(Button(key).Value(), 0) << key;
    }
    EXPECT_EQ(Button("left").Value(), 1);
    EXPECT_EQ(Shown(m_editor), "pay ^tot|al");
    EXPECT_FALSE(m_editor.Changed());
}

TEST_F(EditorToolbar, TheClickIsToldAfterTheActionAndBeforeTheRefresh)
{
    Put(m_editor, "pay ^tot|al");
    std::string seen;
    QObject::connect(&m_editor, &RichTextEditor::ToolbarClick, &m_editor, [&] {
        seen = Shown(m_editor);
        Box().SetSelBold(0);  // what the refresh then shows
    });
    Click("bold");
    EXPECT_EQ(seen, "pay ^<b>tot</b>|al");
    EXPECT_EQ(Button("bold").Value(), 0);
}

TEST_F(EditorToolbar, AHandlerMayDeleteTheControl)
{
    for (const char* key : {"bold", "super", "bullet", "font", "help", "cut"})
    {
        auto* editor = new RichTextEditor(m_scripted.Services());
        ShowForTyping(*editor, {kWide, 600});
        Put(*editor, "pay ^tot|al");
        QObject::connect(editor, &RichTextEditor::Change, editor, &QObject::deleteLater);
        QObject::connect(editor, &RichTextEditor::ToolbarClick, editor, [editor] { delete editor; });
        const QPointer<RichTextEditor> alive(editor);
        ToolButton* button = editor->findChild<FormatToolbar*>()->Button(key);
        QMetaObject::invokeMethod(
            button, [button] { Q_EMIT button->clicked(); }, Qt::DirectConnection);
        EXPECT_FALSE(alive) << key;
    }
}

TEST_F(EditorToolbar, KeysReachEveryButtonAndLeadBackToTheText)
{
    Put(m_editor, "to|tal");
    ToolButton* button = &Button("new");
    EXPECT_EQ(button->focusPolicy(), Qt::TabFocus);
    button->setFocus(Qt::TabFocusReason);
    std::vector<QString> reached{button->Key()};
    for (int i = 0; i < 26; ++i)
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        reached.push_back(QApplication::focusWidget()->objectName());
    }
    EXPECT_EQ(reached.back(), QStringLiteral("help"));
    EXPECT_EQ(std::set<QString>(reached.begin(), reached.end()).size(), 27U);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
    EXPECT_TRUE(Button("new").hasFocus());
    Button("bold").setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Button("bold"), Qt::Key_Space);
    QTest::keyClick(&Button("bold"), Qt::Key_Escape);
    EXPECT_TRUE(TextHasFocus());
    Type("x");
    EXPECT_EQ(Shown(m_editor), "to<b>x</b>|tal");
    Button("colour").setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Button("colour"), Qt::Key_Return);
    EXPECT_TRUE(IsOpen("ColFrame"));
}

TEST_F(EditorToolbar, InANarrowWindowTheRestIsInAMenu)
{
    m_editor.resize(420, 400);
    QApplication::processEvents();
    Put(m_editor, "a^b<b>c</b>|d");
    EngineOf(m_editor).SelectFromTo(1, 1);
    EngineOf(m_editor).SelectFromTo(1, 3);
    EXPECT_FALSE(Button("bold").isVisible());
    auto& more = Child<QToolButton>("more");
    ASSERT_TRUE(more.isVisible());
    QMenu& menu = *more.menu();
    Q_EMIT menu.aboutToShow();
    auto* bold = menu.findChild<QAction*>(QStringLiteral("bold"));
    ASSERT_NE(bold, nullptr);
    EXPECT_TRUE(bold->text().contains(QStringLiteral("mixed")));
    QSignalSpy told(&m_editor, &RichTextEditor::ToolbarClick);
    bold->trigger();
    EXPECT_EQ(Shown(m_editor), "a^<b>bc</b>|d");
    EXPECT_EQ(told.size(), 1);
    menu.findChild<QAction*>(QStringLiteral("colour"))->trigger();
    ASSERT_TRUE(IsOpen("ColFrame"));
    EXPECT_TRUE(m_editor.rect().contains(Child<QWidget>("ColFrame").geometry()));
    m_editor.resize(kWide, 400);
    QApplication::processEvents();
    EXPECT_FALSE(more.isVisible());
    EXPECT_TRUE(Button("bold").isVisible());
}

}  // namespace
}  // namespace quillmarker
