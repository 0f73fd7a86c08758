#include "command.h"
#include "files.h"
#include "standard_streams.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmarker::tool
{
namespace
{

int PrintDump(const std::string& input)
{
    const auto document = ReadDocument(input);
    if (!document)
    {
        Complain(document.Message());
        return kFailed;
    }
    Print(Dump(*document));
    return kDone;
}

}  // namespace

Action AddDumpCommand(CLI::App& command)
{
    const auto input = std::make_shared<std::string>();
    command.add_option("IN", *input, "the RTF file; - is standard input")->required();
    command.footer(
        "\nShows paragraphs, runs, formats and objects as they were read. For people: its form may change.\n\n"
        "Example:\n  diff <(quillmarker dump old.rtf) <(quillmarker dump new.rtf)");
    return [input] { return PrintDump(*input); };
}

}  // namespace quillmarker::tool
