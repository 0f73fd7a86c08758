#pragma once

#include <quillmarker/paragraph_format.h>

#include <cstdint>
#include <string>
#include <vector>

namespace quillmarker
{

enum class CellMerge : std::uint8_t { None, First, Continued };
enum class CellAlign : std::uint8_t { Top, Centre, Bottom };

struct TableCell
{
    Twips right;  // the cell's right edge, from the same origin as the row's left edge (\cellx)
    CellMerge vertical = CellMerge::None;
    CellMerge horizontal = CellMerge::None;
    CellAlign align = CellAlign::Top;
    Borders borders;
    Shading shading;
    std::string kept;  // further control words, saved again

    bool operator==(const TableCell&) const = default;
};

enum class RowAlign : std::uint8_t { Left, Centre, Right };

/// The properties of a table row, carried by the row's mark.
struct TableRow
{
    Twips left;    // \trleft
    Twips gap;     // half the space between the cells' text (\trgaph)
    Twips height;  // 0 as needed, positive at least, negative exactly (\trrh)
    RowAlign align = RowAlign::Left;
    bool header = false;
    bool keepTogether = false;
    bool rightToLeft = false;
    Borders borders;
    std::string kept;
    std::vector<TableCell> cells;

    bool operator==(const TableRow&) const = default;
};

/// As many cells as a row keeps; further ones are dropped.
constexpr std::size_t kMaxCells = 256;

}  // namespace quillmarker
