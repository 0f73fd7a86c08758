#pragma once

#include "output.h"
#include "page_options.h"
#include "result.h"

#include <string>

namespace quillmarker::tool
{

/// What to write, as the command line says it.
struct OutputOptions
{
    std::string format;
    PageOptions pages;
};

/// Lets a command take them.
void AddOutputOptions(CLI::App& command, OutputOptions& options);

/// What they say about a file of this name.
Result<OutputForm> OutputFormOf(const std::string& name, const OutputOptions& options);

}  // namespace quillmarker::tool
