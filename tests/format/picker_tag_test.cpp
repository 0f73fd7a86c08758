#include "format/picker_tag.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

TEST(ThePickersTag, IsEmptyAtFirst)
{
    const PickerTag tag;
    EXPECT_EQ(tag.Text(), QString());
    EXPECT_TRUE(tag.AppliesClick());
}

TEST(ThePickersTag, SaysThatTheKeyboardIsMoving)
{
    for (const int key :
         {int{Qt::Key_Down}, int{Qt::Key_PageUp}, int{Qt::Key_A}, int{Qt::Key_Space}, int{Qt::Key_Tab}, 0})
    {
        PickerTag tag;
        EXPECT_EQ(tag.KeyDown(key), PickerStep::Browse);
        EXPECT_EQ(tag.Text(), QStringLiteral("Key"));
        EXPECT_FALSE(tag.AppliesClick());
    }
}

TEST(ThePickersTag, IsClearedByBothEnterKeys)
{
    for (const int key : {int{Qt::Key_Return}, int{Qt::Key_Enter}})
    {
        PickerTag tag;
        tag.KeyDown(Qt::Key_Down);
        EXPECT_EQ(tag.KeyDown(key), PickerStep::Apply);
        EXPECT_EQ(tag.Text(), QString());
        EXPECT_TRUE(tag.AppliesClick());
    }
}

TEST(ThePickersTag, IsLeftAloneByEscape)
{
    PickerTag tag;
    EXPECT_EQ(tag.KeyDown(Qt::Key_Escape), PickerStep::Leave);
    EXPECT_TRUE(tag.AppliesClick());
    tag.KeyDown(Qt::Key_Up);
    EXPECT_EQ(tag.KeyDown(Qt::Key_Escape), PickerStep::Leave);
    EXPECT_FALSE(tag.AppliesClick());
}

TEST(ThePickersTag, IsClearedByAPressOfTheMouse)
{
    PickerTag tag;
    tag.KeyDown(Qt::Key_Up);
    tag.Clear();
    EXPECT_EQ(tag.Text(), QString());
    EXPECT_TRUE(tag.AppliesClick());
}

}  // namespace
}  // namespace quillmarker
