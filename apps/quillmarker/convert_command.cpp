#include "command.h"
#include "files.h"
#include "output_options.h"
#include "standard_streams.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace quillmarker::tool
{
namespace
{

constexpr const char* kReading = R"(Reads leniently; writes plain 7-bit RTF, UTF-8 text, or pages as PDF or PNG.

)";

constexpr const char* kExamples = R"(

Examples:
  quillmarker convert old.rtf clean.rtf
  quillmarker convert report.rtf report.pdf
  quillmarker convert --paper A4 --margins 2cm report.rtf report.pdf
  quillmarker convert --page all --dpi 150 report.rtf report.png)";

struct Options
{
    std::string input;
    std::string output;
    OutputOptions form;
};

int Convert(const Options& options)
{
    const auto form = OutputFormOf(options.output, options.form);
    if (!form)
        return RefuseUsage("quillmarker convert", form.Message());
    const auto document = ReadDocument(options.input);
    if (document)
        return WriteOnlyOutput(*document, options.output, *form);
    Complain(document.Message());
    return kFailed;
}

}  // namespace

Action AddConvertCommand(CLI::App& command)
{
    const auto options = std::make_shared<Options>();
    command.add_option("IN", options->input, "the RTF or text file; - is standard input")->required();
    command.add_option("OUT", options->output, "what to write: .rtf, .txt, .pdf or .png; - is standard output")
        ->required();
    AddOutputOptions(command, options->form);
    command.footer(std::string(kReading) + kLengthsHelp + kExamples);
    return [options] { return Convert(*options); };
}

}  // namespace quillmarker::tool
