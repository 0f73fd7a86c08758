#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace quillmarker
{
namespace
{

struct WordAndDump
{
    const char* words;
    const char* dump;
};

constexpr WordAndDump kCharWords[] = {
    {"", ""},
    {"\\b", " bold"},
    {"\\b1", " bold"},
    {"\\b0", ""},
    {"\\b\\b0", ""},
    {"\\i", " italic"},
    {"\\i\\i0", ""},
    {"\\strike", " strike"},
    {"\\strike\\strike0", ""},
    {"\\striked1", " double-strike"},
    {"\\striked1\\striked0", ""},
    {"\\v", " hidden"},
    {"\\v\\v0", ""},
    {"\\caps", " caps"},
    {"\\scaps", " small-caps"},
    {"\\protect", " protected"},
    {"\\outl", " outline"},
    {"\\shad", " shadow"},
    {"\\embo", " emboss"},
    {"\\impr", " engrave"},
    {"\\rtlch", " right-to-left"},
    {"\\rtlch\\ltrch", ""},
    {"\\f1", " font=\"Times New Roman\" family=1"},
    {"\\f2", " font=\"Symbol\" charset=2"},
    {"\\f99", ""},  // no such font: the default one
    {"\\fs30", " size=300"},
    {"\\fs25", " size=250"},
    {"\\fs0", ""},  // a size of nothing is refused
    {"\\fs-10", ""},
    {"\\fs30\\fs", ""},  // 12 points
    {"\\cf1", " colour=#ff0000"},
    {"\\cf2\\highlight3", " colour=#008000 highlight=#0000ff"},
    {"\\cf1\\cf0", ""},
    {"\\cf99", ""},
    {"\\cb2", " highlight=#008000"},
    {"\\chcbpat2", " highlight=#008000"},
    {"\\ulc1", " underline-colour=#ff0000"},
    {"\\up6", " offset=60"},
    {"\\dn6", " offset=-60"},
    {"\\up", " offset=60"},
    {"\\dn", " offset=-60"},
    {"\\up6\\up0", ""},
    {"\\up6\\dn0", ""},
    {"\\super", " script=1"},
    {"\\sub", " script=2"},
    {"\\super\\nosupersub", ""},
    {"\\super0", ""},
    {"\\lang1031", " language=1031"},
    {"\\expndtw40", " spacing=40"},
    {"\\expndtw-40", " spacing=-40"},
    {"\\expnd4", " spacing=20"},
    {"\\charscalex150", " width=150"},
    {"\\charscalex150\\charscalex100", ""},
    {"\\kerning28", " kerning=280"},
    {"\\b\\i\\ul", " bold italic underline=1"},
    {"\\b\\plain", ""},
    {"\\up6\\fs30\\cf1\\v\\super\\plain", ""},
};

TEST(ReadCharacters, EachWordHasItsEffect)
{
    for (const WordAndDump& row : kCharWords)
        EXPECT_EQ(CharsAfter(row.words), row.dump) << row.words;
}

TEST(ReadCharacters, EachKindOfUnderlineHasItsWord)
{
    constexpr std::pair<const char*, Underline> kWords[] = {
        {"\\ul", Underline::Single},
        {"\\ulw", Underline::Words},
        {"\\uldb", Underline::Double},
        {"\\uld", Underline::Dotted},
        {"\\uldash", Underline::Dash},
        {"\\uldashd", Underline::DashDot},
        {"\\uldashdd", Underline::DashDotDot},
        {"\\ulth", Underline::Thick},
        {"\\ulthd", Underline::ThickDotted},
        {"\\ulthdash", Underline::ThickDash},
        {"\\ulthdashd", Underline::ThickDashDot},
        {"\\ulthdashdd", Underline::ThickDashDotDot},
        {"\\ulldash", Underline::LongDash},
        {"\\ulthldash", Underline::ThickLongDash},
        {"\\ulwave", Underline::Wave},
        {"\\ulhwave", Underline::HeavyWave},
        {"\\ululdbwave", Underline::DoubleWave},
        {"\\ulhair", Underline::Hairline},
    };
    for (const auto& [word, kind] : kWords)
    {
        const std::string words = word;
        EXPECT_EQ(CharsAt(ReadSample(words + " x"), 0).underline, kind) << word;
        EXPECT_EQ(CharsAt(ReadSample(words + "0 x"), 0).underline, Underline::None) << word;
        EXPECT_EQ(CharsAt(ReadSample(words + "\\ulnone x"), 0).underline, Underline::None) << word;
    }
}

TEST(ReadCharacters, AnOffsetLeavesTheSize)
{
    const Document document = ReadSample(R"(\fs24 a\up8 b)");
    EXPECT_EQ(CharsAt(document, 0).size, CharsAt(document, 1).size);
    EXPECT_EQ(CharsAt(document, 1).offset, Twips{80});
}

TEST(ReadCharacters, ResettingAParagraphLeavesCharacters) { EXPECT_TRUE(CharsAt(ReadSample(R"(\b\pard x)"), 0).bold); }

TEST(ReadCharacters, ResettingGivesTheDefaultFontAtTwelvePoints)
{
    const Document document = ReadRtf(R"({\rtf1\deff1{\fonttbl{\f0 A;}{\f1 B;}}\f0\fs40\plain x})");
    EXPECT_EQ(CharsAt(document, 0).font, Name(u"B"));
    EXPECT_EQ(CharsAt(document, 0).size, Points(12));
}

TEST(ReadCharacters, WithoutATableOfFontsTheReadersDefaultHolds)
{
    CharFormat format = DefaultCharFormat();
    format.font = u"Courier";
    format.size = Points(9);
    const Document document = ReadRtf(R"({\rtf1 x\plain y})", {.defaultFormat = format});
    EXPECT_EQ(CharsAt(document, 0), format);
    EXPECT_EQ(CharsAt(document, 1), format);
}

TEST(ReadCharacters, AFontHasAFamilyAndACharacterSet)
{
    constexpr std::pair<const char*, FontFamily> kWords[] = {
        {"fnil", FontFamily::Nil},       {"froman", FontFamily::Roman},   {"fswiss", FontFamily::Swiss},
        {"fmodern", FontFamily::Modern}, {"fscript", FontFamily::Script}, {"fdecor", FontFamily::Decor},
        {"ftech", FontFamily::Tech},     {"fbidi", FontFamily::Bidi},
    };
    for (const auto& [word, family] : kWords)
    {
        const std::string source = std::string(R"({\rtf1{\fonttbl{\f5\)") + word + R"(\fcharset238 F;}}\f5 x})";
        EXPECT_EQ(CharsAt(ReadRtf(source), 0).family, family) << word;
        EXPECT_EQ(CharsAt(ReadRtf(source), 0).charset, 238) << word;
    }
}

TEST(ReadCharacters, ATableOfFontsMayHaveNoGroups)
{
    const Document document = ReadRtf(R"({\rtf1{\fonttbl\f0\fswiss A;\f1\froman B;}\f0 x\f1 y})");
    EXPECT_EQ(CharsAt(document, 0).font, Name(u"A"));
    EXPECT_EQ(CharsAt(document, 1).font, Name(u"B"));
}

TEST(ReadCharacters, AStyleIsKeptByItsName)
{
    const Document document =
        ReadRtf(R"({\rtf1{\stylesheet{\s1 heading 1;}{\*\cs10\additive Strong;}}\pard\s1{\cs10\b x}y\par})");
    EXPECT_EQ(CharsAt(document, 0).style, Name(u"Strong"));
    EXPECT_TRUE(CharsAt(document, 1).style.IsEmpty());
    EXPECT_EQ(ParagraphOf(document).style, Name(u"heading 1"));
}

TEST(ReadCharacters, TheMarkHasAFormatOfItsOwn)
{
    const Document document = ReadSample(R"(x\b\par\i\par)");
    EXPECT_TRUE(document.FormatOf(document.ParagraphAt(0).Ending().charFormat).bold);
    EXPECT_FALSE(CharsAt(document, 0).bold);
    EXPECT_TRUE(document.FormatOf(document.ParagraphAt(1).Ending().charFormat).italic);
}

}  // namespace
}  // namespace quillmarker
