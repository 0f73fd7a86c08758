#pragma once

#include "engine/document/few_ids.h"

#include <quillmarker/paragraph.h>
#include <quillmarker/ref.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

namespace quillmarker
{

constexpr std::uint16_t kNoRowMark = 0xFFFF;

/// What a tree knows of a stretch of paragraphs without visiting it.
struct Summary
{
    std::int64_t units = 0;
    std::int32_t paragraphs = 0;
    std::uint16_t shallowestRow = kNoRowMark;  // smallest table depth of a row mark

    Summary& operator+=(const Summary& other)
    {
        units += other.units;
        paragraphs += other.paragraphs;
        shallowestRow = std::min(shallowestRow, other.shallowestRow);
        return *this;
    }
    bool operator==(const Summary&) const = default;
};

inline Summary SummaryOf(const Paragraph& paragraph)
{
    const ParagraphMark& mark = paragraph.Ending();
    return {paragraph.Length(), 1, mark.kind == Mark::Row ? mark.tableDepth : kNoRowMark};
}

/// The formats of a stretch of paragraphs, their marks' included.
struct FormatsIn
{
    FewIds<CharFormatId> chars;
    FewIds<ParagraphFormatId> paragraphs;

    void Add(const Paragraph& paragraph)
    {
        for (const Run& run : paragraph.Runs())
            chars.Add(run.format);
        chars.Add(paragraph.Ending().charFormat);
        paragraphs.Add(paragraph.Ending().format);
    }
    void Add(const FormatsIn& others)
    {
        chars.Add(others.chars);
        paragraphs.Add(others.paragraphs);
    }
};

/// A node of the tree: a leaf holds paragraphs, an inner node holds nodes one level lower. Immutable once shared.
template <int kFanout>
class TreeNode
{
public:
    using NodeRef = Ref<const TreeNode>;

    static NodeRef Leaf(std::span<const ParagraphRef> paragraphs)
    {
        auto* node = new TreeNode(0);
        for (const ParagraphRef& paragraph : paragraphs)
        {
            node->Note(SummaryOf(*paragraph));
            node->m_formats.Add(*paragraph);
            node->m_paragraphs[node->m_count++] = paragraph;
        }
        return NodeRef::Adopt(node);
    }

    static NodeRef Inner(std::span<const NodeRef> nodes)
    {
        auto* node = new TreeNode(nodes.front()->Height() + 1);
        for (const NodeRef& child : nodes)
        {
            node->Note(child->Total());
            node->m_formats.Add(child->Formats());
            node->m_inner.counts[node->m_count] = child->Total().paragraphs;
            node->m_inner.nodes[node->m_count++] = child;
        }
        return NodeRef::Adopt(node);
    }

    bool IsLeaf() const { return m_height == 0; }
    int Height() const { return m_height; }
    int Count() const { return m_count; }
    const Summary& Total() const { return m_total; }
    const FormatsIn& Formats() const { return m_formats; }
    const ParagraphRef& ParagraphAt(int i) const { return m_paragraphs[static_cast<std::size_t>(i)]; }
    const NodeRef& NodeAt(int i) const { return m_inner.nodes[static_cast<std::size_t>(i)]; }
    std::span<const ParagraphRef> Paragraphs() const { return {m_paragraphs.data(), std::size_t(m_count)}; }
    std::span<const NodeRef> Nodes() const { return {m_inner.nodes.data(), std::size_t(m_count)}; }

    /// Kept beside the children, so that finding a place touches one child a level and not all.
    std::int64_t UnitsOf(int i) const { return m_units[static_cast<std::size_t>(i)]; }
    std::int32_t ParagraphsOf(int i) const { return IsLeaf() ? 1 : m_inner.counts[static_cast<std::size_t>(i)]; }

    void AddRef() const { m_references.Add(); }
    void Release() const
    {
        if (m_references.DropWasLast())
            delete this;
    }

private:
    explicit TreeNode(int height) : m_height(static_cast<std::uint8_t>(height))
    {
        if (IsLeaf())
            new (&m_paragraphs) LeafPart();
        else
            new (&m_inner) InnerPart();
    }
    ~TreeNode()
    {
        if (IsLeaf())
            m_paragraphs.~LeafPart();
        else
            m_inner.~InnerPart();
    }

    void Note(const Summary& child)
    {
        m_units[m_count] = static_cast<std::uint32_t>(child.units);
        m_total += child;
    }

    using LeafPart = std::array<ParagraphRef, kFanout>;
    struct InnerPart
    {
        std::array<NodeRef, kFanout> nodes;
        std::array<std::int32_t, kFanout> counts{};
    };

    RefCount m_references;
    std::uint8_t m_height = 0;
    std::uint8_t m_count = 0;
    Summary m_total;
    FormatsIn m_formats;
    std::array<std::uint32_t, kFanout> m_units;
    union
    {
        LeafPart m_paragraphs;
        InnerPart m_inner;
    };
};

}  // namespace quillmarker
