#include "format/list_frame_widget.h"

#include "picker_window.h"

#include "format/font_lists.h"
#include "format/picker_list_widget.h"

#include <QAccessible>
#include <QScrollBar>
#include <QSignalSpy>

#include <memory>

namespace quillmarker
{
namespace
{

QStringList Families(int count)
{
    QStringList names;
    for (int number = 0; number < count; ++number)
        names.append(QStringLiteral("%1 family").arg(number, 4, 10, QLatin1Char('0')));
    return names;
}

const QStringList kNames = {QStringLiteral("Arial"),   QStringLiteral("Courier"), QStringLiteral("courier"),
                            QStringLiteral("Georgia"), QStringLiteral("Symbol"),  QStringLiteral("Times")};

/// Two panels in a window, of which the test opens one.
class APopupList : public ::testing::Test
{
protected:
    void SetUp() override { m_window.Open(); }

    void Open(ListFrame& frame, const QStringList& items, const std::optional<QString>& selected)
    {
        m_chosen.emplace(&frame, &ListFrame::Chosen);
        m_left.emplace(&frame, &ListFrame::LeaveRequested);
        m_lost.emplace(&frame, &ListFrame::FocusLost);
        frame.SetItems(items);
        frame.Prepare(selected);
        frame.move(10, 40);
        frame.raise();
        frame.show();
        frame.setFocus();
        m_list = &frame.List();
    }

    PickerWindow& Window() { return m_window; }
    FontFrame& Fonts() { return m_fonts; }
    SizeFrame& Sizes() { return m_sizes; }
    PickerList& List() { return *m_list; }

    int Row() const { return m_list->currentIndex().row(); }
    QString Tag() const { return m_list->property("Tag").toString(); }
    QPoint At(int row) const { return m_list->visualRect(m_list->model()->index(row, 0)).center(); }

    QStringList Chosen() const
    {
        QStringList texts;
        for (const QList<QVariant>& arguments : *m_chosen)
            texts.append(arguments.first().toString());
        return texts;
    }
    qsizetype Left() const { return m_left->size(); }
    qsizetype Lost() const { return m_lost->size(); }

private:
    PickerWindow m_window;
    FontFrame m_fonts{&m_window};
    SizeFrame m_sizes{&m_window};
    PickerList* m_list = nullptr;
    std::optional<QSignalSpy> m_chosen;
    std::optional<QSignalSpy> m_left;
    std::optional<QSignalSpy> m_lost;
};

TEST_F(APopupList, IsHiddenUntilItIsShown)
{
    EXPECT_FALSE(Fonts().isVisible());
    EXPECT_FALSE(Sizes().isVisible());
    EXPECT_EQ(Fonts().objectName(), QStringLiteral("FontFrame"));
    EXPECT_EQ(Fonts().List().objectName(), QStringLiteral("fName"));
    EXPECT_EQ(Sizes().objectName(), QStringLiteral("SizeFrame"));
    EXPECT_EQ(Sizes().List().objectName(), QStringLiteral("fSize"));
}

TEST_F(APopupList, OpensOnTheFirstEqualEntryIgnoringCase)
{
    Open(Fonts(), kNames, QStringLiteral("COURIER"));
    EXPECT_EQ(Row(), 1);
    EXPECT_EQ(List().selectionModel()->selectedRows().size(), 1);
    EXPECT_TRUE(List().hasFocus());
    EXPECT_EQ(Tag(), QString());
    EXPECT_TRUE(Chosen().isEmpty());
}

TEST_F(APopupList, OpensOnNoneForAMixedValue)
{
    Open(Fonts(), kNames, {});
    EXPECT_EQ(Row(), -1);
    EXPECT_FALSE(List().selectionModel()->hasSelection());
}

TEST_F(APopupList, OpensOnNoneForAnUnknownName)
{
    Open(Fonts(), kNames, QStringLiteral("Symbol"));
    ASSERT_EQ(Row(), 4);
    Open(Fonts(), kNames, QStringLiteral("Nowhere"));
    EXPECT_EQ(Row(), -1);
    EXPECT_FALSE(List().selectionModel()->hasSelection());
}

TEST_F(APopupList, OfSizesComparesWithoutBlanks)
{
    Open(Sizes(), FontSizeEntries(), QStringLiteral("8"));
    EXPECT_EQ(Row(), 1);
    Open(Sizes(), FontSizeEntries(), QStringLiteral("72"));
    EXPECT_EQ(Row(), 17);
    Open(Sizes(), FontSizeEntries(), QStringLiteral("8.4"));
    EXPECT_EQ(Row(), -1);
    Open(Sizes(), FontSizeEntries(), QString());
    EXPECT_EQ(Row(), -1);
}

TEST_F(APopupList, KeepsItsEntriesAsTheyWereGiven)
{
    Open(Sizes(), FontSizeEntries(), {});
    EXPECT_EQ(Sizes().Items(), FontSizeEntries());
    EXPECT_EQ(List().model()->rowCount(), 18);
    EXPECT_EQ(List().model()->index(0, 0).data().toString(), QStringLiteral(" 6"));
}

TEST_F(APopupList, IsBrowsedWithTheKeyboardAndAppliesNothing)
{
    Open(Fonts(), kNames, QStringLiteral("Arial"));
    Window().Press(Qt::Key_Down);
    EXPECT_EQ(Row(), 1);
    EXPECT_EQ(Tag(), QStringLiteral("Key"));
    Window().Press(Qt::Key_Down);
    Window().Press(Qt::Key_Up);
    EXPECT_EQ(Row(), 1);
    Window().Press(Qt::Key_End);
    EXPECT_EQ(Row(), 5);
    Window().Press(Qt::Key_Home);
    EXPECT_EQ(Row(), 0);
    Window().Press(Qt::Key_PageDown);
    EXPECT_GT(Row(), 0);
    Window().Press(Qt::Key_PageUp);
    EXPECT_EQ(Row(), 0);
    Window().Press('s');
    EXPECT_EQ(Row(), 4);
    EXPECT_EQ(Tag(), QStringLiteral("Key"));
    EXPECT_TRUE(Chosen().isEmpty());
    EXPECT_EQ(Left(), 0);
    EXPECT_TRUE(Fonts().isVisible());
}

TEST_F(APopupList, OfSizesFindsTypedNumbers)
{
    Open(Sizes(), FontSizeEntries(), {});
    Window().Press('9');
    EXPECT_EQ(Row(), 2);
    EXPECT_TRUE(Chosen().isEmpty());
}

TEST_F(APopupList, AppliesTheCurrentEntryOnEnter)
{
    Open(Fonts(), kNames, QStringLiteral("Arial"));
    Window().Press(Qt::Key_End);
    Window().Press(Qt::Key_Return);
    EXPECT_EQ(Chosen(), QStringList({QStringLiteral("Times")}));
    EXPECT_EQ(Tag(), QString());
}

TEST_F(APopupList, AppliesTheCurrentEntryOnTheKeypadsEnter)
{
    Open(Sizes(), FontSizeEntries(), QStringLiteral("6"));
    Window().Press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Chosen(), QStringList({QStringLiteral(" 6")}));
}

TEST_F(APopupList, IsLeftOnEnterWhenNoEntryIsCurrent)
{
    Open(Fonts(), kNames, {});
    Window().Press(Qt::Key_Return);
    EXPECT_TRUE(Chosen().isEmpty());
    EXPECT_EQ(Left(), 1);
}

TEST_F(APopupList, IsLeftOnEscapeAndAppliesNothing)
{
    Open(Fonts(), kNames, QStringLiteral("Arial"));
    Window().Press(Qt::Key_Down);
    Window().Press(Qt::Key_Escape);
    EXPECT_EQ(Left(), 1);
    EXPECT_TRUE(Chosen().isEmpty());
}

TEST_F(APopupList, AppliesAClickedEntry)
{
    Open(Fonts(), kNames, QStringLiteral("Arial"));
    Window().Click(*List().viewport(), At(3));
    EXPECT_EQ(Chosen(), QStringList({QStringLiteral("Georgia")}));
}

TEST_F(APopupList, AppliesAClickOnTheEntryThatIsSelected)
{
    Open(Fonts(), kNames, QStringLiteral("Arial"));
    Window().Click(*List().viewport(), At(0));
    EXPECT_EQ(Chosen(), QStringList({QStringLiteral("Arial")}));
}

TEST_F(APopupList, AppliesAClickAfterItWasBrowsedWithTheKeyboard)
{
    Open(Fonts(), kNames, QStringLiteral("Arial"));
    Window().Press(Qt::Key_Down);
    ASSERT_EQ(Tag(), QStringLiteral("Key"));
    Window().PressMouse(*List().viewport(), At(4));
    EXPECT_EQ(Tag(), QString());
    EXPECT_TRUE(Chosen().isEmpty());
    Window().ReleaseMouse(*List().viewport(), At(4));
    EXPECT_EQ(Chosen(), QStringList({QStringLiteral("Symbol")}));
}

TEST_F(APopupList, AppliesNothingForAClickBelowItsEntries)
{
    Open(Fonts(), kNames, QStringLiteral("Arial"));
    Fonts().resize(Fonts().width(), Fonts().height() + 100);
    Window().Click(*List().viewport(), QPoint(20, List().viewport()->height() - 5));
    EXPECT_TRUE(Chosen().isEmpty());
    EXPECT_EQ(Left(), 0);
}

TEST_F(APopupList, TellsThatItLostTheFocus)
{
    Open(Fonts(), kNames, QStringLiteral("Arial"));
    EXPECT_EQ(Lost(), 0);
    Window().Text().setFocus();
    EXPECT_EQ(Lost(), 1);
    EXPECT_TRUE(Chosen().isEmpty());
}

TEST_F(APopupList, TellsThatItLostTheFocusToAClickElsewhere)
{
    Open(Fonts(), kNames, QStringLiteral("Arial"));
    Window().Click(Window().Text(), QPoint(5, 5));
    EXPECT_EQ(Lost(), 1);
}

TEST_F(APopupList, TellsThatItLostTheFocusWhenItIsHidden)
{
    Open(Fonts(), kNames, QStringLiteral("Arial"));
    Fonts().hide();
    EXPECT_EQ(Lost(), 1);
}

TEST_F(APopupList, TellsNothingWhenItIsDeletedWithTheFocus)
{
    auto frame = std::make_unique<SizeFrame>(&Window());
    int told = 0;
    QObject::connect(frame.get(), &PickerFrame::FocusLost, &Window(), [&told] { ++told; });
    frame->SetItems(FontSizeEntries());
    frame->show();
    frame->setFocus();
    ASSERT_TRUE(frame->List().hasFocus());
    frame.reset();
    EXPECT_EQ(told, 0);
}

TEST_F(APopupList, KeepsTheMouseFromWhatIsUnderIt)
{
    Open(Sizes(), FontSizeEntries(), {});
    Window().Click(Sizes(), QPoint(0, 0));
    TurnWheel(Window(), List());
    EXPECT_EQ(Window().Presses(), 0);
    EXPECT_EQ(Window().Turns(), 0);
}

TEST_F(APopupList, ShowsTwoThousandFamiliesAndTheSelectedOneAmongThem)
{
    Open(Fonts(), Families(2000), QStringLiteral("1234 FAMILY"));
    EXPECT_EQ(Row(), 1234);
    EXPECT_TRUE(List().viewport()->rect().contains(At(1234)));
    EXPECT_TRUE(List().verticalScrollBar()->isVisible());
    Open(Fonts(), Families(2000), {});
    EXPECT_EQ(List().verticalScrollBar()->value(), 0);
}

TEST_F(APopupList, IsAsHighAsItsRowsAndAsWideAsItsTwips)
{
    Fonts().SetItems(Families(100));
    EXPECT_EQ(Fonts().width(), 220);
    EXPECT_EQ(Fonts().height(), 12 * Fonts().List().RowHeight() + 4);
    Sizes().SetItems(FontSizeEntries());
    EXPECT_EQ(Sizes().width(), 60);
    EXPECT_EQ(Sizes().height(), 18 * Sizes().List().RowHeight() + 4);
    Sizes().SetScale(10, 12);
    EXPECT_EQ(Sizes().width(), 90);
}

TEST_F(APopupList, HasItsOwnSizeAgainWhenItIsOpenedAgain)
{
    Fonts().SetItems(Families(100));
    const QSize own = Fonts().size();
    Fonts().resize(own.width(), Fonts().LeastHeight());
    EXPECT_LT(Fonts().height(), own.height());
    Fonts().Prepare({});
    EXPECT_EQ(Fonts().size(), own);
}

TEST_F(APopupList, IsKnownToScreenReaders)
{
    Open(Fonts(), kNames, QStringLiteral("Symbol"));
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&List());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Font name"));
    ASSERT_EQ(list->childCount(), 6);
    EXPECT_EQ(list->child(4)->text(QAccessible::Name), QStringLiteral("Symbol"));
    EXPECT_TRUE(list->child(4)->state().selected);
    EXPECT_FALSE(list->child(3)->state().selected);
    EXPECT_EQ(Sizes().List().accessibleName(), QStringLiteral("Font size (points)"));
}

TEST_F(APopupList, IsOpaqueInADarkPalette)
{
    Window().setPalette(DarkPalette());
    Open(Sizes(), {QStringLiteral(" 6")}, {});
    const QImage image = Window().grab().toImage();
    const QPoint corner = Sizes().mapTo(&Window(), QPoint(0, 0));
    EXPECT_NE(image.pixelColor(corner), image.pixelColor(corner - QPoint(1, 1)));
    const QPoint empty = Sizes().mapTo(&Window(), QPoint(Sizes().width() - 6, Sizes().height() - 6));
    EXPECT_EQ(image.pixelColor(empty), DarkPalette().color(QPalette::Base));
}

}  // namespace
}  // namespace quillmarker
