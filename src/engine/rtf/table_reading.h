#pragma once

#include <quillmarker/paragraph_format.h>
#include <quillmarker/shared_value.h>
#include <quillmarker/table_row.h>

#include <algorithm>
#include <string>

namespace quillmarker
{

/// The row definition in force. A row's properties stand before its cells, behind them or both, and hold until the next
/// \trowd, also for rows that bring none.
struct TableReading
{
    TableRow row;
    TableCell cell;

    void Reset() { *this = {}; }

    void EndCell(Twips right)
    {
        cell.right = right;
        if (row.cells.size() < kMaxCells)
            row.cells.push_back(std::move(cell));
        cell = {};
    }

    /// Ends a row in which `ended` cells ended. A row may describe more of them than it has, but not all rows many more:
    /// what describes nothing is left out when it outgrows `budget`, since a short word would make a writer repeat it.
    Shared<TableRow> Finished(std::size_t ended, std::size_t& budget)
    {
        const std::size_t excess = row.cells.size() - std::min(ended, row.cells.size());
        if (excess <= budget)
        {
            budget -= excess;
            return Latest(row);
        }
        std::vector<TableCell> described = std::move(row.cells);
        TableRow cut = row;
        cut.cells.assign(described.begin(), described.begin() + std::ptrdiff_t(std::min(ended, described.size())));
        row.cells = std::move(described);
        return Latest(cut);
    }

    /// A row as a value; equal rows that follow one another share one.
    Shared<TableRow> Latest(const TableRow& finished)
    {
        if (!latest || !(*latest == finished))
            latest = Shared(finished);
        return latest;
    }

    Shared<TableRow> latest;
};

enum class BorderOwner : std::uint8_t { None, Paragraph, Row, Cell };

/// Which border the words for style, width and colour speak of.
struct BorderReading
{
    BorderOwner owner = BorderOwner::None;
    BorderSide side = BorderSide::Top;
    bool isBox = false;  // all four outer sides
};

}  // namespace quillmarker
