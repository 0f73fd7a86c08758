#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace quillmarker
{
namespace
{

struct WordAndDump
{
    const char* words;
    const char* dump;
};

constexpr WordAndDump kParagraphWords[] = {
    {"", ""},
    {"\\ql", ""},
    {"\\qr", " align=1"},
    {"\\qc", " align=2"},
    {"\\qj", " align=3"},
    {"\\qd", " align=4"},
    {"\\qc\\ql", ""},
    {"\\fi-360\\li720", " first=-360 left=720"},
    {"\\li-200", " left=-200"},
    {"\\ri300", " right=300"},
    {"\\sb120\\sa60", " before=120 after=60"},
    {"\\sl240", " line=at-least 240"},
    {"\\sl-240", " line=exactly 240"},
    {"\\sl360\\slmult1", " line=multiple 360"},
    {"\\slmult1\\sl360", " line=multiple 360"},
    {"\\sl360\\slmult0", " line=at-least 360"},
    {"\\sl360\\slmult1\\sl0", ""},
    {"\\keep", " keep-lines"},
    {"\\keepn", " keep-next"},
    {"\\pagebb", " page-before"},
    {"\\widctlpar", " widow-control"},
    {"\\widctlpar\\nowidctlpar", ""},
    {"\\contextualspace", " contextual"},
    {"\\hyphpar0", " no-hyphenation"},
    {"\\hyphpar0\\hyphpar", ""},
    {"\\rtlpar", " right-to-left"},
    {"\\rtlpar\\ltrpar", ""},
    {"\\outlinelevel0", " outline-level=1"},
    {"\\outlinelevel8", " outline-level=9"},
    {"\\outlinelevel9", ""},
    {"\\tx1000", " tabs=[1000]"},
    {"\\tx2000\\tx1000", " tabs=[1000, 2000]"},
    {"\\tqr\\tx1000", " tabs=[1000 right]"},
    {"\\tqc\\tx1000", " tabs=[1000 centre]"},
    {"\\tqdec\\tx1000", " tabs=[1000 decimal]"},
    {"\\tb1000", " tabs=[1000 bar]"},
    {"\\tldot\\tx1000", " tabs=[1000 dots]"},
    {"\\tlmdot\\tx1000", " tabs=[1000 middle-dots]"},
    {"\\tlhyph\\tx1000", " tabs=[1000 hyphens]"},
    {"\\tlul\\tx1000", " tabs=[1000 underline]"},
    {"\\tlth\\tx1000", " tabs=[1000 thick]"},
    {"\\tleq\\tqr\\tx1000\\tx2000", " tabs=[1000 right equals, 2000]"},
    {"\\tx1000\\tqr\\tx1000", " tabs=[1000 right]"},
    {"\\tx-300", " tabs=[-300]"},
    {"\\brdrt\\brdrs\\brdrw15\\brsp20\\brdrcf1", " borders={top=1/15/20/#ff0000}"},
    {"\\brdrl\\brdrdb\\brdrr\\brdrdot", " borders={left=3/0/0/auto right=4/0/0/auto}"},
    {"\\box\\brdrs", " borders={top=1/0/0/auto left=1/0/0/auto bottom=1/0/0/auto right=1/0/0/auto}"},
    {"\\brdrbtw\\brdrs\\brdrbar\\brdrth", " borders={between=1/0/0/auto bar=2/0/0/auto}"},
    {"\\brdrt\\brdrs\\brdrt\\brdrnone", ""},
    {"\\brdrs", ""},          // of no side
    {"\\chbrdr\\brdrs", ""},  // a character's border is not the paragraph's
    {"\\shading2500\\cfpat1\\cbpat2", " shading=#008000/#ff0000/2500"},
    {"\\cbpat3", " shading=#0000ff/auto/0"},
    {"\\absw2000\\posx100", " kept=\\absw2000\\posx100"},
    {"\\qc\\li300\\tx100\\keep\\cbpat1\\box\\brdrs\\pard", ""},
};

TEST(ReadParagraphs, EachWordHasItsEffect)
{
    for (const WordAndDump& row : kParagraphWords)
        EXPECT_EQ(ParagraphAfter(row.words), row.dump) << row.words;
}

TEST(ReadParagraphs, EachBorderHasItsWord)
{
    constexpr const char* kWords[] = {"none",       "s",      "th",      "db",     "dot",   "dash", "hair",
                                      "dashsm",     "dashd",  "dashdd",  "triple", "sh",    "wavy", "wavydb",
                                      "dashdotstr", "emboss", "engrave", "inset",  "outset"};
    for (std::size_t style = 1; style < std::size(kWords); ++style)
    {
        const Document document = ReadSample(std::string("\\pard\\brdrt\\brdr") + kWords[style] + " x\\par");
        const auto& borders = ParagraphOf(document).borders;
        ASSERT_TRUE(borders) << kWords[style];
        EXPECT_EQ((*borders)[BorderSide::Top].style, static_cast<BorderStyle>(style)) << kWords[style];
    }
}

TEST(ReadParagraphs, AFormatHoldsUntilItIsReset)
{
    const Document document = ReadSample(R"(\pard\qc a\par b\par\pard c\par)");
    EXPECT_EQ(ParagraphOf(document, 0).alignment, Alignment::Centre);
    EXPECT_EQ(ParagraphOf(document, 1).alignment, Alignment::Centre);
    EXPECT_EQ(ParagraphOf(document, 2).alignment, Alignment::Left);
}

TEST(ReadParagraphs, TheFormatAtTheMarkCounts)
{
    EXPECT_EQ(ParagraphOf(ReadSample(R"(\pard a\qr b\par)")).alignment, Alignment::Right);
    EXPECT_EQ(ParagraphOf(ReadSample(R"(\pard{\qr a}\par)")).alignment, Alignment::Left);
}

TEST(ReadParagraphs, ALastParagraphWithoutItsBreakHasItsFormats)
{
    const Document document = ReadSample(R"(\pard a\par\pard\qc\li300\b b)");
    EXPECT_EQ(document.Text(), u"a\r\nb");
    EXPECT_EQ(ParagraphOf(document, 1).alignment, Alignment::Centre);
    EXPECT_EQ(ParagraphOf(document, 1).leftIndent, Twips{300});
    EXPECT_TRUE(document.FormatOf(document.ParagraphAt(1).Ending().charFormat).bold);
    const Document unclosed = ReadRtf(R"({\rtf1\pard\qc a)");
    EXPECT_EQ(ParagraphOf(unclosed).alignment, Alignment::Centre);
}

TEST(ReadParagraphs, ResettingCharactersLeavesTheParagraph) { EXPECT_EQ(ParagraphAfter("\\qc\\plain"), " align=2"); }

TEST(ReadParagraphs, TabStopsBeyondTheBoundAreDropped)
{
    std::string words;
    for (int stop = 1; stop <= 100; ++stop)
        words += "\\tx" + std::to_string(stop * 10);
    const Document document = ReadSample("\\pard" + words + " x\\par");
    ASSERT_TRUE(ParagraphOf(document).tabs);
    EXPECT_EQ(ParagraphOf(document).tabs->size(), kMaxTabStops);
    EXPECT_EQ(ParagraphOf(document).tabs->back().position, Twips{640});
}

TEST(ReadParagraphs, TheDefaultTabIsOfTheDocument)
{
    EXPECT_EQ(ReadSample("x").Properties().defaultTab, kDefaultTab);
    EXPECT_EQ(ReadSample("\\deftab360 x").Properties().defaultTab, Twips{360});
    EXPECT_EQ(ReadSample("\\deftab0 x").Properties().defaultTab, kDefaultTab);
    EXPECT_EQ(ReadSample("\\deftab-5 x").Properties().defaultTab, kDefaultTab);
}

}  // namespace
}  // namespace quillmarker
