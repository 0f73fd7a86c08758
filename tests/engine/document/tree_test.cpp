#include "engine/document/tree_sample.h"

#include <gtest/gtest.h>

#include <bit>

namespace quillmarker
{
namespace
{

using Node = TinyTree::Node;

Summary SumOf(const Paragraphs& all)
{
    Summary sum;
    for (const ParagraphRef& paragraph : all)
        sum += {paragraph->Length(), 1,
                paragraph->Ending().kind == Mark::Row ? paragraph->Ending().tableDepth : kNoRowMark};
    return sum;
}

std::int32_t NaiveRowMark(const Paragraphs& all, std::size_t first, std::uint16_t depth)
{
    for (std::size_t i = first; i < all.size(); ++i)
    {
        if (all[i]->Ending().kind == Mark::Row && all[i]->Ending().tableDepth <= depth)
            return static_cast<std::int32_t>(i);
    }
    return -1;
}

// Every node knows what is below it, is full enough and lies as deep as its neighbours.
void ExpectSound(const Node& node, bool isRoot)
{
    ASSERT_LE(node.Count(), kTinyFanout);
    ASSERT_GE(node.Count(), isRoot && node.IsLeaf() ? 1 : kTinyFanout / 2);
    Summary sum;
    for (int i = 0; i < node.Count(); ++i)
    {
        const Summary child = node.IsLeaf() ? SummaryOf(*node.ParagraphAt(i)) : node.NodeAt(i)->Total();
        ASSERT_EQ(node.UnitsOf(i), child.units);
        ASSERT_EQ(node.ParagraphsOf(i), child.paragraphs);
        sum += child;
        if (node.IsLeaf())
            continue;
        ASSERT_EQ(node.NodeAt(i)->Height(), node.Height() - 1);
        ExpectSound(*node.NodeAt(i), false);
    }
    ASSERT_EQ(node.Total(), sum);
}

void ExpectSound(const TinyTree& tree)
{
    if (!tree.Root())
        return;
    ExpectSound(*tree.Root(), true);
    const auto count = static_cast<unsigned>(tree.Count());
    EXPECT_LT(tree.Root()->Height(), static_cast<int>(std::bit_width(count)));  // log2, since nodes are half full
}

void ExpectPlaces(const TinyTree& tree, const Paragraphs& all)
{
    std::int64_t units = 0;
    for (std::size_t i = 0; i < all.size(); ++i)
    {
        const auto index = static_cast<std::int32_t>(i);
        ASSERT_EQ(tree.At(index), all[i]);
        ASSERT_EQ(tree.UnitsBefore(index), units);
        for (std::int64_t at = units; at < units + all[i]->Length(); ++at)
        {
            ASSERT_EQ(tree.Find(at).paragraph, index);
            ASSERT_EQ(tree.Find(at).unitsBefore, units);
        }
        units += all[i]->Length();
    }
    EXPECT_EQ(tree.UnitsBefore(tree.Count()), units);
}

void ExpectRowMarks(const TinyTree& tree, const Paragraphs& all)
{
    for (std::size_t i = 0; i < all.size(); ++i)
    {
        for (std::uint16_t depth = 0; depth < 4; ++depth)
            ASSERT_EQ(tree.FindRowMark(static_cast<std::int32_t>(i), depth), NaiveRowMark(all, i, depth));
    }
}

struct Step
{
    std::int32_t first;
    std::int32_t last;
    Paragraphs items;
};

Step RandomStep(std::mt19937& random, std::int32_t count)
{
    const std::int32_t first = Below(random, count + 1);
    const std::int32_t most = Below(random, 40) == 0 ? count - first : std::min(count - first, 6);
    const std::int32_t items = Below(random, 12) == 0 ? Below(random, 60) : Below(random, 5);
    return {first, first + Below(random, most + 1), RandomParagraphs(random, items)};
}

TEST(Tree, HoldsWhatAVectorHoldsAfterAnyEdits)
{
    std::mt19937 random(41);
    TinyTree tree;
    Paragraphs all;
    for (int round = 0; round < 1500 && !HasFatalFailure(); ++round)
    {
        const Step step = RandomStep(random, tree.Count());
        tree = tree.Replaced(step.first, step.last, step.items);
        all = Replaced(std::move(all), step.first, step.last, step.items);
        ASSERT_TRUE(Flat(tree) == all) << "round " << round;
        ASSERT_EQ(tree.Total(), SumOf(all));
        ExpectSound(tree);
        if (round % 10 == 0)
        {
            ExpectPlaces(tree, all);
            ExpectRowMarks(tree, all);
        }
    }
}

TEST(Tree, EarlierVersionsStayAsTheyWere)
{
    std::mt19937 random(42);
    std::vector<std::pair<TinyTree, Paragraphs>> versions = {{TinyTree(), {}}};
    for (int round = 0; round < 300; ++round)
    {
        const auto& [tree, all] = versions.back();
        const Step step = RandomStep(random, tree.Count());
        versions.emplace_back(tree.Replaced(step.first, step.last, step.items),
                              Replaced(all, step.first, step.last, step.items));
    }
    for (const auto& [tree, all] : versions)
        ASSERT_TRUE(Flat(tree) == all);
}

TEST(Tree, VisitsFromAnyPlaceUntilToldToStop)
{
    std::mt19937 random(43);
    const Paragraphs all = RandomParagraphs(random, 90);
    const TinyTree tree(all);
    for (std::int32_t first = 0; first <= 90; ++first)
    {
        const std::size_t wanted = static_cast<std::size_t>(Below(random, 90)) + 1;
        Paragraphs seen;
        const bool reachedEnd = tree.Visit(first, [&](const ParagraphRef& paragraph) {
            seen.push_back(paragraph);
            return seen.size() < wanted;
        });
        const std::size_t expected = std::min(wanted, static_cast<std::size_t>(90 - first));
        EXPECT_TRUE(seen == Paragraphs(all.begin() + first, all.begin() + first + std::ptrdiff_t(expected)));
        EXPECT_EQ(reachedEnd, seen.size() < wanted);
    }
}

TEST(Tree, AnEditSharesAllNodesButThoseOnItsWay)
{
    std::mt19937 random(44);
    const TinyTree before(RandomParagraphs(random, 4096));
    const TinyTree after = before.Replaced(2000, 2001, RandomParagraphs(random, 1));
    std::int32_t shared = 0;
    const Node* left = before.Root();
    const Node* right = after.Root();
    while (left && !left->IsLeaf())
    {
        const Node* nextLeft = nullptr;
        const Node* nextRight = nullptr;
        ASSERT_EQ(left->Count(), right->Count());
        for (int i = 0; i < left->Count(); ++i)
        {
            const bool isShared = left->NodeAt(i) == right->NodeAt(i);
            shared += isShared ? left->NodeAt(i)->Total().paragraphs : 0;
            if (!isShared)
            {
                EXPECT_EQ(nextLeft, nullptr) << "two children of one node were made anew";
                nextLeft = left->NodeAt(i).Identity();
                nextRight = right->NodeAt(i).Identity();
            }
        }
        left = nextLeft;
        right = nextRight;
    }
    EXPECT_GE(shared, 4096 - kTinyFanout);
}

TEST(Tree, AnEmptyTreeAnswersEverything)
{
    const TinyTree tree;
    EXPECT_EQ(tree.Count(), 0);
    EXPECT_EQ(tree.Total(), Summary());
    EXPECT_EQ(tree.UnitsBefore(0), 0);
    EXPECT_EQ(tree.FindRowMark(0, 9), -1);
    EXPECT_TRUE(tree.Visit(0, [](const ParagraphRef&) { return false; }));
    EXPECT_EQ(tree.Replaced(0, 0, {}).Root(), nullptr);
    std::mt19937 random(45);
    EXPECT_EQ(TinyTree(RandomParagraphs(random, 50)).Replaced(0, 50, {}).Root(), nullptr);
}

TEST(Tree, AUnitBehindTheEndIsInTheLastParagraph)
{
    std::mt19937 random(46);
    const TinyTree tree(RandomParagraphs(random, 30));
    EXPECT_EQ(tree.Find(tree.Total().units).paragraph, 29);
    EXPECT_EQ(tree.Find(tree.Total().units + 1000).paragraph, 29);
}

}  // namespace
}  // namespace quillmarker
