#include "engine/document/utf.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quillmarker
{
namespace
{

TEST(Utf, EveryCharacterComesBack)
{
    std::u16string text;
    for (char32_t character = 0; character <= 0x10FFFF; ++character)
    {
        if (character >= 0xD800 && character <= 0xDFFF)
            continue;
        if (character >= 0x10000)
        {
            text += static_cast<char16_t>(0xD7C0 + (character >> 10));
            text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        }
        else
            text += static_cast<char16_t>(character);
    }
    const std::string bytes = ToUtf8(text);
    EXPECT_TRUE(IsUtf8(bytes));
    EXPECT_TRUE(FromUtf8(bytes) == text);
}

TEST(Utf, TextIsWrittenInTheShortestForm)
{
    EXPECT_EQ(ToUtf8(u"aé€\U0001F4C4"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x93\x84");
    EXPECT_EQ(ToUtf8(std::u16string_view(u"\0x", 2)), std::string_view("\0x", 2));
    EXPECT_EQ(ToUtf8(u""), "");
}

TEST(Utf, HalfASurrogatePairIsReplaced)
{
    const std::u16string text = {u'a', 0xD83D, u'b', 0xDCC4, 0xD83D};
    EXPECT_EQ(ToUtf8(text), "a\xEF\xBF\xBD"
                            "b\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf, EachLongestBrokenSequenceIsOneReplacement)
{
    EXPECT_EQ(FromUtf8("a\xE2\x82z"), u"a\uFFFDz");
    EXPECT_EQ(FromUtf8("\xF0\x9F\x93"), u"\uFFFD");
    EXPECT_EQ(FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63"), u"\uFFFD\uFFFD\uFFFDb\uFFFDc");
    EXPECT_EQ(FromUtf8("\xFF\xFE"), u"\uFFFD\uFFFD");
}

TEST(Utf, BrokenBytesAreFoundWhereverTheyStand)
{
    for (std::size_t at = 0; at < 40; ++at)
    {
        std::string bytes(40, 'x');
        EXPECT_TRUE(IsUtf8(bytes));
        bytes[at] = '\x80';
        EXPECT_FALSE(IsUtf8(bytes)) << at;
        std::u16string expected(40, u'x');
        expected[at] = u'\uFFFD';
        EXPECT_EQ(FromUtf8(bytes), expected);
    }
}

TEST(Utf, ValidityAndReplacementAgreeOnRandomBytes)
{
    std::mt19937 random(11);
    const std::string_view alphabet = "az\x80\x9F\xA0\xBF\xC2\xE0\xE2\xED\xF0\xF4\xFF";
    int valid = 0;
    for (int round = 0; round < 20000; ++round)
    {
        std::string bytes(random() % 12, ' ');
        for (char& byte : bytes)
            byte = alphabet[random() % alphabet.size()];
        const std::u16string text = FromUtf8(bytes);
        const bool intact = text.find(u'\uFFFD') == std::u16string::npos;
        ASSERT_EQ(IsUtf8(bytes), intact);
        ASSERT_EQ(ToUtf8(text) == bytes, intact);
        valid += intact ? 1 : 0;
    }
    EXPECT_GT(valid, 100);
}

TEST(Utf, AppendingKeepsWhatIsThere)
{
    std::u16string text = u"so far ";
    AppendUtf8("\xC3\xBC", text);
    EXPECT_EQ(text, u"so far ü");
}

}  // namespace
}  // namespace quillmarker
