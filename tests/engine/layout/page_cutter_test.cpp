#include "engine/layout/page_cutter.h"
#include "support/fixed_font_host.h"
#include "support/random_document.h"

#include <quillmarker/rtf.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace quillmarker
{
namespace
{

// A page of five lines of ten characters.
constexpr Twips kWidth{1000};
constexpr Twips kHeight{1000};

Document Read(const std::string& body)
{
    return ReadRtf("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Fixed;}}\\f0\\fs20 " + body + "}");
}

/// The lines of a page, a `/` between them; what a line ends with is left out.
std::string LinesOf(const Document& document, const CutPage& page)
{
    std::string text;
    for (const PlacedLines& placed : page.lines)
    {
        for (std::uint32_t i = placed.first; i < placed.last; ++i)
        {
            const Line& line = placed.layout->Lines()[i];
            for (const char16_t unit :
                 document.ParagraphAt(placed.paragraph).Text().substr(line.begin, line.end - line.begin))
                if (unit > u' ')
                    text += unit < 0x7F ? static_cast<char>(unit) : '?';
            text += '/';
        }
    }
    return text;
}

std::vector<std::string> PagesOf(const Document& document, Twips height = kHeight)
{
    FixedFontHost fonts;
    PageCutter cutter(document, fonts, kWidth, height);
    std::vector<std::string> pages;
    PageStart start;
    for (;;)
    {
        const CutPage page = cutter.Cut(start, Position{document.Size()});
        pages.push_back(LinesOf(document, page));
        if (page.isLast || pages.size() > 10'000)
            return pages;
        EXPECT_GT(page.next.position, start.position);
        EXPECT_EQ(page.next.number, start.number + 1);
        start = page.next;
    }
}

using Pages = std::vector<std::string>;

TEST(PageCutter, AnEmptyDocumentIsOnePage) { EXPECT_EQ(PagesOf(Document()), Pages({"/"})); }

TEST(PageCutter, APageTakesWholeLines)
{
    EXPECT_EQ(PagesOf(Read("a\\par b\\par c\\par d\\par e\\par f\\par")), Pages({"a/b/c/d/e/", "f/"}));
}

TEST(PageCutter, APageBreakWithinATableEndsNoPage)
{
    EXPECT_EQ(PagesOf(Read("x\\par\\trowd\\cellx900\\intbl a\\page b\\cell\\row\\pard c\\par")).size(), 1U);
    EXPECT_EQ(PagesOf(Read("x\\par a\\page b\\par c\\par")).size(), 2U);
}

TEST(PageCutter, AParagraphGoesOnOnTheNextPage)
{
    EXPECT_EQ(PagesOf(Read("a\\par b\\par c\\par dddddddd eeeeeeee ffffffff gggggggg\\par")),
              Pages({"a/b/c/dddddddd/eeeeeeee/", "ffffffff/gggggggg/"}));
}

TEST(PageCutter, WidowsAndOrphansAreKeptTogetherWhereAsked)
{
    EXPECT_EQ(PagesOf(Read("a\\par b\\par c\\par d\\par\\widctlpar eeeeeeee ffffffff gggggggg\\par")),
              Pages({"a/b/c/d/", "eeeeeeee/ffffffff/gggggggg/"}));
    EXPECT_EQ(PagesOf(Read("a\\par b\\par\\widctlpar cccccccc dddddddd eeeeeeee ffffffff\\par")),
              Pages({"a/b/cccccccc/dddddddd/", "eeeeeeee/ffffffff/"}));
}

TEST(PageCutter, KeptLinesGoToTheNextPageTogether)
{
    EXPECT_EQ(PagesOf(Read("a\\par b\\par c\\par\\keep dddddddd eeeeeeee ffffffff\\par")),
              Pages({"a/b/c/", "dddddddd/eeeeeeee/ffffffff/"}));
}

TEST(PageCutter, KeptLinesLongerThanAPageAreCutAllTheSame)
{
    EXPECT_EQ(PagesOf(Read("\\keep aaaaaaaa bbbbbbbb cccccccc dddddddd eeeeeeee ffffffff\\par")),
              Pages({"aaaaaaaa/bbbbbbbb/cccccccc/dddddddd/eeeeeeee/", "ffffffff/"}));
}

TEST(PageCutter, AHeadingStaysWithWhatFollows)
{
    EXPECT_EQ(PagesOf(Read("a\\par b\\par c\\par d\\par\\keepn head\\par\\pard text\\par")),
              Pages({"a/b/c/d/", "head/text/"}));
}

TEST(PageCutter, PagesOfNothingButHeadingsAreCutAllTheSame)
{
    EXPECT_EQ(PagesOf(Read("\\keepn a\\par b\\par c\\par d\\par e\\par f\\par")), Pages({"a/b/c/d/e/", "f/"}));
}

TEST(PageCutter, PageBreaksAndColumnBreaksEndThePage)
{
    EXPECT_EQ(PagesOf(Read("a\\page b\\par c\\column d\\par")), Pages({"a/", "b/c/", "d/"}));
}

TEST(PageCutter, ABreakAtTheVeryEndMakesNoEmptyPage) { EXPECT_EQ(PagesOf(Read("a\\page\\par")), Pages({"a/"})); }

TEST(PageCutter, AParagraphCanAskForANewPage)
{
    EXPECT_EQ(PagesOf(Read("a\\par\\pagebb b\\par\\pard c\\par")), Pages({"a/", "b/c/"}));
    EXPECT_EQ(PagesOf(Read("\\pagebb a\\par")), Pages({"a/"}));
}

TEST(PageCutter, SectionsBeginOnANewPageUnlessTheyGoOn)
{
    EXPECT_EQ(PagesOf(Read("a\\par\\sect\\sectd b\\par")).size(), 2U);
    EXPECT_EQ(PagesOf(Read("a\\par\\sect\\sectd\\sbknone b\\par")).size(), 1U);
}

TEST(PageCutter, APictureTallerThanThePageStandsAloneAndIsClipped)
{
    const Document document = Read("a\\par{\\pict\\pngblip\\picwgoal200\\pichgoal3000 89}\\par b\\par");
    EXPECT_EQ(PagesOf(document), Pages({"a/", "?/", "b/"}));
    FixedFontHost fonts;
    const TwipsRectangle page{{}, {}, {1200}, {1200}};
    const TwipsRectangle printable{{100}, {100}, {1100}, {1100}};
    const FormattedPage formatted = FormatRange(document, {{3}, {document.Size()}}, printable, page, fonts);
    ASSERT_FALSE(formatted.record.list.items.empty());
    ASSERT_TRUE(std::holds_alternative<BeginClip>(formatted.record.list.items.front()));
    EXPECT_EQ(std::get<BeginClip>(formatted.record.list.items.front()).rectangle, QRectF(0, 100, 1200, 1000));
}

TEST(PageCutter, APageTooSmallForALineTakesOneLineEach)
{
    EXPECT_EQ(PagesOf(Read("a\\par b\\par"), Twips{50}), Pages({"a/", "b/"}));
}

TEST(PageCutter, HiddenParagraphsTakeNoRoom)
{
    EXPECT_EQ(PagesOf(Read("a\\par b\\par{\\v x\\par y\\par}c\\par d\\par e\\par f\\par")).size(), 2U);
}

TEST(PageCutter, SpaceBeforeIsDroppedAtTheTopOfAFollowingPageOnly)
{
    FixedFontHost fonts;
    const Document document = Read("\\sb300 a\\par b\\par c\\par");
    PageCutter cutter(document, fonts, kWidth, kHeight);
    const CutPage first = cutter.Cut({}, Position{document.Size()});
    ASSERT_EQ(first.lines.size(), 2U);
    EXPECT_EQ(first.lines[0].top, ToFine(Twips{300}));
    const CutPage second = cutter.Cut(first.next, Position{document.Size()});
    ASSERT_EQ(second.lines.size(), 1U);
    EXPECT_EQ(second.lines[0].top, 0);
}

TEST(PageCutter, NegativeSpaceIsNone)
{
    const std::string six = "a\\par b\\par c\\par d\\par e\\par f\\par";
    EXPECT_EQ(PagesOf(Read("\\sa-1000 " + six)), Pages({"a/b/c/d/e/", "f/"}));
    EXPECT_EQ(PagesOf(Read("\\sb-1000 " + six)), Pages({"a/b/c/d/e/", "f/"}));
    EXPECT_EQ(PagesOf(Read("\\sb-1000\\sa-1000\\brdrt\\brdrs\\brdrw-900\\brsp-900\\brdrb\\brdrs\\brdrw-900\\brsp-900 " +
                           six)),
              Pages({"a/b/c/d/e/", "f/"}));
}

Fine TopOfSecondPage(const std::string& body)
{
    FixedFontHost fonts;
    const Document document = Read(body);
    PageCutter cutter(document, fonts, kWidth, kHeight);
    const CutPage first = cutter.Cut({}, Position{document.Size()});
    const CutPage second = cutter.Cut(first.next, Position{document.Size()});
    return second.lines.empty() ? -1 : second.lines[0].top;
}

TEST(PageCutter, SpaceBeforeIsKeptOnAPageThatWasAskedFor)
{
    EXPECT_EQ(TopOfSecondPage("a\\par\\pagebb\\sb300 b\\par"), ToFine(Twips{300}));
    EXPECT_EQ(TopOfSecondPage("a\\par\\sect\\sectd\\sb300 b\\par"), ToFine(Twips{300}));
    EXPECT_EQ(TopOfSecondPage("a\\par b\\par c\\par d\\par e\\par\\sb300 f\\par"), 0);
}

TEST(PageCutter, NoSpacePushesTheFirstLineOffThePage)
{
    FixedFontHost fonts;
    for (const char* room : {"\\sb20000 ", "\\brdrt\\brdrs\\brdrw20\\brsp1500 "})
    {
        const Document document = Read(room + std::string("a\\par\\pard b\\par"));
        PageCutter cutter(document, fonts, kWidth, kHeight);
        const CutPage page = cutter.Cut({}, Position{document.Size()});
        ASSERT_EQ(page.lines.size(), 1U);
        EXPECT_EQ(page.lines[0].top, ToFine(kHeight - Twips{200}));
        EXPECT_EQ(page.next.position.value, 3);
    }
}

TEST(FormatRange, EndsWithinTheLastParagraphToo)
{
    FixedFontHost fonts;
    const Document document = ReadRtf("{\\rtf1{\\fonttbl{\\f0 Fixed;}}\\f0\\fs20 aaaaaaaa bbbbbbbb cccccccc}");
    const TwipsRectangle page{{}, {}, {1000}, {1000}};
    const FormattedPage formatted = FormatRange(document, {{0}, {9}}, page, page, fonts);
    EXPECT_EQ(formatted.next.value, 9);
    EXPECT_EQ(formatted.record.list.items.size(), 1U);
}

/// The vertical lines on the left of a page's frames, from top to bottom, as pairs of their ends.
std::vector<std::pair<double, double>> LeftBorders(const DisplayList& list)
{
    std::vector<std::pair<double, double>> lines;
    for (const DisplayItem& item : list.items)
        if (const auto* line = std::get_if<BorderLine>(&item); line && line->from.x() == line->to.x())
            lines.emplace_back(line->from.y(), line->to.y());
    return lines;
}

using Lengths = std::vector<std::pair<double, double>>;

TEST(FormatRange, AFrameGoesOnThroughTheSpaceWithinIt)
{
    FixedFontHost fonts;
    const Document document = Read("\\brdrl\\brdrs\\brdrw20\\shading5000\\sb100\\sa50 a\\par b\\par c\\par d\\par");
    const TwipsRectangle page{{}, {}, {1000}, {1000}};
    const FormattedPage first = FormatRange(document, {{0}, {document.Size()}}, page, page, fonts);
    EXPECT_EQ(LeftBorders(first.record.list), Lengths({{100, 350}, {350, 700}, {700, 1000}}));
    const auto& shading = std::get<FilledRectangle>(first.record.list.items.front());
    EXPECT_EQ(shading.rectangle.top(), 100);
    EXPECT_EQ(shading.rectangle.bottom(), 350);
    const FormattedPage second = FormatRange(document, {first.next, {document.Size()}}, page, page, fonts);
    ASSERT_FALSE(LeftBorders(second.record.list).empty());
    EXPECT_EQ(LeftBorders(second.record.list).front().first, 0) << "nothing above the page";
}

TEST(FormatRange, TheLineBetweenTwoOfAFrameStaysAtTheText)
{
    FixedFontHost fonts;
    const Document document = Read("\\brdrl\\brdrs\\brdrw20\\brdrbtw\\brdrs\\brdrw20\\sa50 a\\par b\\par\\pard c\\par");
    const TwipsRectangle page{{}, {}, {1000}, {1000}};
    const FormattedPage formatted = FormatRange(document, {{0}, {document.Size()}}, page, page, fonts);
    EXPECT_EQ(LeftBorders(formatted.record.list), Lengths({{0, 270}, {270, 470}}));
    std::vector<double> between;
    for (const DisplayItem& item : formatted.record.list.items)
        if (const auto* line = std::get_if<BorderLine>(&item); line && line->from.y() == line->to.y())
            between.push_back(line->from.y());
    EXPECT_EQ(between, std::vector<double>{210});
}

TEST(FormatRange, SaysWhereTheNextPageBegins)
{
    FixedFontHost fonts;
    const Document document = Read("a\\par b\\par c\\par d\\par e\\par f\\par");
    const TwipsRectangle page{{}, {}, {2000}, {2000}};
    const TwipsRectangle printable{{500}, {500}, {1500}, {1500}};
    const FormattedPage first = FormatRange(document, {{0}, {document.Size()}}, printable, page, fonts);
    EXPECT_EQ(first.next.value, 15);
    EXPECT_EQ(first.record.width.value, 2000);
    const auto& run = std::get<GlyphRun>(first.record.list.items.front());
    EXPECT_EQ(run.origin, QPointF(500, 660));
    const FormattedPage second = FormatRange(document, {first.next, {document.Size()}}, printable, page, fonts);
    EXPECT_EQ(second.next.value, document.Size());
}

TEST(FormatRange, EndsWhereTheRangeEnds)
{
    FixedFontHost fonts;
    const Document document = Read("a\\par b\\par c\\par");
    const TwipsRectangle page{{}, {}, {1000}, {1000}};
    const FormattedPage formatted = FormatRange(document, {{0}, {3}}, page, page, fonts);
    EXPECT_EQ(formatted.next.value, 3);
    EXPECT_EQ(formatted.record.list.items.size(), 1U);
}

// Every position is on one page, whatever the document asks for.
TEST(PageCutter, PagesOfAnyDocumentFollowEachOtherWithoutGaps)
{
    for (unsigned seed = 0; seed < 60; ++seed)
    {
        std::mt19937 random(seed);
        const Document document = RandomDocument(random, u"ab \t\v\f", 40);
        FixedFontHost fonts;
        PageCutter cutter(document, fonts, kWidth, Twips{200 + Below(random, 3000)});
        PageStart start;
        std::int32_t lines = 0;
        std::int32_t paragraph = 0;
        std::uint32_t line = 0;
        for (bool isLast = false; !isLast; ++lines)
        {
            const CutPage page = cutter.Cut(start, Position{document.Size()});
            for (const PlacedLines& placed : page.lines)
            {
                ASSERT_EQ(placed.paragraph, paragraph) << seed;
                ASSERT_EQ(placed.first, line) << seed;
                ASSERT_LT(placed.first, placed.last);
                line = placed.last;
                if (line == placed.layout->Lines().size())
                {
                    ++paragraph;
                    line = 0;
                }
            }
            isLast = page.isLast;
            ASSERT_TRUE(isLast || page.next.position > start.position) << seed;
            start = page.next;
        }
        ASSERT_GE(start.position.value, document.Size()) << seed;
    }
}

}  // namespace
}  // namespace quillmarker
