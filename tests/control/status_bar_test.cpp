#include "control/status_bar_widget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <algorithm>

namespace quillmarker
{
namespace
{

/// A keyboard whose locks the test sets.
class ScriptedKeyLocks : public KeyLockService
{
public:
    std::optional<KeyLocks> now;
    mutable int asked = 0;

    std::optional<KeyLocks> Now() const override
    {
        ++asked;
        return now;
    }
};

class TheStatusBar : public ::testing::Test
{
protected:
    TheStatusBar() { m_bar.setLocale(QLocale(QLocale::German, QLocale::Germany)); }

    StatusBar& Bar() { return m_bar; }
    ScriptedKeyLocks& Keyboard() { return *m_keyboard; }

    void Show()
    {
        m_bar.resize(400, m_bar.sizeHint().height());
        m_bar.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_bar));
    }

    QLabel& Panel(const char* name) const { return *m_bar.findChild<QLabel*>(QLatin1String(name)); }
    bool IsOn(const char* name) const { return Panel(name).isEnabled(); }
    std::string Spoken(const char* name) const { return Panel(name).accessibleName().toStdString(); }

    /// Goes the way of a real key: to the window, then to whatever has the focus.
    template <typename Key>
    void Press(Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(m_bar.windowHandle(), key, modifiers);
    }

private:
    std::shared_ptr<ScriptedKeyLocks> m_keyboard = std::make_shared<ScriptedKeyLocks>();
    StatusBar m_bar{m_keyboard};
};

TEST_F(TheStatusBar, HasFivePanelsFromTheLeft)
{
    Show();
    QList<QLabel*> panels = Bar().findChildren<QLabel*>();
    std::ranges::sort(panels, {}, [](const QLabel* panel) { return panel->x(); });
    QStringList names;
    for (const QLabel* panel : panels)
    {
        names << panel->objectName();
        EXPECT_TRUE(panel->isVisible());
        EXPECT_GE(panel->width(), panel->sizeHint().width());
    }
    EXPECT_EQ(names.join(u' '), QStringLiteral("Date Time INS CAPS NUM"));
    EXPECT_LT(panels.last()->geometry().right(), Bar().width() * 3 / 4);
}

TEST_F(TheStatusBar, ShowsWhatTheClockSays)
{
    const QDateTime before = QDateTime::currentDateTime();
    Show();
    const QDateTime after = QDateTime::currentDateTime();
    EXPECT_THAT(Panel("Date").text().toStdString(),
                ::testing::AnyOf(before.toString(QStringLiteral("dd.MM.yy")).toStdString(),
                                 after.toString(QStringLiteral("dd.MM.yy")).toStdString()));
    EXPECT_THAT(Panel("Time").text().toStdString(),
                ::testing::AnyOf(before.toString(QStringLiteral("HH:mm")).toStdString(),
                                 after.toString(QStringLiteral("HH:mm")).toStdString()));
}

TEST_F(TheStatusBar, FollowsALocaleThatChanges)
{
    Show();
    ASSERT_TRUE(Panel("Date").text().contains(u'.'));
    Bar().setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_TRUE(Panel("Date").text().contains(u'/')) << Panel("Date").text().toStdString();
    EXPECT_TRUE(Panel("Time").text().endsWith(u'M')) << Panel("Time").text().toStdString();
}

TEST_F(TheStatusBar, GoesOnWithTheClock)
{
    Bar().setLocale(QLocale::c());  // which shows seconds
    Show();
    const QString first = Panel("Time").text();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Panel("Time").text() != first; }));
}

TEST_F(TheStatusBar, ShowsInsertModeUntilTheTextIsOverwritten)
{
    Show();
    EXPECT_TRUE(IsOn("INS"));
    EXPECT_EQ(Spoken("INS"), "Insert mode");
    Bar().SetOverwrites(true);
    EXPECT_FALSE(IsOn("INS"));
    EXPECT_EQ(Spoken("INS"), "Overwrite mode");
    EXPECT_EQ(Panel("INS").text(), QStringLiteral("INS"));
    Bar().SetOverwrites(false);
    EXPECT_TRUE(IsOn("INS"));
}

TEST_F(TheStatusBar, ShowsTheLocksOfTheKeyboard)
{
    Keyboard().now = KeyLocks{.isCapsLocked = true};
    Show();
    EXPECT_TRUE(IsOn("CAPS"));
    EXPECT_FALSE(IsOn("NUM"));
    EXPECT_EQ(Spoken("CAPS"), "Caps Lock on");
    EXPECT_EQ(Spoken("NUM"), "Num Lock off");

    Keyboard().now = KeyLocks{.isNumLocked = true};
    Press(Qt::Key_Shift);
    EXPECT_FALSE(IsOn("CAPS"));
    EXPECT_TRUE(IsOn("NUM"));
    EXPECT_EQ(Spoken("CAPS"), "Caps Lock off");
    EXPECT_EQ(Spoken("NUM"), "Num Lock on");
}

TEST_F(TheStatusBar, BelievesTheKeyboardMoreThanTheKeys)
{
    Keyboard().now = KeyLocks();
    Show();
    Press(Qt::Key_CapsLock);
    Press(Qt::Key_NumLock);
    Press('A');
    EXPECT_FALSE(IsOn("CAPS"));
    EXPECT_FALSE(IsOn("NUM"));
}

TEST_F(TheStatusBar, FollowsTheLockKeysWhereTheKeyboardDoesNotTell)
{
    Show();
    EXPECT_FALSE(IsOn("CAPS"));
    EXPECT_FALSE(IsOn("NUM"));
    Press(Qt::Key_CapsLock);
    EXPECT_TRUE(IsOn("CAPS"));
    EXPECT_FALSE(IsOn("NUM"));
    Press(Qt::Key_NumLock);
    EXPECT_TRUE(IsOn("NUM"));
    Press(Qt::Key_CapsLock);
    EXPECT_FALSE(IsOn("CAPS"));
    EXPECT_TRUE(IsOn("NUM"));
}

TEST_F(TheStatusBar, LearnsFromTheCaseOfLetters)
{
    Show();
    Press('A');
    EXPECT_TRUE(IsOn("CAPS"));
    Press('a');
    EXPECT_FALSE(IsOn("CAPS"));
    Press('a', Qt::ShiftModifier);
    EXPECT_TRUE(IsOn("CAPS"));
}

TEST_F(TheStatusBar, FollowsKeysThatGoToOtherWindows)
{
    Show();
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    QTest::keyClick(other.windowHandle(), Qt::Key_NumLock);
    EXPECT_TRUE(IsOn("NUM"));
}

TEST_F(TheStatusBar, DoesNotAskTheKeyboardForEachLetter)
{
    Keyboard().now = KeyLocks();
    Show();
    const int before = Keyboard().asked;
    Press('a');
    Press('1');
    Press(Qt::Key_Return);
    EXPECT_EQ(Keyboard().asked, before);
    Press('A');
    EXPECT_GT(Keyboard().asked, before);
}

TEST_F(TheStatusBar, AsksAgainWhenItsWindowBecomesTheActiveOne)
{
    Keyboard().now = KeyLocks();
    Show();
    Bar().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Bar()));
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    Keyboard().now = KeyLocks{.isCapsLocked = true};
    EXPECT_FALSE(IsOn("CAPS"));
    Bar().activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsOn("CAPS"); }));
}

TEST_F(TheStatusBar, RestsWhileItIsHidden)
{
    EXPECT_EQ(Keyboard().asked, 0);
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    QTest::keyClick(other.windowHandle(), Qt::Key_CapsLock);
    EXPECT_EQ(Keyboard().asked, 0);

    Show();
    const int asked = Keyboard().asked;
    EXPECT_GT(asked, 0);
    Bar().hide();
    Keyboard().now = KeyLocks{true, true};
    QTest::keyClick(other.windowHandle(), Qt::Key_CapsLock);
    EXPECT_EQ(Keyboard().asked, asked);
    EXPECT_FALSE(IsOn("CAPS"));
    Bar().show();
    EXPECT_TRUE(IsOn("CAPS"));
}

TEST_F(TheStatusBar, TellsOfAnyMouseButton)
{
    Show();
    QSignalSpy pressed(&Bar(), &StatusBar::MousePressed);
    const QPoint onPanel = Panel("CAPS").geometry().center();
    ASSERT_FALSE(IsOn("CAPS"));
    const QPoint beside(Bar().width() - 5, Bar().height() / 2);
    int count = 0;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
    {
        for (const QPoint place : {onPanel, beside})
        {
            QTest::mouseClick(Bar().windowHandle(), button, {}, place);
            EXPECT_EQ(pressed.count(), ++count);
        }
    }
}

TEST_F(TheStatusBar, IsAsHighAsItsFontNeeds)
{
    Show();
    const int before = Bar().sizeHint().height();
    EXPECT_GE(before, Bar().fontMetrics().height());
    QFont large = Bar().font();
    large.setPointSizeF(large.pointSizeF() * 3);
    Bar().setFont(large);
    QApplication::processEvents();  // a layout is made anew when nothing else is to be done
    EXPECT_GE(Bar().sizeHint().height(), QFontMetrics(large).height());
    EXPECT_GT(Bar().sizeHint().height(), before);
}

}  // namespace
}  // namespace quillmarker
