#include "format/popup_place.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

TEST(AToolbarButton, IsHitOnAllFourEdges)
{
    constexpr QPoint kButton(1000, 40);
    EXPECT_TRUE(ButtonHit(kButton, 1000, 40));
    EXPECT_TRUE(ButtonHit(kButton, 1360, 370));
    EXPECT_TRUE(ButtonHit(kButton, 1180, 200));
    EXPECT_FALSE(ButtonHit(kButton, 999, 40));
    EXPECT_FALSE(ButtonHit(kButton, 1000, 39));
    EXPECT_FALSE(ButtonHit(kButton, 1361, 370));
    EXPECT_FALSE(ButtonHit(kButton, 1360, 371));
}

TEST(APopup, StandsUnderTheMiddleOfItsButton) { EXPECT_EQ(PopupTopLeft({1000, 40}), QPoint(1180, 415)); }

TEST(APopup, StaysWhereItFits)
{
    const QRect area(0, 0, 500, 400);
    EXPECT_EQ(KeptInside({10, 30, 100, 200}, area, 50), QRect(10, 30, 100, 200));
    EXPECT_EQ(KeptInside({400, 200, 100, 200}, area, 50), QRect(400, 200, 100, 200));
}

TEST(APopup, IsShiftedLeftFromTheRightEdge)
{
    const QRect area(0, 0, 500, 400);
    EXPECT_EQ(KeptInside({401, 30, 100, 200}, area, 50), QRect(400, 30, 100, 200));
    EXPECT_EQ(KeptInside({450, 30, 600, 200}, area, 50), QRect(0, 30, 600, 200));
    EXPECT_EQ(KeptInside({450, 30, 600, 200}, QRect(20, 10, 480, 390), 50), QRect(20, 30, 600, 200));
}

TEST(APopup, IsCutOffAtTheBottom)
{
    EXPECT_EQ(KeptInside({10, 300, 100, 200}, {0, 0, 500, 400}, 50), QRect(10, 300, 100, 100));
    EXPECT_EQ(KeptInside({10, 350, 100, 200}, {0, 0, 500, 400}, 50), QRect(10, 350, 100, 50));
}

TEST(APopup, IsShiftedUpWhenTooLittleOfItWouldBeLeft)
{
    EXPECT_EQ(KeptInside({10, 351, 100, 200}, {0, 0, 500, 400}, 50), QRect(10, 350, 100, 50));
    EXPECT_EQ(KeptInside({10, 500, 100, 200}, {0, 0, 500, 400}, 50), QRect(10, 350, 100, 50));
    EXPECT_EQ(KeptInside({10, 300, 100, 200}, {0, 0, 500, 400}, 200), QRect(10, 200, 100, 200));
}

TEST(APopup, BeginsInsideOfAnAreaThatIsSmallerThanIt)
{
    EXPECT_EQ(KeptInside({10, 30, 100, 200}, {0, 0, 500, 40}, 50), QRect(10, 0, 100, 50));
    EXPECT_EQ(KeptInside({10, 30, 100, 200}, {5, 6, 0, 0}, 50), QRect(5, 6, 100, 50));
}

}  // namespace
}  // namespace quillmarker
