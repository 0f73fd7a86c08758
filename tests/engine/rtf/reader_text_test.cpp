#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmarker
{
namespace
{

using namespace std::string_literals;

TEST(ReadText, ADocumentDropsExactlyOneFinalBreak)
{
    EXPECT_EQ(TextOf(R"({\rtf1 T})"), "T");
    EXPECT_EQ(TextOf(R"({\rtf1 T\par})"), "T");
    EXPECT_EQ(TextOf(R"({\rtf1 T\par\par})"), "T\r\n");
    EXPECT_EQ(TextOf(R"({\rtf1 T\par\par\par})"), "T\r\n\r\n");
    EXPECT_EQ(TextOf(R"({\rtf1\par})"), "");
    EXPECT_EQ(TextOf(R"({\rtf1})"), "");
}

TEST(ReadText, AFragmentKeepsItsFinalBreak)
{
    const RtfReading fragment{.scope = RtfScope::Fragment};
    EXPECT_EQ(ReadRtf(R"({\rtf1 T})", fragment).Text(), u"T");
    EXPECT_EQ(ReadRtf(R"({\rtf1 T\par})", fragment).Text(), u"T\r\n");
    EXPECT_EQ(ReadRtf(R"({\rtf1 T\par\par})", fragment).Text(), u"T\r\n\r\n");
}

TEST(ReadText, BreaksCountTwoAndSpecialCharactersOne)
{
    EXPECT_EQ(TextOf(R"({\rtf1 a\par b})"), "a\r\nb");
    EXPECT_EQ(TextOf(R"({\rtf1 a\line b\lbr c\page d\column e\tab f})"), "a\vb\vc\fd\x0E"
                                                                         "e\tf");
    EXPECT_EQ(ReadRtf(R"({\rtf1 foo bar\par foo bar})").Text({{4}, {12}}), u"bar\r\nfoo");
}

TEST(ReadText, NamedCharactersAreTheirCharacters)
{
    EXPECT_EQ(TextOf(R"({\rtf1\emspace\enspace\qmspace\bullet\lquote\rquote\ldblquote\rdblquote})"),
              "\u2003\u2002\u2005\u2022\u2018\u2019\u201C\u201D");
    EXPECT_EQ(TextOf(R"({\rtf1\emdash\endash\~\-\_})"), "\u2014\u2013\u00A0\u00AD\u2011");
    EXPECT_EQ(TextOf(R"({\rtf1\ltrmark\rtlmark\zwj\zwnj\zwbo\zwnbo})"), "\u200E\u200F\u200D\u200C\u200B\u2060");
    EXPECT_EQ(TextOf(R"({\rtf1 \{\\\}})"), "{\\}");
    EXPECT_EQ(TextOf(R"({\rtf1 a\:b\|c})"), "abc");
}

TEST(ReadText, ABackslashBeforeALineEndIsABreak)
{
    EXPECT_EQ(TextOf("{\\rtf1 a\\\nb\\\r\nc\\\rd}"), "a\r\nb\r\nc\r\nd");
}

TEST(ReadText, ALineEndInTextIsNothing)
{
    EXPECT_EQ(TextOf("{\\rtf1 a\r\nb\nc\rd}"), "abcd");
    EXPECT_EQ(TextOf("{\\rtf1 a \r\n b}"), "a  b");
}

TEST(ReadText, ANulIsNeverAnEnd)
{
    EXPECT_EQ(TextOf("{\\rtf1 a\0b\0}"s), "ab");
    EXPECT_EQ(TextOf("{\\rtf1\\b\0 bold}"s), " bold");
}

TEST(ReadText, HiddenTextIsText)
{
    const Document document = ReadSample(R"(shown {\v HIDDEN }shown)");
    EXPECT_EQ(document.Text(), u"shown HIDDEN shown");
    EXPECT_FALSE(CharsAt(document, 0).hidden);
    EXPECT_TRUE(CharsAt(document, 6).hidden);
    EXPECT_FALSE(CharsAt(document, 13).hidden);
}

TEST(ReadText, HiddenTextMayBeginWithDigits)
{
    const Document document = ReadSample(R"(\v27\v0 x\v1 y\v007\v0 z)");
    EXPECT_EQ(document.Text(), u"27xy007z");
    EXPECT_TRUE(CharsAt(document, 0).hidden);
    EXPECT_FALSE(CharsAt(document, 2).hidden);
    EXPECT_TRUE(CharsAt(document, 3).hidden);
    EXPECT_TRUE(CharsAt(document, 6).hidden);
    EXPECT_FALSE(CharsAt(document, 7).hidden);
}

TEST(ReadUnicode, ACharacterReplacesWhatStandsBehindIt)
{
    EXPECT_EQ(TextOf(R"({\rtf1{\uc2\u228\'E8a}})"), "\u00E4");
    EXPECT_EQ(TextOf(R"({\rtf1\u945a})"), "\u03B1");
    EXPECT_EQ(TextOf(R"({\rtf1\u945\'61b})"), "\u03B1b");
    EXPECT_EQ(TextOf(R"({\rtf1\u945 ?b})"), "\u03B1b");
    EXPECT_EQ(TextOf(R"({\rtf1\uc0\u945b})"), "\u03B1b");
    EXPECT_EQ(TextOf(R"({\rtf1\uc3\u945abcd})"), "\u03B1d");
    EXPECT_EQ(TextOf(R"({\rtf1\u8212\emdash b})"), "\u2014b");
}

TEST(ReadUnicode, ANegativeNumberCountsFromTheEnd)
{
    EXPECT_EQ(ReadRtf(R"({\rtf1\u-3913?})").Text(), u"\uF0B7");
    EXPECT_EQ(ReadRtf(R"({\rtf1\u-10180?\u-9157?})").Text(), u"\U0001F03B");
    EXPECT_EQ(ReadRtf(R"({\rtf1\u55356?\u56379?})").Text(), u"\U0001F03B");
    EXPECT_EQ(ReadRtf(R"({\rtf1\u-10180?\u-9157?})").Size(), 2);
}

TEST(ReadUnicode, ALargeNumberIsASupplementaryCharacter)
{
    EXPECT_EQ(ReadRtf(R"({\rtf1\u128059?x})").Text(), u"\U0001F43Bx");
}

TEST(ReadUnicode, HowMuchIsReplacedIsAMatterOfTheGroup)
{
    EXPECT_EQ(TextOf(R"({\rtf1{\uc0\u945}\u945?b})"), "\u03B1\u03B1b");
    EXPECT_EQ(TextOf(R"({\rtf1\u945{x}y})"), "\u03B1xy");
    EXPECT_EQ(TextOf(R"({\rtf1{\u945}xy})"), "\u03B1xy");
    EXPECT_EQ(TextOf(R"({\rtf1\u945\b xy})"), "\u03B1xy");
}

TEST(ReadUnicode, OnlyTheUnicodeFormOfTwoIsRead)
{
    EXPECT_EQ(TextOf(R"({\rtf1 a{\upr{old}{\*\ud{\u228?}}}b})"), "a\u00E4"
                                                                 "b");
    EXPECT_EQ(TextOf(R"({\rtf1 a{\upr{only}}b})"), "aonlyb");
    EXPECT_EQ(TextOf(R"({\rtf1 a{\upr{old}{other}}b})"), "aoldotherb");
}

TEST(ReadText, BytesOfALineEndAreBreaks) { EXPECT_EQ(TextOf(R"({\rtf1 a\'0d b})"), "a\r\n b"); }

TEST(ReadText, AStringIsUnicodeAlready)
{
    EXPECT_EQ(ReadRtf(u"{\\rtf1\\ansicpg1251 \u00E4\u0416\U0001F43B}").Text(), u"\u00E4\u0416\U0001F43B");
    EXPECT_EQ(ReadRtf(u"{\\rtf1\\ansicpg1251 \\'c6}").Text(), u"\u0416");  // a byte is a byte there too
    EXPECT_EQ(ReadRtf(u"{\\rtf1\\u228\u00E4x}").Text(), u"\u00E4x");
    EXPECT_EQ(ReadRtf(u"{\\rtf1\\u228\U0001F43Bx}").Text(), u"\u00E4x");
}

TEST(ReadText, BytesAndStringsOfAsciiAreTheSame)
{
    const std::string source = Sample(R"(\b a\b0\'e9\u945?\par{\i b}\cf1 c)");
    const std::u16string text(source.begin(), source.end());
    EXPECT_TRUE(SameContent(ReadRtf(source), ReadRtf(text)));
}

}  // namespace
}  // namespace quillmarker
