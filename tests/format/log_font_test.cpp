#include <quillmarker/widgets/log_font.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

namespace quillmarker
{
namespace
{

unsigned ByteAt(const LogFontImage& image, std::size_t offset) { return std::to_integer<unsigned>(image[offset]); }

TEST(TheImageOfAFont, HasItsNumbersAtTheirOffsetsWithTheLowByteFirst)
{
    LogFontImage image{};
    SetLogFontNumber(image, LogFontField::Height, -16);
    SetLogFontNumber(image, LogFontField::Weight, 0x01020304);
    EXPECT_EQ(ByteAt(image, 0), 0xF0U);
    EXPECT_EQ(ByteAt(image, 1), 0xFFU);
    EXPECT_EQ(ByteAt(image, 2), 0xFFU);
    EXPECT_EQ(ByteAt(image, 3), 0xFFU);
    EXPECT_EQ(ByteAt(image, 4), 0U);
    EXPECT_EQ(ByteAt(image, 16), 4U);
    EXPECT_EQ(ByteAt(image, 17), 3U);
    EXPECT_EQ(ByteAt(image, 18), 2U);
    EXPECT_EQ(ByteAt(image, 19), 1U);
    EXPECT_EQ(LogFontNumber(image, LogFontField::Height), -16);
    EXPECT_EQ(LogFontNumber(image, LogFontField::Weight), 0x01020304);
}

TEST(TheImageOfAFont, HasABytePerFlag)
{
    constexpr struct
    {
        LogFontField field;
        std::size_t offset;
    } kBytes[] = {
        {LogFontField::Italic, 20},  {LogFontField::Underline, 21},      {LogFontField::StrikeOut, 22},
        {LogFontField::CharSet, 23}, {LogFontField::OutPrecision, 24},   {LogFontField::ClipPrecision, 25},
        {LogFontField::Quality, 26}, {LogFontField::PitchAndFamily, 27},
    };
    for (const auto& row : kBytes)
    {
        LogFontImage expected{};
        expected[row.offset] = std::byte{0xA1};
        LogFontImage image{};
        SetLogFontNumber(image, row.field, 0x7FA1);
        EXPECT_EQ(image, expected) << row.offset;
        EXPECT_EQ(LogFontNumber(image, row.field), 0xA1) << row.offset;
    }
}

TEST(TheImageOfAFont, HoldsEveryNumberOfFourBytes)
{
    using Limits = std::numeric_limits<std::int32_t>;
    for (const LogFontField field :
         {LogFontField::Height, LogFontField::Width, LogFontField::Escapement, LogFontField::Orientation})
    {
        for (const std::int32_t number : {Limits::min(), -1, 0, 1, Limits::max()})
        {
            LogFontImage image{};
            SetLogFontNumber(image, field, number);
            EXPECT_EQ(LogFontNumber(image, field), number);
        }
    }
}

TEST(TheFaceName, StandsBehindTheNumbers)
{
    LogFontImage image{};
    SetLogFontFaceName(image, QStringLiteral("Arial"));
    EXPECT_EQ(ByteAt(image, 27), 0U);
    EXPECT_EQ(ByteAt(image, 28), unsigned{'A'});
    EXPECT_EQ(ByteAt(image, 32), unsigned{'l'});
    EXPECT_EQ(ByteAt(image, 33), 0U);
    EXPECT_EQ(LogFontFaceName(image), QStringLiteral("Arial"));
}

TEST(TheFaceName, OfMoreThan32CharactersIsCutAndTheLastByteStaysZero)
{
    const QString name = QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFG");
    ASSERT_EQ(name.size(), 33);
    LogFontImage image{};
    SetLogFontFaceName(image, name);
    EXPECT_EQ(ByteAt(image, 59), unsigned{'F'});
    EXPECT_EQ(ByteAt(image, 60), 0U);
    EXPECT_EQ(LogFontFaceName(image), name.left(32));
}

TEST(TheFaceName, LeavesNothingOfALongerOneBefore)
{
    LogFontImage image{};
    SetLogFontFaceName(image, QStringLiteral("Times New Roman"));
    SetLogFontFaceName(image, QStringLiteral("Arial"));
    LogFontImage expected{};
    SetLogFontFaceName(expected, QStringLiteral("Arial"));
    EXPECT_EQ(image, expected);
}

std::string Copied(const QString& text, std::size_t size, std::byte before = std::byte{0})
{
    std::vector<std::byte> bytes(size, before);
    StringToBytes(text, bytes);
    std::string codes;
    for (const std::byte code : bytes)
        codes.push_back(static_cast<char>(code));
    return codes;
}

TEST(TextPutIntoBytes, LeavesTheLastOneAsItIs)
{
    EXPECT_EQ(Copied(QStringLiteral("abc"), 3, std::byte{'-'}), "ab-");
    EXPECT_EQ(Copied(QStringLiteral("abc"), 1, std::byte{'-'}), "-");
    EXPECT_EQ(Copied(QStringLiteral("abc"), 0), "");
}

TEST(TextPutIntoBytes, LeavesThoseBehindItAsTheyAre)
{
    EXPECT_EQ(Copied(QStringLiteral("ab"), 5, std::byte{'-'}), "ab---");
    EXPECT_EQ(Copied({}, 2, std::byte{'-'}), "--");
}

TEST(TextPutIntoBytes, HasTheCodesOfTheAnsiCodePage)
{
    EXPECT_EQ(Copied(QString::fromUtf8("ä€"), 3), std::string("\xE4\x80\0", 3));
    EXPECT_EQ(Copied(QString::fromUtf8("Ωb\U0001F600"), 5), std::string("?b??\0", 5));
}

TEST(BytesAsText, EndAtTheFirstZeroOrAtTheirEnd)
{
    constexpr std::byte kBytes[] = {std::byte{'a'}, std::byte{0x80}, std::byte{0}, std::byte{'b'}};
    EXPECT_EQ(BytesToString(kBytes), QString::fromUtf8("a€"));
    EXPECT_EQ(BytesToString(std::span(kBytes).first(2)), QString::fromUtf8("a€"));
    EXPECT_EQ(BytesToString(std::span(kBytes).subspan(2)), QString());
    EXPECT_EQ(BytesToString({}), QString());
}

TEST(BytesAsText, GiveEveryByteBack)
{
    for (unsigned code = 1; code < 256; ++code)
    {
        const std::byte one[] = {static_cast<std::byte>(code)};
        std::byte back[2] = {};
        StringToBytes(BytesToString(one), back);
        EXPECT_EQ(std::to_integer<unsigned>(back[0]), code);
    }
}

}  // namespace
}  // namespace quillmarker
