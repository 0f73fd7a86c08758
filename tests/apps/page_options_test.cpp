#include "page_options.h"
#include "page_writing.h"

#include <quillmarker/rtf.h>

#include <gtest/gtest.h>

namespace quillmarker::tool
{
namespace
{

TEST(Lengths, HaveAUnitAndBecomeTwips)
{
    EXPECT_EQ(ParseLength("1in"), Twips{1440});
    EXPECT_EQ(ParseLength("2.54cm"), Twips{1440});
    EXPECT_EQ(ParseLength("25.4mm"), Twips{1440});
    EXPECT_EQ(ParseLength("72pt"), Twips{1440});
    EXPECT_EQ(ParseLength("1440tw"), Twips{1440});
    EXPECT_EQ(ParseLength("0.5in"), Twips{720});
    EXPECT_EQ(ParseLength("0"), Twips{0});
    EXPECT_EQ(ParseLength("0cm"), Twips{0});
}

TEST(Lengths, AreRefusedWithoutAUnitNegativeHugeOrOdd)
{
    for (const char* text : {"", "1", "cm", "-1cm", "1 cm", "1cmx", "1em", "1e3cm", "nan", "nancm", "inf", "infcm",
                             "999999999in", "1,5cm", "+1cm"})
        EXPECT_FALSE(ParseLength(text)) << text;
}

TEST(Papers, HaveANameOrWidthAndHeight)
{
    EXPECT_EQ(ParsePaper("A4"), (WantedPaper{{Twips{11906}, Twips{16838}}, true}));
    EXPECT_EQ(ParsePaper("letter"), (WantedPaper{{Twips{12240}, Twips{15840}}, true}));
    EXPECT_EQ(ParsePaper("4inx100pt"), (WantedPaper{{Twips{5760}, Twips{2000}}, false}));
    for (const char* text : {"", "A99", "4in", "4inx", "x4in", "4x5", "4inx5inx6in", "1mmx1mm", "10inx500in"})
        EXPECT_FALSE(ParsePaper(text)) << text;
}

TEST(MarginLists, AreOneTwoOrFourLengths)
{
    EXPECT_EQ(ParseMargins("1in"), (Margins{Twips{1440}, Twips{1440}, Twips{1440}, Twips{1440}}));
    EXPECT_EQ(ParseMargins("1in,2pt"), (Margins{Twips{1440}, Twips{40}, Twips{1440}, Twips{40}}));
    EXPECT_EQ(ParseMargins("1tw,2tw,3tw,4tw"), (Margins{Twips{1}, Twips{2}, Twips{3}, Twips{4}}));
    for (const char* text : {"", "1tw,2tw,3tw", "1tw,2tw,3tw,4tw,5tw", "1tw,", ",1tw", "1tw, 2tw"})
        EXPECT_FALSE(ParseMargins(text)) << text;
}

TEST(Setups, TurnAPaperWithANameTheDocumentsWay)
{
    const Document wide = ReadRtf(R"({\rtf1\paperw16838\paperh11906 x})");
    PageWishes wishes;
    wishes.paper = ParsePaper("letter");
    EXPECT_EQ(SetupFor(wide, wishes)->paper, (PaperSize{Twips{15840}, Twips{12240}}));
    wishes.paper = ParsePaper("12240twx15840tw");
    EXPECT_EQ(SetupFor(wide, wishes)->paper, (PaperSize{Twips{12240}, Twips{15840}}));
}

TEST(Setups, TakeWishedMarginsThatLeaveRoom)
{
    const Document document = ReadRtf(R"({\rtf1\margl100 x})");
    PageWishes wishes;
    EXPECT_EQ(*SetupFor(document, wishes), PageSetupOf(document));
    wishes.margins = ParseMargins("1in,2in");
    EXPECT_EQ(SetupFor(document, wishes)->left, Twips{2880});
    EXPECT_EQ(SetupFor(document, wishes)->bottom, Twips{1440});
    wishes.margins = ParseMargins("1in,5in");
    EXPECT_FALSE(SetupFor(document, wishes));
}

TEST(PageNames, HaveTheNumberInFrontOfTheEnding)
{
    EXPECT_EQ(NameOfPage("a.png", 3), "a-3.png");
    EXPECT_EQ(NameOfPage("out.d/a.b.PNG", 12), "out.d/a.b-12.PNG");
    EXPECT_EQ(NameOfPage("out/a", 1), "out/a-1");
}

}  // namespace
}  // namespace quillmarker::tool
