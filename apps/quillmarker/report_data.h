#pragma once

#include "result.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmarker::tool
{

enum class ItemKind : std::uint8_t { Text, Rtf, File, Hidden };

/// One thing to insert, in UTF-8: text, RTF, the name of a file, or text that is to be hidden.
struct Item
{
    ItemKind kind = ItemKind::Text;
    std::string value;

    bool operator==(const Item&) const = default;
};

/// What stands in the data for a marker: the items that take its place, one behind the other. None: it goes away.
struct Marker
{
    std::string name;
    std::vector<Item> items;

    bool operator==(const Marker&) const = default;
};

/// The markers in the order of the data.
using ReportData = std::vector<Marker>;

/// Reads one JSON object. Numbers become text as they are written, true and false too. A failure names `source`, the
/// line (the object's first one being `firstLine`) and the column.
Result<ReportData> ParseReportData(std::string_view json, const std::string& source, std::int64_t firstLine = 1);

}  // namespace quillmarker::tool
