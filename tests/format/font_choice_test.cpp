#include "format/font_choice.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillmarker
{
namespace
{

using Limits = std::numeric_limits<std::int32_t>;

FontChoice SampleChoice()
{
    return {.Name = QStringLiteral("Arial"),
            .Weight = -1,
            .Size = 12,
            .Underline = true,
            .Italic = false,
            .StrikeOut = true,
            .Color = 0x00804020,
            .Charset = 161};
}

TEST(TheNameOfACharacterSet, IsThatOfItsTable)
{
    constexpr struct
    {
        int charset;
        const char* name;
    } kNames[] = {
        {0, "Western"},    {1, "Western"},    {2, "Symbol"},
        {77, "Macintosh"}, {128, "Japanese"}, {129, "Korean"},
        {130, "Korean"},   {134, "Chinese"},  {136, "Chinese"},
        {161, "Greek"},    {162, "Turkish"},  {163, "Vietnamese"},
        {177, "Hebrew"},   {178, "Arabic"},   {186, "Baltic"},
        {204, "Cyrillic"}, {222, "Thai"},     {238, "Central and Eastern Europe"},
        {255, "MS-DOS"},   {3, "Western"},    {254, "Western"},
        {256, "Western"},  {-1, "Western"},
    };
    for (const auto& row : kNames)
        EXPECT_EQ(CharsetName(row.charset), QLatin1String(row.name)) << row.charset;
}

TEST(MulDivRound, GoesToTheNearestNumberAndFromTheMiddleToTheEvenOne)
{
    EXPECT_EQ(MulDivRound(10, 96, 72), 13);
    EXPECT_EQ(MulDivRound(11, 96, 72), 15);
    EXPECT_EQ(MulDivRound(105, 1, 10), 10);
    EXPECT_EQ(MulDivRound(115, 1, 10), 12);
    EXPECT_EQ(MulDivRound(104, 1, 10), 10);
    EXPECT_EQ(MulDivRound(106, 1, 10), 11);
    EXPECT_EQ(MulDivRound(1, 1, 2), 0);
    EXPECT_EQ(MulDivRound(3, 1, 2), 2);
    EXPECT_EQ(MulDivRound(5, 1, 2), 2);
}

TEST(MulDivRound, TakesNegativeNumbers)
{
    EXPECT_EQ(MulDivRound(-105, 1, 10), -10);
    EXPECT_EQ(MulDivRound(115, -1, 10), -12);
    EXPECT_EQ(MulDivRound(115, 1, -10), -12);
    EXPECT_EQ(MulDivRound(-106, -1, 10), 11);
    EXPECT_EQ(MulDivRound(-1, 1, 2), 0);
    EXPECT_EQ(MulDivRound(-3, 1, 2), -2);
    EXPECT_EQ(MulDivRound(-106, -1, -10), -11);
}

TEST(MulDivRound, IsMinusOneOverZero)
{
    EXPECT_EQ(MulDivRound(5, 7, 0), -1);
    EXPECT_EQ(MulDivRound(0, 0, 0), -1);
}

TEST(MulDivRound, HasNoResultWhenTheProductIsBeyond32Bits)
{
    EXPECT_EQ(MulDivRound(Limits::max(), 2, 2), std::nullopt);
    EXPECT_EQ(MulDivRound(Limits::min(), -1, 2), std::nullopt);
    EXPECT_EQ(MulDivRound(65'536, 32'768, 65'536), std::nullopt);
    EXPECT_EQ(MulDivRound(-65'536, 32'768, 65'536), -32'768);
    EXPECT_EQ(MulDivRound(Limits::max(), 1, 1), Limits::max());
    EXPECT_EQ(MulDivRound(Limits::min(), 1, 1), Limits::min());
    EXPECT_EQ(MulDivRound(Limits::min(), 1, -1), std::nullopt);
    EXPECT_EQ(MulDivRound(1, 1, Limits::min()), 0);
    EXPECT_EQ(MulDivRound(Limits::max(), 1, Limits::min()), -1);
}

TEST(PointsInPixels, FollowTheDots)
{
    EXPECT_EQ(PointsToLogicalHeight(12, 96), 16);
    EXPECT_EQ(PointsToLogicalHeight(10, 96), 13);
    EXPECT_EQ(PointsToLogicalHeight(10, 120), 17);
    EXPECT_EQ(PointsToLogicalHeight(0, 96), 0);
    EXPECT_EQ(PointsToLogicalHeight(27, 96), 36);
    EXPECT_EQ(PointsToLogicalHeight(Limits::max(), 96), std::nullopt);
}

TEST(ARequest, HoldsTheChoiceInTheImage)
{
    const FontDialogRequest request = RequestFor(SampleChoice(), 96);
    LogFontImage expected{};
    SetLogFontNumber(expected, LogFontField::Height, -16);
    SetLogFontNumber(expected, LogFontField::Weight, -1);
    expected[21] = std::byte{1};
    expected[22] = std::byte{1};
    expected[23] = std::byte{161};
    SetLogFontFaceName(expected, QStringLiteral("Arial"));
    EXPECT_EQ(request.logFont, expected);
    EXPECT_EQ(request.flags, 0x20141U);
    EXPECT_EQ(request.rgbColors, 0x00804020U);
    EXPECT_EQ(request.faceName, QStringLiteral("Arial"));
    EXPECT_EQ(request.pointSizeTenths, 0);
}

TEST(ARequest, OfNothingIsAllZeros)
{
    const FontDialogRequest request = RequestFor({}, 96);
    EXPECT_EQ(request.logFont, LogFontImage{});
    EXPECT_EQ(request.faceName, QString());
}

TEST(ARequest, CutsANameTo32Characters)
{
    FontChoice choice;
    choice.Name = QString(33, u'Ω');
    const FontDialogRequest request = RequestFor(choice, 96);
    EXPECT_EQ(request.faceName, QString(32, u'Ω'));
    EXPECT_EQ(LogFontFaceName(request.logFont), QString(32, u'?'));
    EXPECT_EQ(request.logFont[60], std::byte{0});
}

TEST(ARequest, HasTheLowByteOfTheCharacterSetAndNoHeightThatCannotBeTold)
{
    FontChoice choice;
    choice.Charset = 0x1A1;
    choice.Size = Limits::max();
    const FontDialogRequest request = RequestFor(choice, 96);
    EXPECT_EQ(LogFontNumber(request.logFont, LogFontField::CharSet), 0xA1);
    EXPECT_EQ(LogFontNumber(request.logFont, LogFontField::Height), 0);
}

TEST(AChoice, IsReadFromTheAnswer)
{
    const FontDialogRequest asked = RequestFor(SampleChoice(), 96);
    FontDialogRequest answer = asked;
    SetLogFontNumber(answer.logFont, LogFontField::Weight, 400);
    answer.logFont[20] = std::byte{255};
    answer.logFont[21] = std::byte{0};
    SetLogFontNumber(answer.logFont, LogFontField::CharSet, 204);
    SetLogFontFaceName(answer.logFont, QStringLiteral("Courier"));
    answer.rgbColors = 0x000000FF;
    answer.pointSizeTenths = 140;
    const FontChoice expected{.Name = QStringLiteral("Courier"),
                              .Weight = 400,
                              .Size = 14,
                              .Underline = false,
                              .Italic = true,
                              .StrikeOut = true,
                              .Color = 0x000000FF,
                              .Charset = 204};
    EXPECT_EQ(ChoiceOf(answer, asked), expected);
}

TEST(AChoice, HasWholePoints)
{
    constexpr struct
    {
        int tenths;
        int points;
    } kSizes[] = {{0, 0}, {100, 10}, {105, 10}, {106, 11}, {114, 11}, {115, 12}, {5, 0}};
    for (const auto& row : kSizes)
    {
        FontDialogRequest answer;
        answer.pointSizeTenths = row.tenths;
        EXPECT_EQ(ChoiceOf(answer, {}).Size, row.points) << row.tenths;
    }
}

TEST(TheChosenName, IsTheUnicodeOneWhereTheImageSaysTheSame)
{
    FontDialogRequest answer;
    answer.faceName = QString::fromUtf8("Ελλάς A");
    SetLogFontFaceName(answer.logFont, answer.faceName);
    EXPECT_EQ(ChoiceOf(answer, {}).Name, QString::fromUtf8("Ελλάς A"));
}

TEST(TheChosenName, SurvivesAChooserThatDoesNotTouchIt)
{
    FontChoice choice;
    choice.Name = QString::fromUtf8("メイリオ");
    const FontDialogRequest asked = RequestFor(choice, 96);
    EXPECT_EQ(ChoiceOf(asked, asked).Name, choice.Name);
}

TEST(TheChosenName, IsThatOfTheImageWhereTheChooserWroteNoOther)
{
    FontDialogRequest asked;
    asked.faceName = QStringLiteral("Arial");
    SetLogFontFaceName(asked.logFont, asked.faceName);
    FontDialogRequest answer = asked;
    SetLogFontFaceName(answer.logFont, QStringLiteral("Courier"));
    EXPECT_EQ(ChoiceOf(answer, asked).Name, QStringLiteral("Courier"));
    SetLogFontFaceName(answer.logFont, {});
    EXPECT_EQ(ChoiceOf(answer, asked).Name, QString());
}

TEST(TheChosenName, IsTheUnicodeOneWhereTheChooserWroteNoOther)
{
    const FontDialogRequest asked = RequestFor(SampleChoice(), 96);
    FontDialogRequest answer = asked;
    answer.faceName = QStringLiteral("Courier");
    EXPECT_EQ(ChoiceOf(answer, asked).Name, QStringLiteral("Courier"));
}

}  // namespace
}  // namespace quillmarker
