#include "progress.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillmarker::tool
{
namespace
{

TEST(ProgressLines, ShowBarPartReportsRateAndTimeLeft)
{
    EXPECT_EQ(ProgressLine({50, 10, 0.25}, 80),
              "[##########------------------------------]  25%  50 reports, 5.0/s, 0:30 left");
}

TEST(ProgressLines, BeginAndEnd)
{
    EXPECT_EQ(ProgressLine({0, 0, 0.0}, 60), "[---------------------------]   0%  0 reports, 0.0/s, ? left");
    EXPECT_EQ(ProgressLine({8, 4, 1.0}, 50), "[##############] 100%  8 reports, 2.0/s, 0:00 left");
}

TEST(ProgressLines, NeverSayAllIsDoneWhenItIsNot)
{
    EXPECT_EQ(ProgressLine({999, 10, 0.9999}, 43), "[####-]  99%  999 reports, 100/s, 0:00 left");
    EXPECT_EQ(ProgressLine({999, 10, 0.9999}, 42), " 99%  999 reports, 100/s, 0:00 left");
}

TEST(ProgressLines, HaveNoBarWhenNobodyKnowsHowMuchThereIs)
{
    EXPECT_EQ(ProgressLine({50, 10, {}}, 80), "50 reports, 5.0/s");
}

TEST(ProgressLines, FitInTheColumns)
{
    for (int columns = -1; columns < 120; ++columns)
        EXPECT_LE(static_cast<int>(ProgressLine({12345, 100, 0.5}, columns).size()), std::max(columns, 0)) << columns;
    EXPECT_EQ(ProgressLine({50, 10, 0.25}, 10), " 25%  50 r");
}

TEST(ProgressLines, StandPartsOutsideOfTheWhole)
{
    EXPECT_EQ(ProgressLine({5, 10, 1.5}, 30), "100%  5 reports, 0.5/s, 0:00 l");
    EXPECT_EQ(ProgressLine({5, 10, -1.0}, 30), "  0%  5 reports, 0.5/s, ? left");
}

TEST(Durations, GrowFromSecondsToHours)
{
    EXPECT_EQ(Duration(0), "0:00");
    EXPECT_EQ(Duration(7.4), "0:07");
    EXPECT_EQ(Duration(59.6), "1:00");
    EXPECT_EQ(Duration(754), "12:34");
    EXPECT_EQ(Duration(3599.6), "1:00:00");
    EXPECT_EQ(Duration(3723), "1:02:03");
}

TEST(Durations, SayWhenNothingSensibleIsKnown)
{
    EXPECT_EQ(Duration(std::nullopt), "?");
    EXPECT_EQ(Duration(1e9), "?");
    EXPECT_EQ(Duration(std::numeric_limits<double>::quiet_NaN()), "?");
    EXPECT_EQ(Duration(-3), "0:00");
}

}  // namespace
}  // namespace quillmarker::tool
