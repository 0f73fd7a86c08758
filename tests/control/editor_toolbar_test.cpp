#include "control/editor_sample.h"
#include "format/colour_frame_widget.h"
#include "format/colour_palette.h"
#include "format/font_name_combo_widget.h"
#include "format/font_size_combo_widget.h"
#include "format/format_toolbar_widget.h"
#include "format/list_frame_widget.h"
#include "format/picker_list_widget.h"
#include "format/tool_button_widget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>

namespace quillmarker
{
namespace
{

constexpr int kWide = 1'000;

/// A control with the focus in its text, wide enough for all buttons, and a user in front of it.
class EditorToolbar : public testing::Test
{
protected:
    void SetUp() override { ShowForTyping(m_editor, {kWide, 600}); }

    TextBox& Box() { return EngineOf(m_editor).Box(); }
    template <class Widget>
    Widget& Child(const char* name)
    {
        return *m_editor.findChild<Widget*>(QLatin1String(name));
    }
    ToolButton& Button(std::string_view key) { return *Child<FormatToolbar>("iToolbar").Button(key); }
    void Click(std::string_view key) { QTest::mouseClick(&Button(key), Qt::LeftButton); }
    void Type(const char* text) { QTest::keyClicks(EngineOf(m_editor).viewport(), QLatin1String(text)); }
    bool TextHasFocus() { return EngineOf(m_editor).hasFocus(); }
    bool IsOpen(const char* panel) { return Child<QWidget>(panel).isVisible(); }

    ScriptedServices m_scripted;
    RichTextEditor m_editor{m_scripted.Services()};
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

TEST_F(EditorToolbar, TheCombosStandOverTheirPlaceholdersAndShowTheFont)
{
    auto& names = Child<QComboBox>("cfName");
    auto& sizes = Child<QComboBox>("cfSize");
    EXPECT_EQ(names.width(), 153);
    EXPECT_EQ(sizes.width(), 49);
    EXPECT_EQ(sizes.x(), names.x() + names.width());
    EXPECT_EQ(names.accessibleName(), QStringLiteral("Font Dropdown"));
    Put(m_editor, "^ab|c");
    Box().SetSelFontSize(10.5F);
    m_editor.Refresh();
    EngineOf(m_editor).SelectFromTo(0, 1);
    EXPECT_EQ(names.currentText(), QStringLiteral("Arial"));
    EXPECT_EQ(sizes.currentText(), QStringLiteral("10.5"));
    EngineOf(m_editor).SelectFromTo(0, 3);
    EXPECT_EQ(sizes.currentText(), QString());
    EXPECT_EQ(Box().SelFontSize(), std::nullopt);
}

TEST_F(EditorToolbar, ASizeTypedInTheComboIsAppliedByEnter)
{
    Put(m_editor, "pay ^tot|al");
    auto& sizes = Child<FontSizeCombo>("cfSize");
    QTest::mouseClick(sizes.lineEdit(), Qt::LeftButton);
    EXPECT_EQ(sizes.lineEdit()->selectedText(), sizes.currentText());
    QTest::keyClicks(&sizes, QStringLiteral("36"));
    EXPECT_EQ(Box().SelFontSize(), 10);
    QTest::keyClick(&sizes, Qt::Key_Return);
    EXPECT_EQ(Box().SelFontSize(), 36);
    EXPECT_TRUE(TextHasFocus());
    EXPECT_EQ(Shown(m_editor), "pay ^tot|al");
    sizes.setFocus();
    QTest::keyClicks(&sizes, QStringLiteral("abc"));
    QTest::keyClick(&sizes, Qt::Key_Return);
    EXPECT_EQ(Box().SelFontSize(), 36);
    EXPECT_EQ(sizes.currentText(), QStringLiteral("36"));
}

TEST_F(EditorToolbar, TheFontListBrowsesAndEnterApplies)
{
    Put(m_editor, "pay ^tot|al");
    Click("font");
    ASSERT_TRUE(IsOpen("FontFrame"));
    auto& list = Child<PickerList>("fName");
    EXPECT_TRUE(list.hasFocus());
    EXPECT_EQ(list.currentIndex().data().toString(), QStringLiteral("Arial"));
    const QPoint place = Child<QWidget>("FontFrame").pos();
    const QPoint button = Button("font").mapTo(&m_editor, QPoint());
    EXPECT_EQ(place, button + QPoint(12, 25));
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.property("Tag").toString(), QStringLiteral("Key"));
    EXPECT_EQ(Box().SelFontName(), u"Arial");
    const QString last = list.currentIndex().data().toString();
    QTest::keyClick(&list, Qt::Key_Escape);
    EXPECT_FALSE(IsOpen("FontFrame"));
    EXPECT_TRUE(TextHasFocus());
    EXPECT_EQ(Box().SelFontName(), u"Arial");

    Click("font");
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(Box().SelFontName(), last.toStdU16String());
    EXPECT_FALSE(IsOpen("FontFrame"));
    EXPECT_TRUE(TextHasFocus());
    EXPECT_EQ(Child<QComboBox>("cfName").currentText(), last);
    EXPECT_EQ(Shown(m_editor), "pay ^tot|al");
}

TEST_F(EditorToolbar, TheSizeListAppliesWhatIsClicked)
{
    Put(m_editor, "pay |total");
    Click("size");
    ASSERT_TRUE(IsOpen("SizeFrame"));
    auto& list = Child<PickerList>("fSize");
    const QModelIndex twenty =
        list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, QStringLiteral("20")).at(0);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(twenty).center());
    EXPECT_FALSE(IsOpen("SizeFrame"));
    EXPECT_TRUE(TextHasFocus());
    EXPECT_EQ(Shown(m_editor), "pay |total");
    EXPECT_FALSE(Box().CanUndo());
    Type("x");
    EXPECT_EQ(Box().SelFontSize(), 20);
}

TEST_F(EditorToolbar, ASwatchColoursAndAGapDoesNot)
{
    Put(m_editor, "pay ^tot|al");
    Click("colour");
    ASSERT_TRUE(IsOpen("ColFrame"));
    auto& palette = Child<ColFrame>("ColFrame");
    const auto pixels = [](QPoint twips) { return twips / 15; };
    const QRect first = SwatchRectangle(0);
    QTest::mouseClick(&palette, Qt::LeftButton, {}, pixels({first.right() + 25, first.center().y()}));
    EXPECT_TRUE(IsOpen("ColFrame"));
    EXPECT_FALSE(m_editor.Changed());
    QTest::mouseClick(&palette, Qt::LeftButton, {}, pixels(first.center()));
    EXPECT_EQ(Box().SelColor(), Colour::Of(254, 254, 254));
    EXPECT_FALSE(IsOpen("ColFrame"));
    EXPECT_TRUE(TextHasFocus());
}

TEST_F(EditorToolbar, AClickElsewhereClosesThePanel)
{
    Put(m_editor, "pay ^tot|al");
    for (const auto& [key, panel] : {std::pair{"font", "FontFrame"}, {"size", "SizeFrame"}, {"colour", "ColFrame"}})
    {
        Click(key);
        ASSERT_TRUE(IsOpen(panel));
        QTest::mouseClick(EngineOf(m_editor).viewport(), Qt::LeftButton, {}, {5, 300});
        EXPECT_FALSE(IsOpen(panel)) << key;
        Click(key);
        Click("spell");
        EXPECT_FALSE(IsOpen(panel)) << key;
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

TEST_F(EditorToolbar, TheChooserAppliesWhatWasChosenAsOneStep)
{
    Put(m_editor, "pay ^tot|al");
    m_scripted.fontDialog->choose = [](FontDialogRequest& request) {
        SetLogFontFaceName(request.logFont, QStringLiteral("Courier New"));
        request.faceName = QStringLiteral("Courier New");
        SetLogFontNumber(request.logFont, LogFontField::Weight, 400);
        SetLogFontNumber(request.logFont, LogFontField::Italic, 1);
        SetLogFontNumber(request.logFont, LogFontField::CharSet, 161);
        request.pointSizeTenths = 105;
        request.rgbColors = 0x0000FF;
    };
    m_editor.ShowFontDialog();
    EXPECT_EQ(LogFontNumber(m_scripted.fontDialog->shown.at(0).logFont, LogFontField::Height), 0);
    // Regular type, too, comes out bold.
    EXPECT_EQ(Shown(m_editor), "pay ^<b><i>tot</i></b>|al");
    EXPECT_EQ(Box().SelFontName(), u"Courier New");
    EXPECT_EQ(Box().SelFontSize(), 10);
    EXPECT_EQ(Box().SelColor(), Colour::Of(255, 0, 0));
    EXPECT_EQ(Box().Font().charset, 0);
    ASSERT_EQ(m_scripted.messageBoxes->shown.size(), 1U);
    const Message& message = m_scripted.messageBoxes->shown[0];
    EXPECT_EQ(message.text,
              QStringLiteral("The font character set has been re-set to be your system's default: Western."));
    EXPECT_EQ(message.title, QStringLiteral("Font"));
    EXPECT_EQ(message.helpContext, 12'897);
    EXPECT_EQ(Button("italic").Value(), 1);
    EXPECT_TRUE(TextHasFocus());
    Box().Undo();
    EXPECT_EQ(Shown(m_editor), "pay ^tot|al");
    EXPECT_FALSE(Box().CanUndo());
}

TEST_F(EditorToolbar, ASymbolFontKeepsItsCharacterSet)
{
    Put(m_editor, "pay ^tot|al");
    m_scripted.fontDialog->choose = [](FontDialogRequest& request) {
        SetLogFontNumber(request.logFont, LogFontField::CharSet, 2);
    };
    m_editor.ShowFontDialog();
    EXPECT_TRUE(m_scripted.messageBoxes->shown.empty());
    EXPECT_EQ(Box().Font().charset, 2);
}

TEST_F(EditorToolbar, ACancelledChooserLeavesTheTextAndStillTellsOfTheCharacterSet)
{
    Put(m_editor, "pay ^tot|al");
    BoxFont greek = Box().Font();
    greek.charset = 161;
    Box().SetFont(greek);
    m_editor.ShowFontDialog();
    EXPECT_EQ(Shown(m_editor), "pay ^tot|al");
    EXPECT_FALSE(m_editor.Changed());
    EXPECT_EQ(m_scripted.messageBoxes->shown.size(), 1U);
    EXPECT_TRUE(TextHasFocus());
}

TEST_F(EditorToolbar, TheChooserLeavesAnUntouchedAutomaticColourAlone)
{
    Put(m_editor, "pay ^tot|al");
    ASSERT_TRUE(Box().SelColor()->IsAutomatic());
    m_scripted.fontDialog->choose = [](FontDialogRequest& request) { request.pointSizeTenths = 200; };
    m_editor.ShowFontDialog();
    EXPECT_TRUE(Box().SelColor()->IsAutomatic());
    EXPECT_EQ(Box().SelFontSize(), 20);
}

TEST_F(EditorToolbar, SetFontChangesTheSelection)
{
    Put(m_editor, "pay ^tot|al");
    m_editor.SetFont(QStringLiteral("Times New Roman"), 14);
    EXPECT_EQ(Box().SelFontName(), u"Times New Roman");
    EXPECT_EQ(Box().SelFontSize(), 14);
    EXPECT_EQ(Child<QComboBox>("cfName").currentText(), QStringLiteral("Times New Roman"));
    EXPECT_EQ(Child<QComboBox>("cfSize").currentText(), QStringLiteral("14"));
    EXPECT_EQ(Shown(m_editor), "pay ^tot|al");
}

}  // namespace
}  // namespace quillmarker
