#pragma once

#include "line_geometry.h"

#include <vector>

namespace quillmarker
{

/// A stretch of a line that is set as one: text of one font and direction, a tab, an object.
struct Piece
{
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    const Segment* segment = nullptr;
    const ShapedPart* part = nullptr;  // of text that was shaped
    TabLeader leader = TabLeader::None;
    bool isHyphen = false;  // the hyphen of a soft hyphen at the line's end
    std::uint8_t level = 0;
    Fine x = 0;  // left edge, from the paragraph's left edge
    Fine width = 0;

    bool IsRightToLeft() const { return (level & 1) != 0; }
};

/// A line cut into pieces, from left to right, with the final advance of each unit: tabs resolved, blanks stretched.
/// Made when a line is painted or pointed at; lines themselves keep only their ends.
class LinePieces
{
public:
    LinePieces(const ParagraphLayout& layout, std::uint32_t line);

    const std::vector<Piece>& Pieces() const { return m_pieces; }
    /// The final advance of a unit of the line.
    Fine Advance(std::uint32_t offset) const { return m_advances[offset - m_begin]; }
    /// The left edge of a unit, or the right one where text runs from right to left: where a caret before it stands.
    Fine Edge(const Piece& piece, std::uint32_t offset) const;
    /// The first unit that is a blank at the line's end, or its break.
    std::uint32_t TextEnd() const { return m_measure.textEnd; }
    const LineRoom& Room() const { return m_room; }

private:
    void ResolveTabs();
    void StretchBlanks();
    void CutLogical();
    void CutText(const Segment& segment, std::uint32_t begin, std::uint32_t end);
    void AddPiece(Piece piece);
    void PlaceVisually();

    const ParagraphLayout& m_layout;
    const ParagraphShapes& m_shapes;
    const Line& m_line;
    std::uint32_t m_begin;
    std::uint32_t m_end;
    LineRoom m_room;
    LineMeasure m_measure;
    std::vector<Fine> m_advances;
    std::vector<Piece> m_pieces;
};

}  // namespace quillmarker
