#pragma once

#include "fine.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <span>
#include <vector>

namespace quillmarker
{

/// The height of a paragraph, which is an estimate until somebody lays it out.
struct ParagraphHeight
{
    Fine height = 0;  // never negative
    bool isEstimate = false;

    bool operator==(const ParagraphHeight&) const = default;
};

/// The heights of all paragraphs, one below the other: a balanced tree with sums. Finding, setting and replacing take
/// logarithmic time (and the number of heights put in); setting all of them is linear.
template <std::size_t kFanout>
class BasicHeightIndex
{
public:
    std::int32_t Count() const { return SumOf(m_root).count; }
    Fine Total() const { return SumOf(m_root).height; }

    ParagraphHeight At(std::int32_t index) const
    {
        const Node* node = &m_root;
        while (!node->IsLeaf())
            node = ChildOf(*node, index).node.get();
        return Unpacked(node->heights[std::size_t(index)]);
    }

    /// The sum of the heights above a paragraph; all of them for an index at the end.
    Fine Before(std::int32_t index) const
    {
        Fine above = 0;
        const Node* node = &m_root;
        while (!node->IsLeaf())
        {
            auto child = node->children.begin();
            for (; std::next(child) != node->children.end() && index >= child->sum.count; ++child)
            {
                index -= child->sum.count;
                above += child->sum.height;
            }
            node = child->node.get();
        }
        const std::size_t end = std::min(std::size_t(index), node->heights.size());
        for (std::size_t i = 0; i < end; ++i)
            above += Unpacked(node->heights[i]).height;
        return above;
    }

    /// The paragraph that stands at a distance from the top: one without height never; the first one above all, the last
    /// one below.
    std::int32_t Find(Fine distance) const
    {
        if (distance >= Total())
            return std::max(Count() - 1, 0);
        distance = std::max<Fine>(distance, 0);
        std::int32_t index = 0;
        const Node* node = &m_root;
        while (!node->IsLeaf())
        {
            auto child = node->children.begin();
            for (; distance >= child->sum.height; ++child)
            {
                index += child->sum.count;
                distance -= child->sum.height;
            }
            node = child->node.get();
        }
        for (std::size_t i = 0; distance >= Unpacked(node->heights[i]).height; ++i, ++index)
            distance -= Unpacked(node->heights[i]).height;
        return index;
    }

    void Set(std::int32_t index, ParagraphHeight height) { SetIn(m_root, index, height); }

    /// All heights anew.
    void Assign(std::vector<ParagraphHeight> heights)
    {
        m_root = Node();
        Replace(0, 0, heights);
    }

    /// `heights` in place of the `count` ones from `first` on.
    void Replace(std::int32_t first, std::int32_t count, std::span<const ParagraphHeight> heights)
    {
        assert(first >= 0 && count >= 0 && first + count <= Count());
        if (std::size_t(count) == heights.size())
        {
            for (const ParagraphHeight& height : heights)
                Set(first++, height);
            return;
        }
        ReplaceIn(m_root, first, first + count, heights);
        MendRoot();
    }

    /// How deep the tree is, for tests.
    int Depth() const
    {
        int depth = 0;
        for (const Node* node = &m_root; !node->IsLeaf(); node = node->children.front().node.get())
            ++depth;
        return depth;
    }

private:
    using Packed = std::int64_t;  // twice the height, and one for an estimate

    static Packed PackedOf(ParagraphHeight height) { return height.height * 2 + (height.isEstimate ? 1 : 0); }
    static ParagraphHeight Unpacked(Packed packed) { return {packed >> 1, (packed & 1) != 0}; }

    struct Sum
    {
        Fine height = 0;
        std::int32_t count = 0;
    };

    struct Node;
    struct Child
    {
        Sum sum;
        std::unique_ptr<Node> node;
    };

    /// A leaf holds heights, an inner node holds nodes one level lower.
    struct Node
    {
        std::vector<Packed> heights;
        std::vector<Child> children;

        bool IsLeaf() const { return children.empty(); }
        std::size_t Slots() const { return IsLeaf() ? heights.size() : children.size(); }
    };

    static Sum SumOf(const Node& node)
    {
        Sum sum;
        for (const Child& child : node.children)
        {
            sum.height += child.sum.height;
            sum.count += child.sum.count;
        }
        for (const Packed packed : node.heights)
            sum.height += packed >> 1;
        sum.count += static_cast<std::int32_t>(node.heights.size());
        return sum;
    }

    /// The child that holds `index`, which becomes its index there.
    template <class N>
    static auto& ChildOf(N& node, std::int32_t& index)
    {
        auto child = node.children.begin();
        for (; index >= child->sum.count; ++child)
            index -= child->sum.count;
        return *child;
    }

    static void SetIn(Node& node, std::int32_t index, ParagraphHeight height)
    {
        if (node.IsLeaf())
        {
            node.heights[std::size_t(index)] = PackedOf(height);
            return;
        }
        Child& child = ChildOf(node, index);
        SetIn(*child.node, index, height);
        child.sum = SumOf(*child.node);
    }

    // Replacing leaves a node with too many or too few slots; whoever holds it mends that.

    static void ReplaceIn(Node& node, std::int32_t first, std::int32_t last, std::span<const ParagraphHeight> heights)
    {
        if (node.IsLeaf())
        {
            std::vector<Packed> packed(heights.size());
            std::transform(heights.begin(), heights.end(), packed.begin(), PackedOf);
            node.heights.erase(node.heights.begin() + first, node.heights.begin() + last);
            node.heights.insert(node.heights.begin() + first, packed.begin(), packed.end());
            return;
        }
        bool isPlaced = false;
        std::int32_t before = 0;
        for (Child& child : node.children)
        {
            const std::int32_t end = before + child.sum.count;
            const bool takesHeights = !isPlaced && (first < end || &child == &node.children.back());
            if (takesHeights || (first < end && last > before))
            {
                const std::int32_t from = std::clamp(first, before, end);
                ReplaceIn(*child.node, from - before, std::clamp(last, from, end) - before,
                          takesHeights ? heights : std::span<const ParagraphHeight>());
                child.sum = SumOf(*child.node);
                isPlaced = true;
            }
            before = end;
        }
        MendChildren(node);
    }

    static void MendChildren(Node& node)
    {
        std::vector<Child> mended;
        mended.reserve(node.children.size() + 1);
        for (Child& child : node.children)
        {
            if (child.sum.count > 0)
                Append(mended, std::move(child));
        }
        node.children = std::move(mended);
    }

    /// Puts a child behind others, joined with the one before when either is less than half full, and in pieces when
    /// there is too much in it.
    static void Append(std::vector<Child>& children, Child child)
    {
        if (!children.empty() && (child.node->Slots() * 2 < kFanout || children.back().node->Slots() * 2 < kFanout))
        {
            Node& last = *children.back().node;
            Node& next = *child.node;
            last.heights.insert(last.heights.end(), next.heights.begin(), next.heights.end());
            std::move(next.children.begin(), next.children.end(), std::back_inserter(last.children));
            if (!last.IsLeaf())
                MendChildren(last);
            child.node = std::move(children.back().node);
            children.pop_back();
        }
        Split(children, std::move(child));
    }

    static void Split(std::vector<Child>& children, Child child)
    {
        Node& node = *child.node;
        if (node.Slots() <= kFanout)
        {
            child.sum = SumOf(node);
            children.push_back(std::move(child));
            return;
        }
        const std::size_t slots = node.Slots();
        std::size_t pieces = (slots + kFanout - 1) / kFanout;
        for (std::size_t begin = 0; pieces > 0; --pieces)
        {
            const std::size_t end = begin + (slots - begin + pieces - 1) / pieces;
            auto piece = std::make_unique<Node>();
            if (node.IsLeaf())
                piece->heights.assign(At(node.heights, begin), At(node.heights, end));
            else
                piece->children.assign(std::make_move_iterator(At(node.children, begin)),
                                       std::make_move_iterator(At(node.children, end)));
            const Sum sum = SumOf(*piece);
            children.push_back({sum, std::move(piece)});
            begin = end;
        }
    }

    template <class Items>
    static auto At(Items& items, std::size_t index)
    {
        return items.begin() + static_cast<std::ptrdiff_t>(index);
    }

    void MendRoot()
    {
        while (m_root.Slots() > kFanout)
        {
            Node parent;
            Split(parent.children, {Sum(), std::make_unique<Node>(std::move(m_root))});
            m_root = std::move(parent);
        }
        while (m_root.children.size() == 1)
        {
            const std::unique_ptr<Node> only = std::move(m_root.children.front().node);
            m_root = std::move(*only);
        }
    }  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): it loses sight of what the moves hand on

    Node m_root;
};

using HeightIndex = BasicHeightIndex<64>;

}  // namespace quillmarker
