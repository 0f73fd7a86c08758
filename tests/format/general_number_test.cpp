#include "format/general_number.h"

#include "engine/document/parse_number.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

TEST(AGeneralNumber, HasNoMoreDecimalsThanItNeeds)
{
    EXPECT_EQ(GeneralNumber(10), QStringLiteral("10"));
    EXPECT_EQ(GeneralNumber(10.5F), QStringLiteral("10.5"));
    EXPECT_EQ(GeneralNumber(8.4F), QStringLiteral("8.4"));
    EXPECT_EQ(GeneralNumber(0.7F), QStringLiteral("0.7"));
    EXPECT_EQ(GeneralNumber(100), QStringLiteral("100"));
    EXPECT_EQ(GeneralNumber(1638), QStringLiteral("1638"));
    EXPECT_EQ(GeneralNumber(-2.25F), QStringLiteral("-2.25"));
}

TEST(AGeneralNumber, HasSevenDigitsAtMost)
{
    EXPECT_EQ(GeneralNumber(10.0F / 3), QStringLiteral("3.333333"));
    EXPECT_EQ(GeneralNumber(123456.7F), QStringLiteral("123456.7"));
    EXPECT_EQ(GeneralNumber(1234567), QStringLiteral("1234567"));
}

TEST(AGeneralNumber, ShowsZeroWithoutASign)
{
    EXPECT_EQ(GeneralNumber(0), QStringLiteral("0"));
    EXPECT_EQ(GeneralNumber(-0.0F), QStringLiteral("0"));
}

TEST(AGeneralNumber, HasAPointInEveryLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(GeneralNumber(10.5F), QStringLiteral("10.5"));
    QLocale::setDefault(before);
}

TEST(AGeneralNumber, IsReadBackAsItWas)
{
    for (int halfTwips = 0; halfTwips <= 2 * 20 * 1638; halfTwips += 7)
    {
        const float size = static_cast<float>(halfTwips) / 40;
        const std::u16string text = GeneralNumber(size).toStdU16String();
        EXPECT_EQ(ParseSize(text), size);
    }
}

}  // namespace
}  // namespace quillmarker
