#include "control/editor_formatting_sample.h"
#include "format/colour_frame_widget.h"
#include "format/colour_palette.h"
#include "format/font_size_combo_widget.h"
#include "format/picker_list_widget.h"

#include <QLineEdit>

namespace quillmarker
{
namespace
{

class EditorPickers : public EditorFormatting
{
};

TEST_F(EditorPickers, TheCombosStandOverTheirPlaceholdersAndShowTheFont)
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

TEST_F(EditorPickers, ASizeTypedInTheComboIsAppliedByEnter)
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

TEST_F(EditorPickers, TheFontListBrowsesAndEnterApplies)
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

TEST_F(EditorPickers, TheSizeListAppliesWhatIsClicked)
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

TEST_F(EditorPickers, ASwatchColoursAndAGapDoesNot)
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

TEST_F(EditorPickers, AClickElsewhereClosesThePanel)
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

}  // namespace
}  // namespace quillmarker
