#include "engine/document/parse_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <locale>
#include <string_view>

namespace quillmarker
{
namespace
{

TEST(NumericValue, TellsZeroFromWhatIsNoNumber)
{
    EXPECT_EQ(NumericValue(u" 0 "), 0);
    EXPECT_EQ(NumericValue(u"-0"), 0);
    EXPECT_EQ(NumericValue(u"- 12.5"), -12.5);
    EXPECT_EQ(NumericValue(u"&H10"), 16);
    for (const std::u16string_view text : {u"", u" ", u"x", u"-", u"True", u"1 2", u"1e999", u"&H"})
        EXPECT_EQ(NumericValue(text), std::nullopt);
}

TEST(ParseNumber, ReadsWhatIsNumeric)
{
    EXPECT_EQ(ParseNumber(u"12.5"), 12.5);
    EXPECT_EQ(ParseNumber(u"  -7\t"), -7);
    EXPECT_EQ(ParseNumber(u"+ 3"), 3);
    EXPECT_EQ(ParseNumber(u".5"), 0.5);
    EXPECT_EQ(ParseNumber(u"5."), 5);
    EXPECT_EQ(ParseNumber(u"0012"), 12);
}

TEST(ParseNumber, CommasBeforeThePointAreLeftOut)
{
    EXPECT_EQ(ParseNumber(u"1,234,567.25"), 1234567.25);
    EXPECT_EQ(ParseNumber(u"1,2,3"), 123);
    EXPECT_EQ(ParseNumber(u"1,"), 1);
    EXPECT_EQ(ParseNumber(u",1"), 0);
    EXPECT_EQ(ParseNumber(u"1.5,0"), 0);
}

TEST(ParseNumber, AnExponentFollowsEOrD)
{
    EXPECT_EQ(ParseNumber(u"1e3"), 1000);
    EXPECT_EQ(ParseNumber(u"25E-1"), 2.5);
    EXPECT_EQ(ParseNumber(u"2d+2"), 200);
    EXPECT_EQ(ParseNumber(u"-2.5D1"), -25);
    EXPECT_EQ(ParseNumber(u"1e"), 0);
    EXPECT_EQ(ParseNumber(u"1e+"), 0);
    EXPECT_EQ(ParseNumber(u"e5"), 0);
    EXPECT_EQ(ParseNumber(u"1e2.5"), 0);
}

TEST(ParseNumber, HexadecimalAndOctalAreMarked)
{
    EXPECT_EQ(ParseNumber(u"&H1f"), 31);
    EXPECT_EQ(ParseNumber(u"&hFFFFFFFF"), 4294967295.0);
    EXPECT_EQ(ParseNumber(u"&O17"), 15);
    EXPECT_EQ(ParseNumber(u"&H"), 0);
    EXPECT_EQ(ParseNumber(u"&HG"), 0);
    EXPECT_EQ(ParseNumber(u"&O8"), 0);
    EXPECT_EQ(ParseNumber(u"&H100000000"), 0);
    EXPECT_EQ(ParseNumber(u"&H-1"), 0);
    EXPECT_EQ(ParseNumber(u"&H\u0131"), 0);  // its low byte is a digit's
}

TEST(ParseNumber, AnythingElseIsZero)
{
    for (const std::u16string_view text : {u"", u" ", u"abc", u"12a", u"1 2", u".", u"-", u"--1", u"5-", u"(5)", u"$5",
                                           u"inf", u"nan", u"0x10", u"1.2.3", u"\uFF11", u"1\u0660"})
        EXPECT_EQ(ParseNumber(text), 0);
    EXPECT_EQ(ParseNumber(std::u16string_view(u"1\0", 2)), 0);
}

TEST(ParseNumber, ANumberThatIsTooLargeIsZero)
{
    EXPECT_EQ(ParseNumber(u"1e308"), 1e308);
    EXPECT_EQ(ParseNumber(u"1e309"), 0);
    EXPECT_EQ(ParseNumber(u"-1e999999999999"), 0);
    EXPECT_EQ(ParseNumber(u"1e-999"), 0);
    EXPECT_FALSE(std::signbit(ParseNumber(u"-0")));
}

// Numbers the way half of Europe writes them.
class CommaForPoint : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
};

TEST(ParseNumber, TheLocaleIsNotAsked)
{
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaForPoint));
    EXPECT_EQ(ParseNumber(u"12.5"), 12.5);
    EXPECT_EQ(ParseNumber(u"1,5"), 15);
    std::locale::global(before);
}

TEST(ParseSize, IsTheSameInSinglePrecision)
{
    EXPECT_EQ(ParseSize(u"10.5"), 10.5F);
    EXPECT_EQ(ParseSize(u"0.1"), 0.1F);
    EXPECT_EQ(ParseSize(u"abc"), 0.0F);
    EXPECT_EQ(ParseSize(u"3e38"), 3e38F);
    EXPECT_EQ(ParseSize(u"4e38"), 0.0F);
    EXPECT_EQ(ParseSize(u"-4e38"), 0.0F);
}

}  // namespace
}  // namespace quillmarker
