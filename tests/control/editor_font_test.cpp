#include "control/editor_formatting_sample.h"

#include <QComboBox>

namespace quillmarker
{
namespace
{

class EditorFont : public EditorFormatting
{
};

TEST_F(EditorFont, TheChooserAppliesWhatWasChosenAsOneStep)
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

TEST_F(EditorFont, ASymbolFontKeepsItsCharacterSet)
{
    Put(m_editor, "pay ^tot|al");
    m_scripted.fontDialog->choose = [](FontDialogRequest& request) {
        SetLogFontNumber(request.logFont, LogFontField::CharSet, 2);
    };
    m_editor.ShowFontDialog();
    EXPECT_TRUE(m_scripted.messageBoxes->shown.empty());
    EXPECT_EQ(Box().Font().charset, 2);
}

TEST_F(EditorFont, ACancelledChooserLeavesTheTextAndStillTellsOfTheCharacterSet)
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

TEST_F(EditorFont, TheChooserLeavesAnUntouchedAutomaticColourAlone)
{
    Put(m_editor, "pay ^tot|al");
    ASSERT_TRUE(Box().SelColor()->IsAutomatic());
    m_scripted.fontDialog->choose = [](FontDialogRequest& request) { request.pointSizeTenths = 200; };
    m_editor.ShowFontDialog();
    EXPECT_TRUE(Box().SelColor()->IsAutomatic());
    EXPECT_EQ(Box().SelFontSize(), 20);
}

TEST_F(EditorFont, SetFontChangesTheSelection)
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
