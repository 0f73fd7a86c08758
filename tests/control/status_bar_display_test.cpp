#include "control/status_bar_widget.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QTest>

namespace quillmarker
{
namespace
{

void PressOnTheKeyboard(const char* key)
{
    ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"), {QStringLiteral("key"), QLatin1String(key)}), 0);
}

/// The locks are as they were before when the test ends.
class LocksOfADisplay : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb"));
        ASSERT_EQ(m_keyboard->Now(), KeyLocks());
    }

    void TearDown() override
    {
        const KeyLocks locks = m_keyboard->Now().value_or(KeyLocks());
        if (locks.isCapsLocked)
            PressOnTheKeyboard("Caps_Lock");
        if (locks.isNumLocked)
            PressOnTheKeyboard("Num_Lock");
    }

    const std::shared_ptr<KeyLockService> m_keyboard = MakeQtKeyLocks();
};

TEST_F(LocksOfADisplay, AreToldAsTheyAre)
{
    PressOnTheKeyboard("Caps_Lock");
    EXPECT_EQ(m_keyboard->Now(), (KeyLocks{.isCapsLocked = true}));
    PressOnTheKeyboard("Num_Lock");
    EXPECT_EQ(m_keyboard->Now(), (KeyLocks{true, true}));
    PressOnTheKeyboard("Caps_Lock");
    EXPECT_EQ(m_keyboard->Now(), (KeyLocks{.isNumLocked = true}));
    PressOnTheKeyboard("Num_Lock");
    EXPECT_EQ(m_keyboard->Now(), KeyLocks());
}

TEST_F(LocksOfADisplay, AreFollowedByAStatusBarThatIsShown)
{
    PressOnTheKeyboard("Num_Lock");
    StatusBar bar(m_keyboard);
    bar.show();
    bar.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&bar));
    const auto isOn = [&](const char* name) { return bar.findChild<QLabel*>(QLatin1String(name))->isEnabled(); };
    EXPECT_TRUE(isOn("NUM"));
    EXPECT_FALSE(isOn("CAPS"));

    PressOnTheKeyboard("Caps_Lock");
    EXPECT_TRUE(QTest::qWaitFor([&] { return isOn("CAPS"); }));
    EXPECT_TRUE(isOn("NUM"));
    PressOnTheKeyboard("Caps_Lock");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isOn("CAPS"); }));
    PressOnTheKeyboard("Num_Lock");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isOn("NUM"); }));
}

}  // namespace
}  // namespace quillmarker
