#include "engine/rtf/rtf_sample.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace quillmarker
{
namespace
{

TEST(ReadSections, ASectionBreakIsABreakThatCarriesTheSection)
{
    const Document document = ReadSample(R"(\sectd\cols2 a\sect\sectd\sbkcol b\par)");
    EXPECT_EQ(document.Text(), u"a\r\nb");
    ASSERT_TRUE(document.ParagraphAt(0).Extras().section);
    EXPECT_EQ(document.ParagraphAt(0).Extras().section->columns, 2);
    EXPECT_EQ(document.Properties().lastSection.columns, 1);
    EXPECT_EQ(document.Properties().lastSection.breakKind, SectionBreak::Column);
}

TEST(ReadSections, ASectionHasItsProperties)
{
    const Document document = ReadSample(
        R"(\sectd\sbkodd\pgwsxn8000\pghsxn9000\marglsxn100\margrsxn200\margtsxn300\margbsxn400\guttersxn50\lndscpsxn)"
        R"(\cols3\colsx600\headery700\footery800\titlepg\pgnstarts5\pgnrestart\pgnlcrm\vertalc a\par)");
    EXPECT_EQ(DumpOf(document.Properties().lastSection),
              " break=4 page-width=8000 page-height=9000 margin-left=100 margin-right=200 margin-top=300"
              " margin-bottom=400 gutter=50 landscape columns=3 column-gap=600 title-page header-distance=700"
              " footer-distance=800 first-page=5 restart-pages kept=\\pgnlcrm\\vertalc");
}

TEST(ReadSections, EachBreakHasItsWord)
{
    constexpr const char* kWords[] = {"sbknone", "sbkcol", "sbkpage", "sbkeven", "sbkodd"};
    for (std::size_t kind = 0; kind < std::size(kWords); ++kind)
    {
        const Document document = ReadSample(std::string("\\sectd\\") + kWords[kind] + " x\\par");
        EXPECT_EQ(document.Properties().lastSection.breakKind, static_cast<SectionBreak>(kind)) << kWords[kind];
    }
}

TEST(ReadSections, TheDocumentHasItsPage)
{
    const Document document = ReadSample(
        R"(\paperw11906\paperh16838\margl1\margr2\margt3\margb4\gutter5\landscape\facingp\deftab360\ftnbj x)");
    EXPECT_EQ(DumpOf(document.Properties()),
              "document page-width=11906 page-height=16838 margin-left=1 margin-right=2 margin-top=3 margin-bottom=4"
              " gutter=5 landscape default-tab=360 facing-pages kept=\\ftnbj\n");
}

TEST(ReadHeaders, EachKindHasItsWord)
{
    constexpr const char* kWords[] = {"header", "headerl", "headerr", "headerf",
                                      "footer", "footerl", "footerr", "footerf"};
    for (std::size_t kind = 0; kind < std::size(kWords); ++kind)
    {
        const Document document = ReadSample(std::string("{\\") + kWords[kind] + " shown\\par}x\\par");
        EXPECT_EQ(document.Text(), u"x") << kWords[kind];
        EXPECT_EQ(TextOf(document, document.Properties().lastSection.headers[kind]), "shown") << kWords[kind];
    }
}

TEST(ReadHeaders, AHeaderBelongsToItsSection)
{
    const Document document = ReadSample(R"(\sectd{\header one\par}a\sect\sectd{\header two\par}b\par)");
    const Section& first = *document.ParagraphAt(0).Extras().section;
    EXPECT_EQ(TextOf(document, first[HeaderKind::Header]), "one");
    EXPECT_EQ(TextOf(document, document.Properties().lastSection[HeaderKind::Header]), "two");
}

TEST(ReadHeaders, AnEmptyHeaderIsNotAnAbsentOne)
{
    const Document document = ReadSample(R"({\header\par}x\par)");
    EXPECT_FALSE(document.Properties().lastSection[HeaderKind::Header].IsAbsent());
    EXPECT_TRUE(document.Properties().lastSection[HeaderKind::Footer].IsAbsent());
}

TEST(ReadHeaders, AHeaderHoldsWhatADocumentHolds)
{
    const Document document = ReadSample(
        R"({\footer\pard\qc\b Page \chpgn{\pict\pngblip 00}\par\trowd\cellx100\pard\intbl c\cell\row\pard end}x\par)");
    const Document footer = document.Nested(document.Properties().lastSection[HeaderKind::Footer]);
    EXPECT_EQ(footer.Text(), u"Page 1 \r\nc\t\r\nend");
    EXPECT_EQ(ParagraphOf(footer).alignment, Alignment::Centre);
    EXPECT_NE(ObjectIn<InlinePicture>(footer, 6), nullptr);
    EXPECT_EQ(ParagraphOf(document).alignment, Alignment::Left);
}

TEST(ReadInfo, TextsDatesAndCountsAreKept)
{
    const Document document = ReadSample(
        R"({\info{\title A \'e9 T}{\author Ann}{\*\company C}{\creatim\yr2024\mo2\dy3\hr4\min5}\version2\nofwords7}x)");
    const DocumentFormat& format = document.Properties();
    ASSERT_EQ(format.info.size(), 3U);
    EXPECT_EQ(format.info[0].first, "title");
    EXPECT_EQ(format.info[0].second, u"A \u00E9 T");
    EXPECT_EQ(format.info[2].first, "company");
    EXPECT_EQ(format.infoKept, "{\\creatim\\yr2024\\mo2\\dy3\\hr4\\min5}\\version2\\nofwords7");
    EXPECT_EQ(document.Text(), u"x");
}

TEST(ReadInfo, PropertiesInsideOfADateAreNotReadIntoIt)
{
    const Document document = ReadSample(R"({\info{\creatim\yr2003{\info{\revtim\yr2004}}\sec32}}x)");
    EXPECT_EQ(document.Properties().infoKept, "{\\creatim\\yr2003\\sec32}");
}

TEST(ReadInfo, LeavesNoHalfOfADateWhoseGroupBecomesAnotherDestination)
{
    const Document document = ReadSample(R"({\info{\creatim\yr2003\do\mo1}{\revtim\yr2004}\version2}x)");
    EXPECT_EQ(document.Properties().infoKept, "{\\revtim\\yr2004}\\version2");
}

TEST(ReadInfo, AFragmentBringsNoPropertiesOfADocument)
{
    const Document fragment =
        ReadRtf(Sample(R"(\paperw5000{\info{\title T}}{\header h}x\par)"), {.scope = RtfScope::Fragment});
    EXPECT_EQ(fragment.Properties(), DocumentFormat());
    EXPECT_EQ(fragment.Text(), u"x\r\n");
}

}  // namespace
}  // namespace quillmarker
