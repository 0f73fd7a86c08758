#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace quillmarker
{
namespace
{

/// A numbering's dump; empty when there is none.
std::string NumberingAt(const Document& document, std::int32_t paragraph = 0)
{
    ParagraphFormat only;
    only.numbering = ParagraphOf(document, paragraph).numbering;
    return DumpOf(only);
}

std::string OldNumbering(const std::string& words)
{
    return NumberingAt(ReadSample("\\pard{\\pntext 1.\\tab}{\\*\\pn" + words + "}x\\par"));
}

TEST(ReadOldLists, TheNumberShownIsNotText)
{
    EXPECT_EQ(ReadSample(R"(\pard{\pntext 3.\tab}x\par)").Text(), u"x");
    EXPECT_EQ(ReadSample(R"(\pard{\listtext\f2\'b7\tab}x\par)").Text(), u"x");
    EXPECT_EQ(ReadSample(R"(\pard{\*\pn\pnlvlbody\pndec{\pntxtb (}{\pntxta )}}x\par)").Text(), u"x");
}

TEST(ReadOldLists, ABulletIsABullet)
{
    EXPECT_EQ(OldNumbering(R"(\pnlvlblt)"), " numbering={bullet \"\u2022\" start=1 level=0 list=0 indent=0}");
    EXPECT_EQ(OldNumbering(R"(\pnlvlblt\pnf2\pnindent360\pnhang{\pntxtb\'B7})"),
              " numbering={bullet \"\u00B7\" start=1 level=0 list=0 indent=360 font=\"Symbol\"/2 hanging}");
}

TEST(ReadOldLists, ANumberHasKindStartAndText)
{
    EXPECT_EQ(OldNumbering(R"(\pnlvlbody\pndec\pnstart2{\pntxta .})"),
              " numbering={decimal \"\\u0000.\" start=2 level=0 list=0 indent=0}");
    EXPECT_EQ(OldNumbering(R"(\pnlvlbody\pnucrm\pnstart1{\pntxtb (}{\pntxta )})"),
              " numbering={upper-roman \"(\\u0000)\" start=1 level=0 list=0 indent=0}");
    EXPECT_EQ(OldNumbering(R"(\pnlvl3\pnlcltr\pnqr)"),
              " numbering={lower-letter \"\\u0002\" start=1 level=2 list=0 indent=0 align=2 follow=0}");
}

TEST(ReadOldLists, EachKindHasItsWord)
{
    constexpr const char* kWords[] = {"pndec", "pnlcltr", "pnucltr", "pnlcrm", "pnucrm", "pnord", "pncard", "pnordt"};
    for (std::size_t i = 0; i < std::size(kWords); ++i)
    {
        const Document document = ReadSample(std::string("\\pard{\\*\\pn\\pnlvlbody\\") + kWords[i] + "}x\\par");
        ASSERT_TRUE(ParagraphOf(document).numbering) << kWords[i];
        EXPECT_EQ(ParagraphOf(document).numbering->kind, static_cast<NumberKind>(i + 2)) << kWords[i];
    }
}

TEST(ReadOldLists, AContinuedParagraphHasNoNumberOfItsOwn) { EXPECT_EQ(OldNumbering(R"(\pnlvlcont)"), ""); }

TEST(ReadOldLists, ANumberHoldsUntilTheReset)
{
    const Document document = ReadSample(R"(\pard{\*\pn\pnlvlblt}a\par b\par\pard c\par)");
    EXPECT_NE(NumberingAt(document, 0), "");
    EXPECT_EQ(NumberingAt(document, 1), NumberingAt(document, 0));
    EXPECT_EQ(NumberingAt(document, 2), "");
}

TEST(ReadOldLists, LevelsOfSectionsSayNothingOfParagraphs)
{
    const Document document = ReadSample(R"({\*\pnseclvl1\pnucrm\pnstart1{\pntxta .}}\pard x\par)");
    EXPECT_EQ(document.Text(), u"x");
    EXPECT_EQ(NumberingAt(document), "");
}

constexpr const char* kTables =
    R"({\*\listtable{\list\listtemplateid9{\listlevel\levelnfc0\leveljc0\levelfollow0\levelstartat3)"
    R"({\leveltext\'02\'00.;}{\levelnumbers\'01;}\fi-360\li720}{\listlevel\levelnfc23\leveljc2\levelfollow1)"
    R"({\leveltext\'01\u-3913 ?;}{\levelnumbers;}\f2}{\listname ;}\listid77}})"
    R"({\*\listoverridetable{\listoverride\listid77\listoverridecount0\ls1})"
    R"({\listoverride\listid77\listoverridecount1{\lfolevel\listoverridestartat\levelstartat9}\ls2}})";

TEST(ReadLists, ALevelIsFoundThroughItsList)
{
    const Document document = ReadSample(std::string(kTables) + R"(\pard\ls1\ilvl0 a\par\pard\ilvl1\ls1 b\par)");
    EXPECT_EQ(NumberingAt(document, 0), " numbering={decimal \"\\u0000.\" start=3 level=0 list=1 indent=0}");
    EXPECT_EQ(NumberingAt(document, 1),
              " numbering={bullet \"\uF0B7\" start=1 level=1 list=1 indent=0 font=\"Symbol\"/2 align=2 follow=1}");
}

TEST(ReadLists, AnOverrideMayStartElsewhere)
{
    const Document document = ReadSample(std::string(kTables) + R"(\pard\ls2 a\par)");
    EXPECT_EQ(NumberingAt(document), " numbering={decimal \"\\u0000.\" start=9 level=0 list=2 indent=0}");
}

TEST(ReadLists, AListThatNobodyDefinesSaysNothing)
{
    EXPECT_EQ(NumberingAt(ReadSample(std::string(kTables) + R"(\pard\ls5 a\par)")), "");
    EXPECT_EQ(NumberingAt(ReadSample(R"(\pard\ls1 a\par)")), "");
    EXPECT_EQ(NumberingAt(ReadSample(std::string(kTables) + R"(\pard\ls1\ilvl7 a\par)")), "");
}

TEST(ReadLists, TheListBeatsTheOldForm)
{
    const Document document = ReadSample(std::string(kTables) + R"(\pard\ls1{\*\pn\pnlvlbody\pnucrm{\pntxta )}}a\par)");
    ASSERT_TRUE(ParagraphOf(document).numbering);
    EXPECT_EQ(ParagraphOf(document).numbering->kind, NumberKind::Decimal);
}

TEST(ReadLists, IndentsOfALevelDoNotLeakIntoText)
{
    const Document document = ReadSample(std::string(kTables) + R"(\pard\ls1 a\par)");
    EXPECT_EQ(ParagraphOf(document).leftIndent, Twips{0});
    EXPECT_EQ(CharsAt(document, 0).font, Name(u"Arial"));
}

}  // namespace
}  // namespace quillmarker
