#pragma once

#include "engine/document/tree.h"

#include <quillmarker/document.h>

#include <unordered_map>
#include <vector>

namespace quillmarker
{

/// Finds what two trees do not share, by the identity of their nodes: nodes of one height are matched, and only what
/// finds no match is opened.
template <int kFanout>
class TreeDifference
{
public:
    using Tree = BasicTree<kFanout>;
    using Node = typename Tree::Node;

    std::vector<DocumentChange> Find(const Tree& before, const Tree& after)
    {
        m_changes.clear();
        Nodes left = RootOf(before);
        Nodes right = RootOf(after);
        Compare(std::move(left), std::move(right), 0, 0);
        return std::move(m_changes);
    }

private:
    using Nodes = std::vector<const Node*>;

    static Nodes RootOf(const Tree& tree) { return tree.Root() ? Nodes{tree.Root()} : Nodes(); }
    static int HeightOf(const Nodes& nodes) { return nodes.empty() ? -1 : nodes.front()->Height(); }

    static Nodes Opened(const Nodes& nodes)
    {
        Nodes children;
        for (const Node* node : nodes)
        {
            for (const auto& child : node->Nodes())
                children.push_back(child.Identity());
        }
        return children;
    }

    static std::int32_t Paragraphs(const Nodes& nodes)
    {
        std::int32_t count = 0;
        for (const Node* node : nodes)
            count += node->Total().paragraphs;
        return count;
    }

    static std::int32_t Weight(const Node* node) { return node->Total().paragraphs; }
    static std::int32_t Weight(const Paragraph*) { return 1; }

    /// Matches the items of two sequences that are the same, in order, and calls `gap` for what lies between matches.
    template <class Item, class Gap>
    static void Match(const std::vector<Item>& left, const std::vector<Item>& right, Gap gap)
    {
        std::unordered_multimap<Item, std::size_t> places;
        for (std::size_t i = 0; i < right.size(); ++i)
            places.emplace(right[i], i);
        std::size_t leftFrom = 0;
        std::size_t rightFrom = 0;
        for (std::size_t i = 0; i < left.size(); ++i)
        {
            std::size_t at = right.size();
            const auto [begin, end] = places.equal_range(left[i]);
            for (auto place = begin; place != end; ++place)
            {
                if (place->second >= rightFrom)
                    at = std::min(at, place->second);
            }
            if (at == right.size())
                continue;
            gap(leftFrom, i, rightFrom, at);
            leftFrom = i + 1;
            rightFrom = at + 1;
        }
        gap(leftFrom, left.size(), rightFrom, right.size());
    }

    template <class Item, class Deeper>
    static void CompareItems(const std::vector<Item>& left, const std::vector<Item>& right, std::int32_t leftStart,
                             std::int32_t rightStart, Deeper deeper)
    {
        std::size_t leftDone = 0;
        std::size_t rightDone = 0;
        Match(left, right, [&](std::size_t leftFrom, std::size_t leftTo, std::size_t rightFrom, std::size_t rightTo) {
            for (; leftDone < leftFrom; ++leftDone)
                leftStart += Weight(left[leftDone]);
            for (; rightDone < rightFrom; ++rightDone)
                rightStart += Weight(right[rightDone]);
            if (leftFrom < leftTo || rightFrom < rightTo)
                deeper(
                    std::vector<Item>(left.begin() + std::ptrdiff_t(leftFrom), left.begin() + std::ptrdiff_t(leftTo)),
                    std::vector<Item>(right.begin() + std::ptrdiff_t(rightFrom),
                                      right.begin() + std::ptrdiff_t(rightTo)),
                    leftStart, rightStart);
        });
    }

    void Compare(Nodes left, Nodes right, std::int32_t leftStart, std::int32_t rightStart)
    {
        while (HeightOf(left) > HeightOf(right) && HeightOf(left) > 0)
            left = Opened(left);
        while (HeightOf(right) > HeightOf(left) && HeightOf(right) > 0)
            right = Opened(right);
        if (HeightOf(left) <= 0 && HeightOf(right) <= 0)
            return CompareLeaves(left, right, leftStart, rightStart);
        CompareItems(left, right, leftStart, rightStart,
                     [&](Nodes leftGap, Nodes rightGap, std::int32_t leftAt, std::int32_t rightAt) {
                         if (leftGap.empty() || rightGap.empty())
                             Add({leftAt, Paragraphs(leftGap), rightAt, Paragraphs(rightGap)});
                         else
                             Compare(Opened(leftGap), Opened(rightGap), leftAt, rightAt);
                     });
    }

    void CompareLeaves(const Nodes& left, const Nodes& right, std::int32_t leftStart, std::int32_t rightStart)
    {
        using Items = std::vector<const Paragraph*>;
        const auto items = [](const Nodes& nodes) {
            Items all;
            for (const Node* node : nodes)
            {
                for (const ParagraphRef& paragraph : node->Paragraphs())
                    all.push_back(paragraph.Identity());
            }
            return all;
        };
        CompareItems(items(left), items(right), leftStart, rightStart,
                     [&](const Items& leftGap, const Items& rightGap, std::int32_t leftAt, std::int32_t rightAt) {
                         Add({leftAt, std::int32_t(leftGap.size()), rightAt, std::int32_t(rightGap.size())});
                     });
    }

    void Add(const DocumentChange& change)
    {
        if (!m_changes.empty())
        {
            DocumentChange& last = m_changes.back();
            if (last.oldFirst + last.oldCount == change.oldFirst && last.newFirst + last.newCount == change.newFirst)
            {
                last.oldCount += change.oldCount;
                last.newCount += change.newCount;
                return;
            }
        }
        m_changes.push_back(change);
    }

    std::vector<DocumentChange> m_changes;
};

}  // namespace quillmarker
