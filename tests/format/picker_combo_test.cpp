#include "picker_window.h"

#include "format/font_lists.h"
#include "format/font_name_combo_widget.h"
#include "format/font_size_combo_widget.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QSignalSpy>

namespace quillmarker
{
namespace
{

const QStringList kNames = {QStringLiteral("Arial"),   QStringLiteral("Courier"), QStringLiteral("courier"),
                            QStringLiteral("Georgia"), QStringLiteral("Symbol"),  QStringLiteral("Times")};

QStringList Texts(const QSignalSpy& spy)
{
    QStringList texts;
    for (const QList<QVariant>& arguments : spy)
        texts.append(arguments.first().toString());
    return texts;
}

template <class Combo>
class ComboInAWindow : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_combo.setGeometry(10, 60, 150, m_combo.sizeHint().height());
        m_window.Open();
    }
    void TearDown() override { m_combo.hidePopup(); }

    PickerWindow& Window() { return m_window; }
    Combo& Picker() { return m_combo; }
    QStringList Clicked() const { return Texts(m_clicked); }
    qsizetype Left() const { return m_left.size(); }
    qsizetype Lost() const { return m_lost.size(); }

    bool IsOpen() const { return m_combo.view()->isVisible(); }
    int RowInList() const { return m_combo.view()->currentIndex().row(); }

    /// In the list, once it is open.
    template <typename Key>
    void PressInList(Key key)
    {
        QTest::keyClick(m_combo.view()->window()->windowHandle(), key);
    }
    void ClickInList(int row)
    {
        QAbstractItemView* view = m_combo.view();
        const QPoint at = view->visualRect(view->model()->index(row, 0)).center();
        QTest::mouseMove(view->viewport(), at);
        // Qt takes a release for part of the click that opened the list until a little time has gone.
        QTest::qWait(QApplication::doubleClickInterval() + 50);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
    }

private:
    PickerWindow m_window;
    Combo m_combo{&m_window};
    QSignalSpy m_clicked{&m_combo, &PickerCombo::Clicked};
    QSignalSpy m_left{&m_combo, &PickerCombo::LeaveRequested};
    QSignalSpy m_lost{&m_combo, &PickerCombo::FocusLost};
};

class TheFontNameCombo : public ComboInAWindow<FontNameCombo>
{
protected:
    void SetUp() override
    {
        ComboInAWindow::SetUp();
        Picker().SetNames(kNames);
    }
};

class TheFontSizeCombo : public ComboInAWindow<FontSizeCombo>
{
protected:
    void SetUp() override
    {
        ComboInAWindow::SetUp();
        Picker().SetSizes(FontSizeEntries());
    }
};

TEST_F(TheFontNameCombo, ShowsNoneAtFirst)
{
    EXPECT_EQ(Picker().objectName(), QStringLiteral("cfName"));
    EXPECT_FALSE(Picker().isEditable());
    EXPECT_EQ(Picker().count(), 6);
    EXPECT_EQ(Picker().currentIndex(), -1);
}

TEST_F(TheFontNameCombo, SelectsTheFirstEqualNameIgnoringCase)
{
    EXPECT_TRUE(Picker().Select(QStringLiteral("COURIER")));
    EXPECT_EQ(Picker().currentIndex(), 1);
    EXPECT_EQ(Picker().currentText(), QStringLiteral("Courier"));
    EXPECT_TRUE(Clicked().isEmpty());
}

TEST_F(TheFontNameCombo, StaysAsItWasWhenNoNameIsEqual)
{
    Picker().Select(QStringLiteral("Georgia"));
    EXPECT_FALSE(Picker().Select(QStringLiteral("Nowhere")));
    EXPECT_EQ(Picker().currentIndex(), 3);
}

TEST_F(TheFontNameCombo, LooksNoFurtherThanTheCount)
{
    EXPECT_FALSE(Picker().Select(QStringLiteral("Symbol"), 4));
    EXPECT_EQ(Picker().currentIndex(), -1);
    EXPECT_TRUE(Picker().Select(QStringLiteral("Symbol"), 5));
    EXPECT_EQ(Picker().currentIndex(), 4);
}

TEST_F(TheFontNameCombo, CanBeBlank)
{
    Picker().Select(QStringLiteral("Georgia"));
    Picker().Blank();
    EXPECT_EQ(Picker().currentIndex(), -1);
    EXPECT_EQ(Picker().currentText(), QString());
    EXPECT_TRUE(Clicked().isEmpty());
}

TEST_F(TheFontNameCombo, GoesOnShowingANameThatIsThereStill)
{
    Picker().Select(QStringLiteral("Symbol"));
    Picker().SetNames({QStringLiteral("Symbol"), QStringLiteral("Zapf")});
    EXPECT_EQ(Picker().currentText(), QStringLiteral("Symbol"));
    Picker().SetNames({QStringLiteral("Zapf")});
    EXPECT_EQ(Picker().currentIndex(), -1);
    EXPECT_TRUE(Clicked().isEmpty());
}

TEST_F(TheFontNameCombo, OpensItsListOnKeysThatMoveAndGoesOnInThere)
{
    struct Move
    {
        Qt::Key key;
        int row;
    };
    for (const Move move : {Move{Qt::Key_Down, 4}, Move{Qt::Key_Up, 2}, Move{Qt::Key_PageDown, 5},
                            Move{Qt::Key_PageUp, 0}, Move{Qt::Key_Home, 0}, Move{Qt::Key_End, 5}})
    {
        SCOPED_TRACE(move.key);
        Picker().Select(QStringLiteral("Georgia"));
        Picker().setFocus();
        Window().Press(move.key);
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(RowInList(), move.row);
        EXPECT_EQ(Picker().currentIndex(), 3);
        Picker().hidePopup();
    }
    EXPECT_TRUE(Clicked().isEmpty());
}

TEST_F(TheFontNameCombo, OpensItsListOnNoneWhenItIsBlank)
{
    Picker().setFocus();
    Window().Press(Qt::Key_F4);
    EXPECT_EQ(RowInList(), -1);
    PressInList(Qt::Key_Return);
    EXPECT_TRUE(Clicked().isEmpty());
    PressInList(Qt::Key_Down);
    EXPECT_EQ(RowInList(), 0);
}

TEST_F(TheFontNameCombo, OpensItsListOnKeysThatOnlyOpen)
{
    struct Chord
    {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    };
    for (const Chord& chord : {Chord{Qt::Key_F4, {}}, Chord{Qt::Key_Down, Qt::AltModifier}, Chord{Qt::Key_Space, {}}})
    {
        SCOPED_TRACE(chord.key);
        Picker().Select(QStringLiteral("Georgia"));
        Picker().setFocus();
        Window().Press(chord.key, chord.modifiers);
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(RowInList(), 3);
        Picker().hidePopup();
    }
    EXPECT_TRUE(Clicked().isEmpty());
}

TEST_F(TheFontNameCombo, SearchesInItsListForWhatIsTyped)
{
    Picker().Select(QStringLiteral("Arial"));
    Picker().setFocus();
    Window().Press('s');
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(RowInList(), 4);
    EXPECT_EQ(Picker().currentIndex(), 0);
    EXPECT_TRUE(Clicked().isEmpty());
}

TEST_F(TheFontNameCombo, LeavesCommandsOfTheKeyboardAlone)
{
    Picker().setFocus();
    Window().Press('s', Qt::ControlModifier);
    EXPECT_FALSE(IsOpen());
}

TEST_F(TheFontNameCombo, AppliesOnEnterInItsList)
{
    Picker().Select(QStringLiteral("Arial"));
    Picker().setFocus();
    Window().Press(Qt::Key_End);
    PressInList(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Clicked(), QStringList({QStringLiteral("Times")}));
}

TEST_F(TheFontNameCombo, AppliesTheNameThatIsShownAlready)
{
    Picker().Select(QStringLiteral("Arial"));
    Picker().setFocus();
    Window().Press(Qt::Key_F4);
    PressInList(Qt::Key_Enter);
    EXPECT_EQ(Clicked(), QStringList({QStringLiteral("Arial")}));
}

TEST_F(TheFontNameCombo, ClosesItsListOnEscapeAndAppliesNothing)
{
    Picker().Select(QStringLiteral("Arial"));
    Picker().setFocus();
    Window().Press(Qt::Key_Down);
    PressInList(Qt::Key_Down);
    PressInList(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(Clicked().isEmpty());
    EXPECT_EQ(Picker().currentText(), QStringLiteral("Arial"));
    EXPECT_EQ(Left(), 0);
    Window().Press(Qt::Key_Escape);
    EXPECT_EQ(Left(), 1);
}

TEST_F(TheFontNameCombo, AppliesAnEntryThatIsClicked)
{
    Picker().Select(QStringLiteral("Arial"));
    Window().Click(Picker(), Picker().rect().center());
    ASSERT_TRUE(IsOpen());
    ClickInList(3);
    EXPECT_EQ(Clicked(), QStringList({QStringLiteral("Georgia")}));
}

TEST_F(TheFontNameCombo, LeavesTheWheelToItsParent)
{
    Picker().Select(QStringLiteral("Georgia"));
    TurnWheel(Window(), Picker());
    EXPECT_EQ(Window().Turns(), 1);
    EXPECT_EQ(Picker().focusPolicy(), Qt::StrongFocus);
    Picker().setFocus();
    TurnWheel(Window(), Picker());
    EXPECT_EQ(Window().Turns(), 2);
    EXPECT_EQ(Picker().currentIndex(), 3);
    EXPECT_TRUE(Clicked().isEmpty());
}

TEST_F(TheFontNameCombo, TellsThatItLostTheFocusButNotToItsList)
{
    Picker().setFocus();
    Window().Press(Qt::Key_F4);
    PressInList(Qt::Key_Escape);
    EXPECT_EQ(Lost(), 0);
    Window().Text().setFocus();
    EXPECT_EQ(Lost(), 1);
}

TEST_F(TheFontNameCombo, OpensAListOfAFewRowsForTwoThousandNames)
{
    QStringList names;
    for (int number = 0; number < 2000; ++number)
        names.append(QStringLiteral("Family %1").arg(number));
    Picker().SetNames(names);
    Picker().Select(QStringLiteral("family 1500"));
    Picker().showPopup();
    EXPECT_EQ(RowInList(), 1500);
    EXPECT_LE(Picker().view()->height(), 17 * Picker().view()->sizeHintForRow(0));
    EXPECT_TRUE(Picker().view()->viewport()->rect().contains(
        Picker().view()->visualRect(Picker().view()->currentIndex()).center()));
}

TEST_F(TheFontSizeCombo, HasItsEntriesAsTheyWereGiven)
{
    EXPECT_EQ(Picker().objectName(), QStringLiteral("cfSize"));
    EXPECT_EQ(Picker().count(), 18);
    EXPECT_EQ(Picker().itemText(0), QStringLiteral(" 6"));
    EXPECT_EQ(Picker().currentText(), QString());
    EXPECT_EQ(Picker().completer(), nullptr);
}

TEST_F(TheFontSizeCombo, ShowsAnyText)
{
    for (const char* text : {"12", "8", "8.4", "", "72"})
    {
        Picker().ShowText(QString::fromLatin1(text));
        EXPECT_EQ(Picker().currentText(), QString::fromLatin1(text));
    }
    EXPECT_TRUE(Clicked().isEmpty());
}

TEST_F(TheFontSizeCombo, OpensItsListOnTheSizeThatIsShown)
{
    Picker().ShowText(QStringLiteral("8"));
    Picker().showPopup();
    EXPECT_EQ(RowInList(), 1);
    Picker().hidePopup();
    Picker().ShowText(QStringLiteral("8.4"));
    Picker().showPopup();
    EXPECT_EQ(RowInList(), -1);
}

TEST_F(TheFontSizeCombo, HandsOverWhateverTextIsThereOnEnter)
{
    Picker().ShowText(QStringLiteral("12"));
    Picker().setFocus();
    for (const char letter : {'a', 'b', 'c'})
        Window().Press(letter);
    EXPECT_EQ(Picker().currentText(), QStringLiteral("abc"));
    EXPECT_TRUE(Clicked().isEmpty());
    Window().Press(Qt::Key_Return);
    EXPECT_EQ(Clicked(), QStringList({QStringLiteral("abc")}));
    EXPECT_EQ(Picker().count(), 18);
}

TEST_F(TheFontSizeCombo, HandsOverItsTextOnceOnTheKeypadsEnter)
{
    Picker().setFocus();
    Window().Press('1');
    Window().Press('4');
    EXPECT_EQ(Picker().currentText(), QStringLiteral("14"));
    Window().Press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Clicked(), QStringList({QStringLiteral("14")}));
}

TEST_F(TheFontSizeCombo, HandsOverNothingWhenTheFocusGoes)
{
    Picker().ShowText(QStringLiteral("12"));
    Picker().setFocus();
    Window().Press('1');
    Window().Press('4');
    Window().Text().setFocus();
    EXPECT_TRUE(Clicked().isEmpty());
    EXPECT_EQ(Lost(), 1);
}

TEST_F(TheFontSizeCombo, SelectsAllOfItsTextWhenItGetsTheFocus)
{
    Picker().ShowText(QStringLiteral("12"));
    Picker().setFocus();
    EXPECT_EQ(Picker().lineEdit()->selectedText(), QStringLiteral("12"));
    Window().Press('9');
    EXPECT_EQ(Picker().currentText(), QStringLiteral("9"));
}

TEST_F(TheFontSizeCombo, SelectsAllOfItsTextWhenItIsClicked)
{
    Picker().ShowText(QStringLiteral("12"));
    Window().Click(*Picker().lineEdit(), QPoint(6, 6));
    EXPECT_TRUE(Picker().hasFocus());
    EXPECT_EQ(Picker().lineEdit()->selectedText(), QStringLiteral("12"));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    Window().Click(*Picker().lineEdit(), QPoint(6, 6));
    EXPECT_EQ(Picker().lineEdit()->selectedText(), QString());
}

TEST_F(TheFontSizeCombo, IsLeftOnEscape)
{
    Picker().setFocus();
    Window().Press('9');
    Window().Press(Qt::Key_Escape);
    EXPECT_EQ(Left(), 1);
    EXPECT_TRUE(Clicked().isEmpty());
}

TEST_F(TheFontSizeCombo, OpensItsListOnTheArrows)
{
    Picker().ShowText(QStringLiteral("10"));
    Picker().setFocus();
    Window().Press(Qt::Key_Down);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(RowInList(), 4);
    EXPECT_EQ(Picker().currentText(), QStringLiteral("10"));
    PressInList(Qt::Key_Up);
    PressInList(Qt::Key_Up);
    PressInList(Qt::Key_Escape);
    EXPECT_EQ(Picker().currentText(), QStringLiteral("10"));
    EXPECT_TRUE(Clicked().isEmpty());
    EXPECT_EQ(Lost(), 0);
}

TEST_F(TheFontSizeCombo, FindsTypedNumbersInItsList)
{
    Picker().setFocus();
    Window().Press(Qt::Key_F4);
    ASSERT_TRUE(IsOpen());
    PressInList('9');
    EXPECT_EQ(RowInList(), 2);
    PressInList(Qt::Key_Return);
    EXPECT_EQ(Clicked(), QStringList({QStringLiteral(" 9")}));
}

TEST_F(TheFontSizeCombo, AppliesAnEntryThatIsClicked)
{
    Picker().ShowText(QStringLiteral("10"));
    Picker().showPopup();
    ClickInList(0);
    EXPECT_EQ(Clicked(), QStringList({QStringLiteral(" 6")}));
    EXPECT_FALSE(IsOpen());
}

TEST_F(TheFontSizeCombo, LeavesTheWheelToItsParent)
{
    Picker().ShowText(QStringLiteral("10"));
    TurnWheel(Window(), Picker());
    EXPECT_EQ(Picker().focusPolicy(), Qt::StrongFocus);
    Picker().setFocus();
    TurnWheel(Window(), Picker());
    EXPECT_EQ(Window().Turns(), 2);
    EXPECT_EQ(Picker().currentText(), QStringLiteral("10"));
    EXPECT_TRUE(Clicked().isEmpty());
}

TEST_F(TheFontSizeCombo, KeepsWhatIsBeingTypedWhenItIsShownAgain)
{
    Picker().ShowText(QStringLiteral("10"));
    Picker().setFocus();
    Picker().ShowText(QStringLiteral("10"));
    EXPECT_EQ(Picker().lineEdit()->selectedText(), QStringLiteral("10"));
}

TEST_F(TheFontSizeCombo, KeepsItsTextWhenItGetsOtherSizes)
{
    Picker().ShowText(QStringLiteral("8.4"));
    Picker().SetSizes({QStringLiteral("5"), QStringLiteral("7")});
    EXPECT_EQ(Picker().currentText(), QStringLiteral("8.4"));
    EXPECT_EQ(Picker().count(), 2);
    EXPECT_TRUE(Clicked().isEmpty());
}

}  // namespace
}  // namespace quillmarker
