#include "engine/layout/height_index.h"

#include "support/random_document.h"

#include <gtest/gtest.h>

#include <bit>
#include <numeric>

namespace quillmarker
{
namespace
{

constexpr std::size_t kTiny = 4;
using TinyIndex = BasicHeightIndex<kTiny>;
using Heights = std::vector<ParagraphHeight>;

Heights RandomHeights(std::mt19937& random, std::int32_t count)
{
    Heights heights;
    for (std::int32_t i = 0; i < count; ++i)
    {
        const bool isFlat = Below(random, 4) == 0;
        heights.push_back({isFlat ? 0 : Below(random, 50), Below(random, 3) == 0});
    }
    return heights;
}

Fine SumOf(const Heights& heights, std::size_t count)
{
    return std::accumulate(heights.begin(), heights.begin() + std::ptrdiff_t(count), Fine(0),
                           [](Fine sum, const ParagraphHeight& height) { return sum + height.height; });
}

std::int32_t NaiveFind(const Heights& heights, Fine distance)
{
    Fine bottom = 0;
    for (std::size_t i = 0; i < heights.size(); ++i)
    {
        bottom += heights[i].height;
        if (std::max<Fine>(distance, 0) < bottom)
            return static_cast<std::int32_t>(i);
    }
    return std::max(static_cast<std::int32_t>(heights.size()) - 1, 0);
}

void ExpectSame(const TinyIndex& index, const Heights& heights)
{
    ASSERT_EQ(index.Count(), static_cast<std::int32_t>(heights.size()));
    ASSERT_EQ(index.Total(), SumOf(heights, heights.size()));
    for (std::size_t i = 0; i < heights.size(); ++i)
    {
        ASSERT_EQ(index.At(std::int32_t(i)), heights[i]) << "at " << i;
        ASSERT_EQ(index.Before(std::int32_t(i)), SumOf(heights, i)) << "before " << i;
    }
    ASSERT_EQ(index.Before(index.Count()), index.Total());
    for (Fine distance = -2; distance < index.Total() + 3; ++distance)
        ASSERT_EQ(index.Find(distance), NaiveFind(heights, distance)) << "at a distance of " << distance;
    // Nodes are half full, so the tree is no deeper than a binary one.
    ASSERT_LE(index.Depth(), static_cast<int>(std::bit_width(heights.size())));
}

TEST(HeightIndex, IsAListOfHeightsUnderRandomEdits)
{
    std::mt19937 random(71);
    for (int round = 0; round < 60; ++round)
    {
        Heights heights = RandomHeights(random, Below(random, 120));
        TinyIndex index;
        index.Assign(heights);
        for (int edit = 0; edit < 30; ++edit)
        {
            const auto size = static_cast<std::int32_t>(heights.size());
            const std::int32_t first = Below(random, size + 1);
            const std::int32_t count = Below(random, std::min(size - first, Below(random, 60) + 1) + 1);
            const Heights added = RandomHeights(random, Below(random, Below(random, 40) + 1));
            index.Replace(first, count, added);
            heights.erase(heights.begin() + first, heights.begin() + first + count);
            heights.insert(heights.begin() + first, added.begin(), added.end());
            ExpectSame(index, heights);
            if (::testing::Test::HasFatalFailure())
                FAIL() << "round " << round << ", edit " << edit;
        }
    }
}

TEST(HeightIndex, SetsOneHeightAmongMany)
{
    std::mt19937 random(72);
    Heights heights = RandomHeights(random, 100);
    TinyIndex index;
    index.Assign(heights);
    for (int i = 0; i < 100; ++i)
    {
        const std::int32_t at = Below(random, 100);
        heights[std::size_t(at)] = {Below(random, 90), Below(random, 2) == 0};
        index.Set(at, heights[std::size_t(at)]);
    }
    ExpectSame(index, heights);
}

TEST(HeightIndex, IsEmptyAtFirstAndAfterEverythingLeft)
{
    TinyIndex index;
    EXPECT_EQ(index.Count(), 0);
    EXPECT_EQ(index.Total(), 0);
    EXPECT_EQ(index.Find(5), 0);
    index.Assign(Heights(50, {3, false}));
    index.Replace(0, 50, {});
    EXPECT_EQ(index.Count(), 0);
    EXPECT_EQ(index.Depth(), 0);
    index.Replace(0, 0, Heights(2, {3, false}));
    EXPECT_EQ(index.Total(), 6);
}

TEST(HeightIndex, PassesOverWhatHasNoHeight)
{
    TinyIndex index;
    index.Assign({{0, false}, {10, false}, {0, false}, {0, false}, {10, false}, {0, false}});
    EXPECT_EQ(index.Find(0), 1);
    EXPECT_EQ(index.Find(9), 1);
    EXPECT_EQ(index.Find(10), 4);
    EXPECT_EQ(index.Find(20), 5) << "below everything is the last one";
}

}  // namespace
}  // namespace quillmarker
