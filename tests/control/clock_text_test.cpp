#include "control/clock_text.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

using namespace std::chrono_literals;

const QLocale kGerman(QLocale::German, QLocale::Germany);

QDateTime Moment(int hour, int minute, int second, int millisecond = 0)
{
    return {QDate(2024, 2, 29), QTime(hour, minute, second, millisecond)};
}

TEST(TheClock, ShowsTheShortFormOfTheLocale)
{
    const ClockText german = ClockTextAt(Moment(21, 5, 30), kGerman);
    EXPECT_EQ(german.date, QStringLiteral("29.02.24"));
    EXPECT_EQ(german.time, QStringLiteral("21:05"));
    const ClockText american = ClockTextAt(Moment(21, 5, 30), QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(american.date, QStringLiteral("2/29/24"));
    EXPECT_TRUE(american.time.startsWith(QStringLiteral("9:05"))) << american.time.toStdString();
}

TEST(TheClock, LastsUntilTheMinuteChangesButNotLongerThanTenSeconds)
{
    EXPECT_EQ(ClockTextAt(Moment(21, 5, 57, 250), kGerman).lasts, 2750ms);
    EXPECT_EQ(ClockTextAt(Moment(21, 5, 59, 999), kGerman).lasts, 1ms);
    EXPECT_EQ(ClockTextAt(Moment(21, 6, 0), kGerman).lasts, 10s);
}

TEST(TheClock, LastsASecondWhereItShowsSeconds)
{
    ASSERT_EQ(ClockTextAt(Moment(21, 5, 30), QLocale::c()).time, QStringLiteral("21:05:30"));
    EXPECT_EQ(ClockTextAt(Moment(21, 5, 30, 400), QLocale::c()).lasts, 600ms);
    EXPECT_EQ(ClockTextAt(Moment(21, 5, 30), QLocale::c()).lasts, 1s);
}

TEST(TheLongestTime, HasTwoDigitsOfHours)
{
    EXPECT_EQ(LongestTime(kGerman), QStringLiteral("10:58"));
    const QString american = LongestTime(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_TRUE(american.startsWith(QStringLiteral("10:58"))) << american.toStdString();
}

}  // namespace
}  // namespace quillmarker
