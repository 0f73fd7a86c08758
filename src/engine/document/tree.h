#pragma once

#include "engine/document/tree_node.h"

#include <utility>
#include <vector>

namespace quillmarker
{

/// A persistent sequence of paragraphs: a balanced tree with summaries. Replacing paragraphs makes a new tree in
/// logarithmic time (and in the number of those put in) that shares all other nodes with the old one.
template <int kFanout>
class BasicTree
{
public:
    using Node = TreeNode<kFanout>;
    using NodeRef = typename Node::NodeRef;

    struct Found
    {
        std::int32_t paragraph = 0;
        std::int64_t unitsBefore = 0;
    };

    BasicTree() = default;
    explicit BasicTree(std::span<const ParagraphRef> paragraphs) : m_root(Gathered(Leaves(paragraphs))) {}

    const Node* Root() const { return m_root.Identity(); }
    Summary Total() const { return m_root ? m_root->Total() : Summary{}; }
    std::int32_t Count() const { return Total().paragraphs; }

    /// The paragraph at `index`, which must exist.
    const ParagraphRef& At(std::int32_t index) const
    {
        const Node* node = m_root.Identity();
        while (!node->IsLeaf())
        {
            int i = 0;
            for (; index >= node->ParagraphsOf(i); ++i)
                index -= node->ParagraphsOf(i);
            node = node->NodeAt(i).Identity();
        }
        return node->ParagraphAt(index);
    }

    /// The paragraph that holds unit `units` (its mark included); the last one when there is no such unit.
    Found Find(std::int64_t units) const
    {
        Found found;
        for (const Node* node = m_root.Identity(); node;)
        {
            int i = 0;
            for (; i < node->Count() - 1 && units >= node->UnitsOf(i); ++i)
            {
                units -= node->UnitsOf(i);
                found.unitsBefore += node->UnitsOf(i);
                found.paragraph += node->ParagraphsOf(i);
            }
            node = node->IsLeaf() ? nullptr : node->NodeAt(i).Identity();
        }
        return found;
    }

    /// Units before the paragraph at `index`; all units for an index at the end.
    std::int64_t UnitsBefore(std::int32_t index) const
    {
        if (index >= Count())
            return Total().units;
        std::int64_t units = 0;
        for (const Node* node = m_root.Identity(); node;)
        {
            int i = 0;
            for (; index >= node->ParagraphsOf(i); ++i)
            {
                index -= node->ParagraphsOf(i);
                units += node->UnitsOf(i);
            }
            node = node->IsLeaf() ? nullptr : node->NodeAt(i).Identity();
        }
        return units;
    }

    /// The tree with the paragraphs from `first` up to `last` replaced by `items`.
    BasicTree Replaced(std::int32_t first, std::int32_t last, std::span<const ParagraphRef> items) const
    {
        BasicTree result;
        result.m_root = Gathered(m_root ? Replace(*m_root, first, last, items) : Leaves(items));
        return result;
    }

    /// Calls `visit(paragraph)` from `first` on until it returns false; false if it did.
    template <class Visitor>
    bool Visit(std::int32_t first, Visitor&& visit) const
    {
        return !m_root || first >= Count() || VisitNode(*m_root, std::max(first, 0), visit);
    }

    /// Visits the paragraphs from `first` up to `last`, without looking at those below a node that `takesWhole` returns
    /// true for; it is asked about nodes that hold none but these.
    template <class WholeVisitor, class Visitor>
    void VisitStretch(std::int32_t first, std::int32_t last, WholeVisitor&& takesWhole, Visitor&& visit) const
    {
        if (m_root)
            VisitStretch(*m_root, first, last, takesWhole, visit);
    }

    /// The first row mark of table depth `depth` or less at or behind paragraph `first`; -1 when there is none.
    std::int32_t FindRowMark(std::int32_t first, std::uint16_t depth) const
    {
        return m_root ? FindRowMark(*m_root, first, depth, 0) : -1;
    }

private:
    using Nodes = std::vector<NodeRef>;

    template <class Item, class Make>
    static Nodes Chunked(std::span<const Item> items, Make make)
    {
        Nodes nodes;
        std::size_t pieces = (items.size() + kFanout - 1) / kFanout;
        nodes.reserve(pieces);
        for (std::size_t begin = 0; pieces > 0; --pieces)
        {
            const std::size_t size = (items.size() - begin + pieces - 1) / pieces;
            nodes.push_back(make(items.subspan(begin, size)));
            begin += size;
        }
        return nodes;
    }

    static Nodes Leaves(std::span<const ParagraphRef> items) { return Chunked(items, &Node::Leaf); }
    static Nodes Parents(const Nodes& nodes) { return Chunked(std::span<const NodeRef>(nodes), &Node::Inner); }

    static NodeRef Gathered(Nodes nodes)
    {
        while (nodes.size() > 1)
            nodes = Parents(nodes);
        NodeRef root = nodes.empty() ? NodeRef() : std::move(nodes.front());
        while (root && !root->IsLeaf() && root->Count() == 1)
            root = root->NodeAt(0);
        return root;
    }

    /// One or two nodes, at least half full if both together are, that hold what the two hold.
    static Nodes Merged(const Node& a, const Node& b)
    {
        if (a.IsLeaf())
        {
            std::vector<ParagraphRef> all(a.Paragraphs().begin(), a.Paragraphs().end());
            all.insert(all.end(), b.Paragraphs().begin(), b.Paragraphs().end());
            return Leaves(all);
        }
        Nodes all(a.Nodes().begin(), a.Nodes().end());
        all.insert(all.end(), b.Nodes().begin(), b.Nodes().end());
        MendThinNodes(all);
        return Parents(all);
    }

    /// Joins nodes less than half full with a neighbour.
    static void MendThinNodes(Nodes& nodes)
    {
        for (std::size_t i = 0; i + 1 < nodes.size();)
        {
            if (nodes[i]->Count() * 2 >= kFanout && nodes[i + 1]->Count() * 2 >= kFanout)
            {
                ++i;
                continue;
            }
            Nodes merged = Merged(*nodes[i], *nodes[i + 1]);
            if (merged.size() == 2)
            {
                nodes[i] = std::move(merged[0]);
                nodes[i + 1] = std::move(merged[1]);
                ++i;
                continue;
            }
            nodes[i] = std::move(merged[0]);
            nodes.erase(nodes.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        }
    }

    static Nodes ReplaceInLeaf(const Node& leaf, std::int32_t first, std::int32_t last,
                               std::span<const ParagraphRef> items)
    {
        const auto old = leaf.Paragraphs();
        std::vector<ParagraphRef> all;
        all.reserve(old.size() + items.size());
        all.insert(all.end(), old.begin(), old.begin() + first);
        all.insert(all.end(), items.begin(), items.end());
        all.insert(all.end(), old.begin() + last, old.end());
        return Leaves(all);
    }

    static Nodes Replace(const Node& node, std::int32_t first, std::int32_t last, std::span<const ParagraphRef> items)
    {
        if (node.IsLeaf())
            return ReplaceInLeaf(node, first, last, items);
        Nodes children;
        children.reserve(kFanout + 2);
        bool placed = false;
        for (int i = 0; i < node.Count(); ++i)
        {
            const std::int32_t count = node.ParagraphsOf(i);
            const bool isLastChild = i + 1 == node.Count();
            const bool takesItems = !placed && (first < count || (first <= count && isLastChild));
            const bool loses = first < count && last > 0;
            if (takesItems || (loses && placed))
            {
                const auto from = std::max(first, 0);
                Nodes mended = Replace(*node.NodeAt(i), from, std::clamp(last, from, count),
                                       takesItems ? items : std::span<const ParagraphRef>());
                children.insert(children.end(), mended.begin(), mended.end());
                placed = true;
            }
            else
                children.push_back(node.NodeAt(i));
            first -= count;
            last -= count;
        }
        MendThinNodes(children);
        return Parents(children);
    }

    template <class Visitor>
    static bool VisitNode(const Node& node, std::int32_t first, Visitor& visit)
    {
        if (node.IsLeaf())
        {
            for (int i = first; i < node.Count(); ++i)
            {
                if (!visit(node.ParagraphAt(i)))
                    return false;
            }
            return true;
        }
        for (int i = 0; i < node.Count(); ++i)
        {
            const std::int32_t count = node.ParagraphsOf(i);
            if (first < count && !VisitNode(*node.NodeAt(i), first, visit))
                return false;
            first = std::max(first - count, 0);
        }
        return true;
    }

    template <class WholeVisitor, class Visitor>
    static void VisitStretch(const Node& node, std::int32_t first, std::int32_t last, WholeVisitor& takesWhole,
                             Visitor& visit)
    {
        if (first >= last || last <= 0 || first >= node.Total().paragraphs)
            return;
        if (first <= 0 && last >= node.Total().paragraphs && takesWhole(node))
            return;
        for (int i = 0; i < node.Count(); ++i)
        {
            const std::int32_t count = node.ParagraphsOf(i);
            if (!node.IsLeaf())
                VisitStretch(*node.NodeAt(i), first, last, takesWhole, visit);
            else if (first <= 0 && last > 0)
                visit(node.ParagraphAt(i));
            first -= count;
            last -= count;
        }
    }

    static std::int32_t FindRowMark(const Node& node, std::int32_t first, std::uint16_t depth, std::int32_t before)
    {
        if (node.Total().shallowestRow > depth)
            return -1;
        for (int i = 0; i < node.Count(); ++i)
        {
            const std::int32_t count = node.ParagraphsOf(i);
            if (first < count)
            {
                if (!node.IsLeaf())
                {
                    const std::int32_t found = FindRowMark(*node.NodeAt(i), first, depth, before);
                    if (found >= 0)
                        return found;
                }
                else if (SummaryOf(*node.ParagraphAt(i)).shallowestRow <= depth)
                    return before;
            }
            before += count;
            first = std::max(first - count, 0);
        }
        return -1;
    }

    NodeRef m_root;
};

using ParagraphTree = BasicTree<32>;

/// What a Body holds.
struct BodyContent
{
    ParagraphTree tree;
};

}  // namespace quillmarker
