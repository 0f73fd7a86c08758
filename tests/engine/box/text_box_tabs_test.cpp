#include "support/sample.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillmarker
{
namespace
{

using Stops = std::vector<std::int32_t>;

// The stops as the members tell them.
Stops Read(const TextBox& box)
{
    Stops stops;
    for (int i = 0; i < box.SelTabCount().value_or(0); ++i)
        stops.push_back(box.SelTabs(i).value_or(-1));
    return stops;
}

void Write(TextBox& box, const Stops& stops)
{
    box.SetSelTabCount(static_cast<int>(stops.size()));
    for (std::size_t i = 0; i < stops.size(); ++i)
        box.SetSelTabs(static_cast<int>(i), stops[i]);
}

TEST(Tabs, AreReadAsTheyWereWritten)
{
    SampleBox box("a|");
    EXPECT_EQ(box.SelTabCount(), 0);
    Write(box, {1000, 2000, 5000});
    EXPECT_EQ(Read(box), (Stops{1000, 2000, 5000}));
}

TEST(Tabs, WrittenInAnyOrderComeSorted)
{
    Stops stops = {100, 720, 1440, 2160, 9000};
    const Stops sorted = stops;
    do
    {
        SampleBox box("a|");
        Write(box, stops);
        ASSERT_EQ(Read(box), sorted) << ::testing::PrintToString(stops);
    } while (std::next_permutation(stops.begin(), stops.end()));
}

TEST(Tabs, WrittenInAnyOrderOfTheirNumbersComeSorted)
{
    SampleBox box("a|");
    box.SetSelTabCount(3);
    box.SetSelTabs(2, 300);
    box.SetSelTabs(0, 500);
    box.SetSelTabs(1, 400);
    EXPECT_EQ(Read(box), (Stops{300, 400, 500}));
}

TEST(Tabs, TwoAtOnePlaceAreOne)
{
    SampleBox box("a|");
    Write(box, {1000, 1000, 2000});
    EXPECT_EQ(Read(box), (Stops{1000, 2000}));
}

TEST(Tabs, AStopThatPassesThroughAnothersPlaceDoesNotTakeIt)
{
    SampleBox box("a|");
    box.SetSelTabCount(2);
    box.SetSelTabs(0, 2000);
    box.SetSelTabs(1, 2000);
    box.SetSelTabs(0, 1000);
    EXPECT_EQ(Read(box), (Stops{1000, 2000}));
}

TEST(Tabs, GrowingKeepsTheOldOnesAndShrinkingTheFirst)
{
    SampleBox box("a|");
    Write(box, {1000, 2000});
    box.SetSelStart(0);
    box.SetSelTabCount(4);
    box.SetSelTabs(3, 6000);
    box.SetSelTabs(2, 5000);
    EXPECT_EQ(Read(box), (Stops{1000, 2000, 5000, 6000}));
    box.SetSelTabCount(1);
    EXPECT_EQ(Read(box), Stops{1000});
    box.SetSelTabCount(0);
    EXPECT_EQ(Read(box), Stops());
    EXPECT_FALSE(box.SelParagraphFormat().tabs->operator bool());
}

TEST(Tabs, AsManyAsAskedForAreThereBeforeTheyArePlaced)
{
    SampleBox box("a|");
    box.SetSelTabCount(5);
    EXPECT_EQ(box.SelTabCount(), 5);
}

TEST(Tabs, ANumberOutsideIsIgnored)
{
    SampleBox box("a|");
    Write(box, {1000, 2000});
    box.SetSelTabs(2, 3000);
    box.SetSelTabs(-1, 3000);
    EXPECT_EQ(Read(box), (Stops{1000, 2000}));
    EXPECT_EQ(box.SelTabs(2), std::nullopt);
    EXPECT_EQ(box.SelTabs(-1), std::nullopt);
    box.SetSelTabCount(-1);
    EXPECT_EQ(box.SelTabCount(), 2);
}

TEST(Tabs, NoMoreAreKeptThanAParagraphHolds)
{
    SampleBox box("a|");
    box.SetSelTabCount(std::numeric_limits<int>::max());
    EXPECT_EQ(box.SelTabCount(), static_cast<int>(kMaxTabStops));
}

TEST(Tabs, AreMixedWhereParagraphsDiffer)
{
    SampleBox box("a|\nb");
    Write(box, {1000});
    box.SetSelStart(0);
    box.SetSelLength(box.TextLength());
    EXPECT_EQ(box.SelTabCount(), std::nullopt);
    EXPECT_EQ(box.SelTabs(0), std::nullopt);
}

TEST(Tabs, AreWrittenToEveryParagraphOfTheSelection)
{
    SampleBox box("^a\nb|\nc");
    Write(box, {3000, 1000});
    for (const std::int32_t start : {0, 3})
    {
        box.SetSelStart(start);
        EXPECT_EQ(Read(box), (Stops{1000, 3000}));
    }
    box.SetSelStart(6);
    EXPECT_EQ(Read(box), Stops());
}

TEST(Tabs, AfterTheCaretMovedWritingBeginsWithTheStopsThatAreThere)
{
    SampleBox box("a|\nb");
    Write(box, {3000, 1000});
    box.SetSelStart(3);
    box.SetSelStart(0);
    box.SetSelTabs(0, 1500);  // the first of the sorted ones
    EXPECT_EQ(Read(box), (Stops{1500, 3000}));
}

TEST(Tabs, KeepTheirKindWhenTheyAreMoved)
{
    TextBox box;
    box.SetTextRTF(u"{\\rtf1\\pard\\tqr\\tldot\\tx1000 a\\par}");
    box.SetSelTabs(0, 2000);
    const std::vector<TabStop> expected = {{{2000}, TabKind::Right, TabLeader::Dots}};
    EXPECT_EQ(**box.SelParagraphFormat().tabs, expected);
}

TEST(TabStops, TheCountHoldsWhereTheLastStopIsAsFarAsStopsGo)
{
    TextBox box;
    box.SetSelTabCount(2);
    box.SetSelTabs(0, 1'000'000);
    box.SetSelTabs(1, 1'000'000);
    box.SetSelTabCount(4);
    EXPECT_EQ(box.SelTabCount(), 4);
}

}  // namespace
}  // namespace quillmarker
