#pragma once

#include "byte_reader.h"

#include <cstddef>
#include <cstdint>

namespace quillmarker::metafile
{

/// What plays one record: a row of a table that is sorted by number. A record shorter than its row says is damaged and not
/// played.
template <class Playing>
struct RecordRow
{
    std::uint32_t number;
    std::size_t leastSize;  // of what follows the record's size and number, in bytes
    void (*play)(Playing& playing, ByteReader& record);
};

template <class Rows>
constexpr bool AreSorted(const Rows& rows)
{
    for (std::size_t i = 1; i < rows.size(); ++i)
    {
        if (rows[i - 1].number >= rows[i].number)
            return false;
    }
    return true;
}

/// The row of a number; null when the record is not played.
template <class Rows>
auto RowOf(const Rows& rows, std::uint32_t number) -> decltype(rows.data())
{
    std::size_t low = 0;
    std::size_t high = rows.size();
    while (low < high)
    {
        const std::size_t middle = (low + high) / 2;
        if (rows[middle].number < number)
            low = middle + 1;
        else
            high = middle;
    }
    return low < rows.size() && rows[low].number == number ? rows.data() + low : nullptr;
}

}  // namespace quillmarker::metafile
