#pragma once

#include "report_data.h"

#include <quillmarker/report.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quillmarker::tool
{

/// What came of filling a report.
struct Filling
{
    std::vector<std::string> missing;  // the markers that stand nowhere in the report
    std::string error;                 // not empty: a value could not be inserted, and filling ended there
};

/// Puts the data's values in place of the markers: marker after marker in the data's order, each everywhere it stands,
/// from the report's start on, case ignored. A value that holds its own marker is not searched again. Names of files
/// are relative to `folder`.
Filling Fill(Report& report, const ReportData& data, const std::filesystem::path& folder);

}  // namespace quillmarker::tool
