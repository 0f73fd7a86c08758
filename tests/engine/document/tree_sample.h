#pragma once

#include "engine/document/paragraph_builder.h"
#include "engine/document/tree.h"
#include "support/random_document.h"

#include <vector>

namespace quillmarker
{

// So small a fan-out that a few hundred paragraphs make a tree of many levels.
constexpr int kTinyFanout = 4;
using TinyTree = BasicTree<kTinyFanout>;
using Paragraphs = std::vector<ParagraphRef>;

inline ParagraphRef RandomParagraph(std::mt19937& random)
{
    ParagraphMark mark;
    mark.kind = static_cast<Mark>(Below(random, 3));
    mark.tableDepth = static_cast<std::uint16_t>(mark.kind == Mark::Break ? 0 : 1 + Below(random, 3));
    ParagraphBuilder builder;
    builder.Append(RandomText(random, u"ab", Below(random, 5)), {});
    return builder.Finish(mark);
}

inline Paragraphs RandomParagraphs(std::mt19937& random, std::int32_t count)
{
    Paragraphs all;
    for (; count > 0; --count)
        all.push_back(RandomParagraph(random));
    return all;
}

inline Paragraphs Flat(const TinyTree& tree)
{
    Paragraphs all;
    tree.Visit(0, [&](const ParagraphRef& paragraph) {
        all.push_back(paragraph);
        return true;
    });
    return all;
}

// What a tree does, done to a vector.
inline Paragraphs Replaced(Paragraphs all, std::int32_t first, std::int32_t last, const Paragraphs& items)
{
    all.erase(all.begin() + first, all.begin() + last);
    all.insert(all.begin() + first, items.begin(), items.end());
    return all;
}

}  // namespace quillmarker
