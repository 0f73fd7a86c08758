#pragma once

#include "engine/layout/document_flow.h"

#include <quillmarker/position.h>

#include <QRegion>

#include <cstdint>
#include <vector>

namespace quillmarker
{

/// A line as it stands in a view, and a number that stands for what it looks like.
struct ShownLine
{
    std::uint64_t look = 0;
    int top = 0;  // pixels, with the paragraph's space before and after
    int bottom = 0;
    /// What of it is selected, in units of the paragraph.
    std::uint32_t selectedFrom = 0;
    std::uint32_t selectedTo = 0;

    bool operator==(const ShownLine&) const = default;
};

/// What a view shows, line by line. Comparing what it shows with what it showed says what is to be painted.
class ShownLines
{
public:
    void Add(const ShownLine& line) { m_lines.push_back(line); }
    void Clear() { m_lines.clear(); }
    void Scroll(int pixels);
    const std::vector<ShownLine>& All() const { return m_lines; }

    /// The stretches of a view `width` wide where the two differ.
    QRegion DifferenceFrom(const ShownLines& before, int width) const;

private:
    std::vector<ShownLine> m_lines;  // from top to bottom
};

/// A number for the look of a line: equal for lines that look the same.
std::uint64_t LookOf(const ParagraphLayout& layout, std::uint32_t index);

}  // namespace quillmarker
