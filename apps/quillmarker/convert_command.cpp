#include "command.h"
#include "files.h"
#include "standard_streams.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmarker::tool
{
namespace
{

struct Options
{
    std::string input;
    std::string output;
    std::string format;
};

int Convert(const Options& options)
{
    const auto kind = OutputKind(options.output, options.format);
    if (!kind)
        return RefuseUsage("quillmarker convert", kind.Message());
    const auto document = ReadDocument(options.input);
    const auto written = document ? WriteDocument(*document, options.output, *kind) : Failure{document.Message()};
    if (written)
        return kDone;
    Complain(written.Message());
    return kFailed;
}

}  // namespace

Action AddConvertCommand(CLI::App& command)
{
    const auto options = std::make_shared<Options>();
    command.add_option("IN", options->input, "the RTF or text file; - is standard input")->required();
    command.add_option("OUT", options->output, "what to write: .rtf or .txt; - is standard output")->required();
    command.add_option("--format", options->format, "what to write, whatever the output is called")
        ->check(CLI::IsMember({"rtf", "txt"}).description(""))
        ->type_name("rtf|txt");
    command.footer("Reads leniently, writes plain 7-bit RTF, or UTF-8 text.\n\n"
                   "Examples:\n  quillmarker convert old.rtf clean.rtf\n  quillmarker convert report.rtf report.txt");
    return [options] { return Convert(*options); };
}

}  // namespace quillmarker::tool
