#pragma once

#include "output.h"
#include "output_name.h"

#include <quillmarker/document.h>

#include <filesystem>
#include <string>

namespace quillmarker::tool
{

/// A report for each line of a data file.
struct Batch
{
    std::string data;              // the name of the file, or that of standard input
    std::filesystem::path folder;  // names of files in the data are relative to it
    OutputName output;
    OutputForm form;
    unsigned jobs = 1;  // as many reports are made side by side
    bool allowMissing = false;
};

/// Makes the reports. A line that is bad is told on standard error, and the others go on. The exit code.
int RunBatch(const Batch& batch, const Document& source);

}  // namespace quillmarker::tool
