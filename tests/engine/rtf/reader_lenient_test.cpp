#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace quillmarker
{
namespace
{

using namespace std::string_literals;

TEST(LenientReading, WhatIsNotRtfIsPlainText)
{
    EXPECT_EQ(TextOf("a{\\b}\r\nb"), "a{\\b}\r\nb");
    EXPECT_EQ(TextOf("{\\rt"), "{\\rt");
    EXPECT_EQ(TextOf("<html>"), "<html>");
    EXPECT_EQ(TextOf(""), "");
    EXPECT_EQ(TextOf("one\ntwo"), "one\r\ntwo");
    EXPECT_EQ(ReadRtf(u"\u00E4 no RTF").Text(), u"\u00E4 no RTF");
    EXPECT_FALSE(IsRtf("no RTF"));
}

TEST(LenientReading, PlainTextHasTheDefaultFormat)
{
    CharFormat format = DefaultCharFormat();
    format.bold = true;
    const Document document = ReadRtf("no RTF", {.defaultFormat = format});
    EXPECT_EQ(CharsAt(document, 0), format);
}

TEST(LenientReading, TheUnicodeVariantOfTheHeadIsRtf)
{
    EXPECT_TRUE(IsRtf(R"({\urtf1 T})"));
    EXPECT_EQ(TextOf(R"({\urtf1 T\par})"), "T");
}

TEST(LenientReading, ALeadBeforeTheFirstBraceIsPassedOver)
{
    EXPECT_EQ(TextOf("\xEF\xBB\xBF{\\rtf1 T}"), "T");
    EXPECT_EQ(TextOf("\r\n  {\\rtf1 T}"), "T");
    EXPECT_EQ(TextOf("\0\0{\\rtf1 T}"s), "T");
    EXPECT_EQ(ReadRtf(u"\uFEFF{\\rtf1 T}").Text(), u"T");
}

TEST(LenientReading, WhatStandsBehindTheLastBraceIsNotRead)
{
    EXPECT_EQ(TextOf(R"({\rtf1 T}garbage{\b)"), "T");
    EXPECT_EQ(TextOf("{\\rtf1 T}\0\0\0"s), "T");
    EXPECT_EQ(TextOf(R"({\rtf1 T}}}})"), "T");
}

TEST(LenientReading, UnclosedGroupsEndWithTheSource)
{
    EXPECT_EQ(TextOf(R"({\rtf1 a{\b b)"), "ab");
    EXPECT_EQ(TextOf(R"({\rtf1 a\par)"), "a");
    EXPECT_EQ(TextOf(R"({\rtf1 a{\*\unknown b)"), "a");
    EXPECT_EQ(TextOf(R"({\rtf1 a\)"), "a");
    EXPECT_EQ(TextOf(R"({\rtf1 a\')"), "a");
    EXPECT_EQ(TextOf(R"({\rtf1 a{\field{\*\fldinst PAGE)"), "a1");
}

TEST(LenientReading, UnknownStarredGroupsAreSkippedWhole)
{
    EXPECT_EQ(TextOf(R"({\rtf1 a{\*\unknown b{c}\par d}e})"), "ae");
    EXPECT_EQ(TextOf(R"({\rtf1 a{\*\unknown}e})"), "ae");
    EXPECT_EQ(TextOf(R"({\rtf1 a{\*\unknown\bin3 }}}b}e})"), "ae");
}

TEST(LenientReading, UnknownWordsAreSkippedAlone)
{
    EXPECT_EQ(TextOf(R"({\rtf1 a\unknown b\Unknown7 c{\unknown d}e})"), "abcde");
}

TEST(LenientReading, TheHeadIsNoText)
{
    EXPECT_EQ(TextOf(R"({\rtf1{\fonttbl{\f0 Arial{\*\falt Helv};}}{\colortbl;\red1;}{\stylesheet{\s1 head;}}T})"), "T");
    EXPECT_EQ(TextOf(R"({\rtf1{\info{\title No}{\author No}}{\*\generator No;}T})"), "T");
    EXPECT_EQ(TextOf(R"({\rtf1{\*\listtable{\list{\listlevel{\leveltext\'01o;}}{\listname No;}\listid1}}T})"), "T");
    EXPECT_EQ(TextOf(R"({\rtf1{\filetbl{\file No}}{\*\revtbl{No;}}{\*\rsidtbl\rsid1}T})"), "T");
}

TEST(LenientReading, IndexAndBookmarkEntriesAreNoText)
{
    EXPECT_EQ(TextOf(R"({\rtf1 a{\xe No}b{\tc No}c{\*\bkmkstart No}d{\*\bkmkend No}e})"), "abcde");
}

TEST(LenientReading, AFormatEndsWithItsGroup)
{
    const Document document = ReadSample(R"(a{\b\i b{\ul c}d}e)");
    EXPECT_EQ(document.Text(), u"abcde");
    EXPECT_FALSE(CharsAt(document, 0).bold);
    EXPECT_TRUE(CharsAt(document, 1).bold);
    EXPECT_EQ(CharsAt(document, 2).underline, Underline::Single);
    EXPECT_EQ(CharsAt(document, 3).underline, Underline::None);
    EXPECT_TRUE(CharsAt(document, 3).italic);
    EXPECT_FALSE(CharsAt(document, 4).bold);
}

TEST(LenientReading, ManyLevelsOfGroupsAreRead)
{
    const std::string open(2'700, '{');
    const std::string close(2'700, '}');
    const Document document = ReadSample(open + "\\b x" + close + "y");
    EXPECT_EQ(document.Text(), u"xy");
    EXPECT_TRUE(CharsAt(document, 0).bold);
    EXPECT_FALSE(CharsAt(document, 1).bold);
}

TEST(LenientReading, HugeParametersAreClamped)
{
    const Document document = ReadSample(R"(\pard\li99999999999\fi-99999999999\sb4294967296 x\fs99999999999 y\par)");
    EXPECT_EQ(document.Text(), u"xy");
    EXPECT_GT(ParagraphOf(document).leftIndent, Twips{0});
    EXPECT_LT(ParagraphOf(document).firstIndent, Twips{0});
    EXPECT_GT(CharsAt(document, 1).size, Twips{0});
}

TEST(LenientReading, FormatsGoIntoTheTableThatIsGiven)
{
    const auto formats = std::make_shared<FormatTable>();
    const Document first = ReadRtf(R"({\rtf1\b T})", {.formats = formats});
    const Document second = ReadRtf(R"({\rtf1\b U})", {.formats = formats});
    const Document plain = ReadRtf("no RTF", {.formats = formats});
    EXPECT_EQ(first.FormatsPointer(), formats);
    EXPECT_EQ(plain.FormatsPointer(), formats);
    EXPECT_EQ(FirstOf(first).FormatAt(0), FirstOf(second).FormatAt(0));
}

}  // namespace
}  // namespace quillmarker
