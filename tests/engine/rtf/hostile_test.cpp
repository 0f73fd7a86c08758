#include "engine/rtf/hostile_sample.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillmarker
{
namespace
{

constexpr std::size_t kMillion = 1'000'000;
constexpr std::size_t kDeep = 100'000;

TEST(HostileSource, AMillionOpenBraces)
{
    const Document document = ReadBounded("{\\rtf1" + std::string(kMillion, '{') + "x");
    EXPECT_EQ(document.Text(), u"x");
    EXPECT_EQ(ReadBounded("{\\rtf1" + std::string(kMillion, '{') + "x" + std::string(kMillion + 1, '}')).Text(), u"x");
}

TEST(HostileSource, AFormatAMillionGroupsDeep)
{
    const Document document =
        ReadBounded("{\\rtf1" + Repeated("{\\b ", kMillion) + "x" + std::string(kMillion, '}') + "y}");
    EXPECT_EQ(document.Text(), u"xy");
    EXPECT_TRUE(CharsAt(document, 0).bold);
}

TEST(HostileSource, BinaryDataThatIsNotThere)
{
    EXPECT_EQ(ReadBounded("{\\rtf1 a{\\pict\\pngblip\\bin2147483647 x}b").Text(), u"a ");
    EXPECT_EQ(ReadBounded("{\\rtf1 a\\bin2147483647 x}b").Text(), u"a");
    EXPECT_EQ(ReadBounded("{\\rtf1 a{\\*\\unknown\\bin2147483647 x}b").Text(), u"a");
}

TEST(HostileSource, APictureThatSaysItIsHuge)
{
    const Document document =
        ReadBounded("{\\rtf1{\\pict\\dibitmap0\\picw100000\\pich100000\\picwgoal2147483647\\picscalex2147483647 28}}");
    EXPECT_EQ(document.Text(), u" ");
}

TEST(HostileSource, AMillionFonts)
{
    std::string fonts;
    for (std::size_t i = 0; i < kMillion; ++i)
        fonts += "{\\f" + std::to_string(i) + " F;}";
    const Document document = ReadBounded("{\\rtf1{\\fonttbl" + fonts + "}\\f7 x}");
    EXPECT_EQ(document.Text(), u"x");
    EXPECT_EQ(CharsAt(document, 0).font, Name(u"F"));
}

TEST(HostileSource, AMillionColours)
{
    EXPECT_EQ(ReadBounded("{\\rtf1{\\colortbl" + Repeated("\\red1;", kMillion) + "}\\cf70000 x}").Text(), u"x");
}

TEST(HostileSource, AMillionStyles)
{
    std::string styles;
    for (std::size_t i = 0; i < kMillion; ++i)
        styles += "{\\s" + std::to_string(i) + " N" + std::to_string(i) + ";}";
    EXPECT_EQ(ReadBounded("{\\rtf1{\\stylesheet" + styles + "}\\s99 x\\par}").Text(), u"x");
}

TEST(HostileSource, AMillionLists)
{
    std::string lists;
    for (std::size_t i = 0; i < kDeep; ++i)
        lists += "{\\list{\\listlevel}\\listid" + std::to_string(i) + "}";
    std::string overrides;
    for (std::size_t i = 0; i < kDeep; ++i)
        overrides += "{\\listoverride\\listid1\\ls" + std::to_string(i) + "}";
    ReadBounded("{\\rtf1{\\*\\listtable" + lists + "}{\\*\\listoverridetable" + overrides + "}\\ls1 x\\par}");
}

TEST(HostileSource, AMillionTabStops)
{
    std::string tabs;
    for (std::size_t i = 0; i < kMillion; ++i)
        tabs += "\\tx" + std::to_string(i);
    const Document document = ReadBounded("{\\rtf1" + tabs + " x\\par}");
    ASSERT_TRUE(ParagraphOf(document).tabs);
    EXPECT_EQ(ParagraphOf(document).tabs->size(), kMaxTabStops);
}

TEST(HostileSource, AMillionCells)
{
    std::string cells;
    for (std::size_t i = 0; i < kMillion; ++i)
        cells += "\\cellx" + std::to_string(i);
    const Document document = ReadBounded("{\\rtf1\\trowd" + cells + "\\intbl x\\cell\\row}");
    EXPECT_EQ(document.ParagraphAt(1).Extras().row->cells.size(), kMaxCells);
    EXPECT_EQ(ReadBounded("{\\rtf1\\trowd\\cellx1\\intbl" + Repeated("\\cell", kMillion) + "\\row}").ParagraphCount(),
              1'000'002);
}

TEST(HostileSource, UnicodeThatReplacesEverything)
{
    EXPECT_EQ(ReadBounded("{\\rtf1\\uc2147483647" + Repeated("\\u945 abc", kDeep) + "}").Text(),
              std::u16string(kDeep, u'\u03B1'));
    ReadBounded("{\\rtf1\\uc0" + Repeated("\\u-10180\\u-9157", kDeep) + "}");
    ReadBounded("{\\rtf1" + Repeated("\\u1114111", kDeep) + "}");
}

TEST(HostileSource, AWordOfAMegabyte)
{
    EXPECT_EQ(ReadBounded("{\\rtf1 a\\" + std::string(kMillion, 'b') + " c}").Text(), u"ac");
    EXPECT_EQ(ReadBounded("{\\rtf1 a{\\*\\" + std::string(kMillion, 'b') + " c}d}").Text(), u"ad");
}

TEST(HostileSource, ANumberOfAMegabyte)
{
    const Document document = ReadBounded("{\\rtf1 a\\li" + std::string(kMillion, '9') + " c\\par}");
    EXPECT_EQ(document.Text(), u"ac");
    EXPECT_GT(ParagraphOf(document).leftIndent, Twips{0});
    EXPECT_EQ(ReadBounded("{\\rtf1 a\\v" + std::string(kMillion, '9') + " c\\par}").Size(), 1'000'003);
}

TEST(HostileSource, StoriesInStories)
{
    for (const std::string open :
         {"{\\field{\\*\\fldinst X}{\\fldrslt a", "{\\field{\\*\\fldinst ", "{\\footnote a", "{\\header a",
          "{\\object\\objemb{\\result a", "{\\*\\annotation a", "{\\shp{\\*\\shpinst{\\shptxt a", "{\\pict ",
          "{\\*\\nesttableprops\\trowd\\cellx1\\nestrow", "{\\info{\\title a", "{\\*\\listtable{\\list{\\listlevel",
          "{\\fonttbl{\\f1", "{\\stylesheet{\\s1", "{\\*\\pn{\\pntxtb", "{\\*\\shppict", "{\\nonshppict", "{\\*\\ud"})
    {
        SCOPED_TRACE(open);
        ReadBounded("{\\rtf1" + Repeated(open, kDeep) + "x");
        ReadBounded("{\\rtf1" + Repeated(open, kDeep) + "x" + std::string(4 * kDeep, '}'));
    }
}

// A look ahead from each of them to the end of the source would never come to its end.
TEST(HostileSource, AlternativesInAlternatives)
{
    ReadBounded("{\\rtf1" + Repeated("{\\upr", kMillion) + "x");
    ReadBounded("{\\rtf1" + Repeated("{\\upr{a}{\\*\\ud ", kMillion) + "x");
    ReadBounded("{\\rtf1" + Repeated("\\upr{", kMillion) + "x");
}

TEST(HostileSource, TablesInTables)
{
    std::string source;
    for (std::size_t depth = 1; depth <= kDeep; ++depth)
        source += "\\itap" + std::to_string(depth) + " x\\nestcell{\\*\\nesttableprops\\trowd\\cellx9\\nestrow}";
    ReadBounded("{\\rtf1" + source + "}", {.written = 60});
}

TEST(HostileSource, AMillionBreaks)
{
    EXPECT_EQ(ReadBounded("{\\rtf1" + Repeated("\\par", kMillion) + "}").ParagraphCount(), 1'000'000);
}

TEST(HostileSource, AMillionFormats)
{
    std::string source;
    for (std::size_t i = 1; i <= kDeep; ++i)
        source += "\\fs" + std::to_string(i) + " x";
    EXPECT_EQ(ReadBounded("{\\rtf1" + source + "}").Size(), 100'000);
    source.clear();
    for (std::size_t i = 1; i <= kDeep; ++i)
        source += "\\li" + std::to_string(i) + "\\par";
    EXPECT_EQ(ReadBounded("{\\rtf1" + source + "}").ParagraphCount(), 100'000);
}

TEST(HostileSource, ASinglePassKeepsNoText)
{
    const std::string source = Sample(Repeated("some words {\\b and} more\\par\r\n", kMillion / 4));
    std::size_t units = 0;
    const MemoryUse use = Measured([&] {
        VisitRtf(source, [&units](const Paragraph& paragraph, const FormatTable&) {
            units += paragraph.Text().size();
            return true;
        });
    });
    EXPECT_EQ(units, kMillion / 4 * std::string_view("some words and more").size());
    EXPECT_LT(use.peak, 0x10000U);
}

}  // namespace
}  // namespace quillmarker
