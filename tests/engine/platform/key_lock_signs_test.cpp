#include "engine/platform/key_lock_signs.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

constexpr KeyLocks kNone{};
constexpr KeyLocks kCaps{.isCapsLocked = true};
constexpr KeyLocks kNum{.isNumLocked = true};

QKeyEvent Press(int key, const char* text = "", Qt::KeyboardModifiers modifiers = {}, bool isAutoRepeat = false)
{
    return QKeyEvent(QEvent::KeyPress, key, modifiers, QString::fromUtf8(text), isAutoRepeat);
}

TEST(LocksAfterAKey, AreToggledByTheirOwn)
{
    EXPECT_EQ(LocksAfter(kNone, Press(Qt::Key_CapsLock)), kCaps);
    EXPECT_EQ(LocksAfter(kCaps, Press(Qt::Key_CapsLock)), kNone);
    EXPECT_EQ(LocksAfter(kNone, Press(Qt::Key_NumLock)), kNum);
    EXPECT_EQ(LocksAfter(kNum, Press(Qt::Key_NumLock)), kNone);
}

TEST(LocksAfterAKey, AreToggledOnceByOneThatIsHeld)
{
    EXPECT_EQ(LocksAfter(kCaps, Press(Qt::Key_CapsLock, "", {}, true)), kCaps);
    EXPECT_EQ(LocksAfter(kNone, Press(Qt::Key_NumLock, "", {}, true)), kNone);
}

TEST(LocksAfterAKey, AreSeenByTheCaseOfALetter)
{
    EXPECT_EQ(LocksAfter(kNone, Press(Qt::Key_A, "A")), kCaps);
    EXPECT_EQ(LocksAfter(kNone, Press(Qt::Key_A, "a", Qt::ShiftModifier)), kCaps);
    EXPECT_EQ(LocksAfter(kCaps, Press(Qt::Key_A, "a")), kNone);
    EXPECT_EQ(LocksAfter(kCaps, Press(Qt::Key_A, "A", Qt::ShiftModifier)), kNone);
    EXPECT_EQ(LocksAfter(kNone, Press(Qt::Key_Adiaeresis, "Ä")), kCaps);
    EXPECT_EQ(LocksAfter(kNum, Press(Qt::Key_A, "A")), (KeyLocks{true, true}));
}

TEST(LocksAfterAKey, AreNotSeenByWhatHasNoCaseOrIsAShortcut)
{
    for (const KeyLocks& known : {kNone, kCaps})
    {
        EXPECT_EQ(LocksAfter(known, Press(Qt::Key_1, "1")), known);
        EXPECT_EQ(LocksAfter(known, Press(Qt::Key_ssharp, "ß")), known);
        EXPECT_EQ(LocksAfter(known, Press(Qt::Key_A, "A", Qt::ControlModifier)), known);
        EXPECT_EQ(LocksAfter(known, Press(Qt::Key_A, "a", Qt::AltModifier)), known);
        EXPECT_EQ(LocksAfter(known, Press(Qt::Key_Left)), known);
        EXPECT_EQ(LocksAfter(known, Press(0, "two")), known);
    }
}

TEST(LocksAfterAKey, AreSeenByWhatTheKeypadMeans)
{
    EXPECT_EQ(LocksAfter(kNone, Press(Qt::Key_4, "4", Qt::KeypadModifier)), kNum);
    EXPECT_EQ(LocksAfter(kNum, Press(Qt::Key_Left, "", Qt::KeypadModifier)), kNone);
    EXPECT_EQ(LocksAfter(kNum, Press(Qt::Key_Left, "", Qt::KeypadModifier | Qt::ShiftModifier)), kNum);
    EXPECT_EQ(LocksAfter(kNum, Press(Qt::Key_Enter, "\r", Qt::KeypadModifier)), kNum);
    EXPECT_EQ(LocksAfter(kNum, Press(Qt::Key_Left)), kNum);
    EXPECT_EQ(LocksAfter(kNone, Press(Qt::Key_4, "4")), kNone);
}

TEST(AKeyThatTypesSomething, LocksNothing)
{
    EXPECT_FALSE(MayToggleLocks(Press(Qt::Key_A, "a")));
    EXPECT_FALSE(MayToggleLocks(Press(Qt::Key_CapsLock, "", {}, true)));
    EXPECT_TRUE(MayToggleLocks(Press(Qt::Key_CapsLock)));
    EXPECT_TRUE(MayToggleLocks(Press(Qt::Key_Shift)));
}

}  // namespace
}  // namespace quillmarker
