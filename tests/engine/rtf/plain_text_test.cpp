#include "engine/rtf/plain_text.h"

#include <gtest/gtest.h>

#include <string_view>

namespace quillmarker
{
namespace
{

using namespace std::string_view_literals;

TEST(PlainText, AMarkDecidesAndIsNotText)
{
    EXPECT_EQ(DecodePlainText("\xEF\xBB\xBFgr\xC3\xBCn"), u"grün");
    EXPECT_EQ(DecodePlainText("\xFF\xFE"
                              "g\0r\0\xFC\0n\0"sv),
              u"grün");
    EXPECT_EQ(DecodePlainText("\xFE\xFF\0g\0r\0\xFC\0n"sv), u"grün");
    EXPECT_EQ(DecodePlainText("\xFF\xFE\0\0g\0\0\0\xFC\0\0\0"sv), u"gü");
    EXPECT_EQ(DecodePlainText("\0\0\xFE\xFF\0\0\0g\0\0\0\xFC"sv), u"gü");
    EXPECT_EQ(DecodePlainText("\xEF\xBB\xBF"), u"");
    EXPECT_EQ(DecodePlainText("\xFF\xFE"), u"");
}

TEST(PlainText, AMarkBeatsWhatTheBytesLookLike)
{
    EXPECT_EQ(DecodePlainText("\xEF\xBB\xBF\xFC"), u"\uFFFD");
    EXPECT_EQ(DecodePlainText("\xFE\xFF"
                              "ab"),
              u"\u6162");
}

TEST(PlainText, WithoutAMarkValidUtf8IsUtf8)
{
    EXPECT_EQ(DecodePlainText("gr\xC3\xBCn \xE2\x82\xAC"), u"grün €");
    EXPECT_EQ(DecodePlainText("plain"), u"plain");
    EXPECT_EQ(DecodePlainText(""), u"");
}

TEST(PlainText, AnythingElseIsInTheAnsiCodePage)
{
    EXPECT_EQ(DecodePlainText("gr\xFCn \x80"), u"grün €");
    EXPECT_EQ(DecodePlainText("gr\xC3\xBCn \xFC"), u"grÃ¼n ü");
    EXPECT_EQ(DecodePlainText("\xCF\xF0\xE8", 1251), u"При");
    EXPECT_EQ(DecodePlainText("\x93\xFA\x96{", 932), u"日本");
}

TEST(PlainText, LineEndsAndNulsStay) { EXPECT_EQ(DecodePlainText("a\r\nb\rc\nd\0e"sv), u"a\r\nb\rc\nd\0e"sv); }

TEST(PlainText, BrokenUnitsAreReplaced)
{
    EXPECT_EQ(DecodePlainText("\xFF\xFE"
                              "a\0b"sv),
              u"a\uFFFD");
    EXPECT_EQ(DecodePlainText("\xFE\xFF\xD8\x3D\0a\xDC\xC4"sv), u"\uFFFDa\uFFFD");
    EXPECT_EQ(DecodePlainText("\xFE\xFF\xD8\x3D\xDC\xC4"sv), u"\U0001F4C4");
    EXPECT_EQ(DecodePlainText("\xFE\xFF\xD8\x3D"sv), u"\uFFFD");
    EXPECT_EQ(DecodePlainText("\xFF\xFE\0\0\0\0\x11\0\0\xD8\0\0\xC4\xF4\x01\0"sv), u"\uFFFD\uFFFD\U0001F4C4");
}

TEST(PlainText, Utf16MayBeginWithANul) { EXPECT_EQ(DecodePlainText("\xFF\xFE\0\0a\0"sv), u"\0a"sv); }

}  // namespace
}  // namespace quillmarker
