#include "engine/document/differences.h"
#include "engine/document/tree_sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{

void PrintTo(const DocumentChange& change, std::ostream* out)
{
    *out << change.oldFirst << "+" << change.oldCount << " -> " << change.newFirst << "+" << change.newCount;
}

namespace
{

using Changes = std::vector<DocumentChange>;

Changes Differing(const TinyTree& before, const TinyTree& after)
{
    return TreeDifference<kTinyFanout>().Find(before, after);
}

std::int32_t SizeOf(const Changes& changes)
{
    std::int32_t size = 0;
    for (const DocumentChange& change : changes)
        size += change.oldCount + change.newCount;
    return size;
}

// The old paragraphs with each change done to them.
Paragraphs Applied(const Paragraphs& before, const Paragraphs& after, const Changes& changes)
{
    Paragraphs all = before;
    for (auto change = changes.rbegin(); change != changes.rend(); ++change)
    {
        const Paragraphs items(after.begin() + change->newFirst, after.begin() + change->newFirst + change->newCount);
        all = Replaced(std::move(all), change->oldFirst, change->oldFirst + change->oldCount, items);
    }
    return all;
}

void ExpectAscendingAndApart(const Changes& changes)
{
    for (std::size_t i = 0; i < changes.size(); ++i)
    {
        EXPECT_GT(changes[i].oldCount + changes[i].newCount, 0) << "a change of nothing";
        if (i == 0)
            continue;
        const std::int32_t oldGap = changes[i].oldFirst - (changes[i - 1].oldFirst + changes[i - 1].oldCount);
        const std::int32_t newGap = changes[i].newFirst - (changes[i - 1].newFirst + changes[i - 1].newCount);
        EXPECT_EQ(oldGap, newGap);
        EXPECT_GT(oldGap, 0);
    }
}

TEST(TreeDifference, TheChangesTurnTheOldIntoTheNew)
{
    std::mt19937 random(51);
    for (int round = 0; round < 400; ++round)
    {
        const TinyTree before(RandomParagraphs(random, Below(random, 200)));
        TinyTree after = before;
        for (std::int32_t edits = Below(random, 8); edits > 0; --edits)
        {
            const std::int32_t first = Below(random, after.Count() + 1);
            const std::int32_t last = first + Below(random, std::min(after.Count() - first, 20) + 1);
            after = after.Replaced(first, last, RandomParagraphs(random, Below(random, 9)));
        }
        const Changes changes = Differing(before, after);
        ASSERT_TRUE(Applied(Flat(before), Flat(after), changes) == Flat(after)) << "round " << round;
        ExpectAscendingAndApart(changes);
    }
}

TEST(TreeDifference, TreesWithNothingInCommonDifferAsAWhole)
{
    std::mt19937 random(52);
    for (const std::int32_t oldCount : {0, 1, 7, 100})
    {
        for (const std::int32_t newCount : {0, 1, 60, 300})
        {
            const TinyTree before(RandomParagraphs(random, oldCount));
            const TinyTree after(RandomParagraphs(random, newCount));
            const Changes expected = oldCount + newCount == 0 ? Changes() : Changes{{0, oldCount, 0, newCount}};
            EXPECT_EQ(Differing(before, after), expected);
        }
    }
}

TEST(TreeDifference, ATreeDoesNotDifferFromItself)
{
    std::mt19937 random(53);
    const TinyTree tree(RandomParagraphs(random, 500));
    EXPECT_EQ(Differing(tree, tree), Changes());
}

TEST(TreeDifference, TheSameParagraphsInOtherNodesDoNotDiffer)
{
    std::mt19937 random(54);
    const Paragraphs all = RandomParagraphs(random, 500);
    const TinyTree before(all);
    TinyTree after;
    for (const ParagraphRef& paragraph : all)
        after = after.Replaced(after.Count(), after.Count(), {&paragraph, 1});
    EXPECT_EQ(Differing(before, after), Changes());
}

TEST(TreeDifference, EditsFarApartAreChangesOfTheirOwn)
{
    std::mt19937 random(55);
    const TinyTree before(RandomParagraphs(random, 1000));
    TinyTree after = before.Replaced(900, 903, {});
    after = after.Replaced(500, 500, RandomParagraphs(random, 2));
    after = after.Replaced(17, 18, RandomParagraphs(random, 1));
    EXPECT_EQ(Differing(before, after), (Changes{{17, 1, 17, 1}, {500, 0, 500, 2}, {900, 3, 902, 0}}));
}

TEST(TreeDifference, AMovedStretchIsFoundAsTakenAwayAndPutIn)
{
    std::mt19937 random(56);
    const Paragraphs all = RandomParagraphs(random, 300);
    const Paragraphs moved(all.begin() + 40, all.begin() + 60);
    const TinyTree before(all);
    const TinyTree after = before.Replaced(40, 60, {}).Replaced(200, 200, moved);
    const Changes changes = Differing(before, after);
    EXPECT_TRUE(Applied(all, Flat(after), changes) == Flat(after));
    ExpectAscendingAndApart(changes);
    EXPECT_LT(SizeOf(changes), 2 * 300);
}

TEST(TreeDifference, WhatIsFoundGrowsWithTheEditsAndNotWithTheTree)
{
    std::mt19937 random(57);
    for (const std::int32_t count : {100, 1000, 10000})
    {
        TinyTree before(RandomParagraphs(random, count));
        TinyTree after = before;
        std::int32_t edited = 0;
        for (int edit = 0; edit < 5; ++edit)
        {
            const std::int32_t first = Below(random, after.Count() - 2);
            after = after.Replaced(first, first + 2, RandomParagraphs(random, 1));
            edited += 3;
        }
        EXPECT_LE(SizeOf(Differing(before, after)), edited) << count;
    }
}

TEST(TreeDifference, AParagraphThatStandsTwiceIsMatchedOnce)
{
    std::mt19937 random(58);
    const Paragraphs pair = RandomParagraphs(random, 2);
    const TinyTree once(Paragraphs{pair[0], pair[1]});
    const TinyTree twice(Paragraphs{pair[0], pair[0], pair[1]});
    EXPECT_EQ(SizeOf(Differing(once, twice)), 1);
    EXPECT_EQ(SizeOf(Differing(twice, once)), 1);
}

}  // namespace
}  // namespace quillmarker
