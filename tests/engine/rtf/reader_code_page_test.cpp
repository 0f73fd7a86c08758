#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmarker
{
namespace
{

TEST(ReadCodePage, BytesAreInTheDocumentsPage)
{
    EXPECT_EQ(TextOf(R"({\rtf1\ansi\'80\'e9})"), "\u20AC\u00E9");
    EXPECT_EQ(TextOf(R"({\rtf1\ansi\ansicpg1251\'c6})"), "\u0416");
    EXPECT_EQ(TextOf("{\\rtf1\\ansi\\ansicpg1251 \xC6}"), "\u0416");
    EXPECT_EQ(TextOf(R"({\rtf1\mac\'8e})"), "\u00E9");
    EXPECT_EQ(TextOf(R"({\rtf1\pc\'81})"), "\u00FC");
    EXPECT_EQ(TextOf(R"({\rtf1\pca\'9b})"), "\u00F8");
    EXPECT_EQ(TextOf(R"({\rtf1\ansi\ansicpg65001\'e4\'b8\'ad})"), "\u4E2D");
}

TEST(ReadCodePage, WithoutAnyItIsTheReadersOwn)
{
    EXPECT_EQ(ReadRtf(R"({\rtf1\'c6})", {.codePage = 1251}).Text(), u"\u0416");
    EXPECT_EQ(ReadRtf(R"({\rtf1\ansicpg1252\'c6})", {.codePage = 1251}).Text(), u"\u00C6");
}

TEST(ReadCodePage, AFontsCharacterSetBeatsTheDocument)
{
    EXPECT_EQ(TextOf(R"({\rtf1\ansi\ansicpg1252{\fonttbl{\f0\fcharset0 A;}{\f1\fcharset161 B;}}\'80\f1\'d9\f0\'d9})"),
              "\u20AC\u03A9\u00D9");
    EXPECT_EQ(TextOf(R"({\rtf1\ansi\ansicpg1251{\fonttbl{\f0\fcharset0 A;}}\f0\'c6})"), "\u00C6");
}

TEST(ReadCodePage, TheDefaultCharacterSetLeavesItToTheDocument)
{
    EXPECT_EQ(TextOf(R"({\rtf1\ansi\ansicpg1251{\fonttbl{\f0\fcharset1 A;}}\f0\'c6})"), "\u0416");
    EXPECT_EQ(TextOf(R"({\rtf1\ansi\ansicpg1251{\fonttbl{\f0 A;}}\f0\'c6})"), "\u0416");
}

TEST(ReadCodePage, TheDefaultFontDecidesWhereNoneIsSelected)
{
    EXPECT_EQ(TextOf(R"({\rtf1\ansi\deff1{\fonttbl{\f0\fcharset0 A;}{\f1\fcharset204 B;}}\'c6})"), "\u0416");
}

TEST(ReadCodePage, AFontsCodePageBeatsItsCharacterSet)
{
    EXPECT_EQ(TextOf(R"({\rtf1\ansi{\fonttbl{\f0\fcharset128\cpg65001 A;}}\f0\'e4\'b8\'ad\'e5\'9c\'8b})"),
              "\u4E2D\u570B");
    EXPECT_EQ(TextOf(R"({\rtf1\ansi{\fonttbl{\f0\cpg1251 A;}}\f0\'c6})"), "\u0416");
}

TEST(ReadCodePage, DoubleBytesMayBeWrittenInAnyWay)
{
    const std::string head = R"({\rtf1\ansi\ansicpg932{\fonttbl{\f0\fcharset128 A;}}\f0 )";
    EXPECT_EQ(TextOf(head + R"(\'92\'86\'9a\'a0})"), "\u4E2D\u570B");
    EXPECT_EQ(TextOf(head + R"(\'83V\'83\'8f})"), "\u30B7\u30EF");  // the second byte is a letter
    EXPECT_EQ(TextOf(head + "\x92\x86\x9A\xA0}"), "\u4E2D\u570B");
    EXPECT_EQ(TextOf(head + "\\'83\\'5c}"), "\u30BD");            // the second byte is a backslash
    EXPECT_EQ(TextOf(head + R"(\'92\b \'86})"), "\uFFFD\uFFFD");  // a word comes between
}

TEST(ReadCodePage, ADoubleByteSequenceOverALineEndHoldsTogether)
{
    EXPECT_EQ(TextOf("{\\rtf1\\ansi\\ansicpg932 \\'92\r\n\\'86}"), "\u4E2D");
}

TEST(ReadCodePage, TheSymbolPageIsPrivateCharacters)
{
    EXPECT_EQ(ReadSample(R"(\f2\'b7\f0\'b7)").Text(), u"\uF0B7\u00B7");
}

TEST(ReadCodePage, AFontsNameIsInItsOwnCharacterSet)
{
    const Document document =
        ReadRtf(R"({\rtf1\ansi\ansicpg1252{\fonttbl{\f0\fnil\fcharset129 \'b8\'bc\'c0\'ba;}}\f0 x})");
    EXPECT_EQ(CharsAt(document, 0).font, Name(u"\uB9D1\uC740"));
}

TEST(ReadCodePage, AnUnknownPageIsAnsi) { EXPECT_EQ(TextOf(R"({\rtf1\ansi\ansicpg4711\'80})"), "\u20AC"); }

TEST(ReadCodePage, AReplacedByteOfADoubleBytePageIsAByte)
{
    EXPECT_EQ(TextOf(R"({\rtf1\ansi\ansicpg932\uc2\u20013\'92\'86x})"), "\u4E2Dx");
}

}  // namespace
}  // namespace quillmarker
