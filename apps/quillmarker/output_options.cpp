#include "output_options.h"

#include "files.h"

#include <CLI/CLI.hpp>

namespace quillmarker::tool
{

void AddOutputOptions(CLI::App& command, OutputOptions& options)
{
    std::string names;
    for (const std::string& name : FormatNames())
        names += (names.empty() ? "" : "|") + name;
    command.add_option("--format", options.format, "what to write, whatever the output is called")
        ->check(CLI::IsMember(FormatNames()).description(""))
        ->type_name(names);
    AddPageOptions(command, options.pages);
}

Result<OutputForm> OutputFormOf(const std::string& name, const OutputOptions& options)
{
    const auto kind = OutputKindOf(name, options.format);
    if (!kind)
        return Failure{kind.Message()};
    const auto pages = ParsePageOptions(options.pages, *kind);
    if (!pages)
        return Failure{pages.Message()};
    if (*kind == OutputKind::Png && !pages->page && name == kStandardStream)
        return Failure{"only one page can go to standard output as PNG: say --page and its number"};
    return OutputForm{*kind, *pages};
}

}  // namespace quillmarker::tool
