#include "batch.h"
#include "command.h"
#include "files.h"
#include "fill.h"
#include "output_name.h"
#include "output_options.h"
#include "standard_streams.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

namespace quillmarker::tool
{
namespace
{

namespace fs = std::filesystem;

constexpr const char* kData =
    R"(DATA.json is one object. It maps each marker, as it stands in the template, to what takes its place:
  "text"              text; a line end in it is a paragraph's end. Numbers and true, false are text as written
  {"text": "..."}     the same
  {"rtf": "{\\rtf1..."}  a piece of RTF
  {"file": "x.rtf"}   what a file holds, RTF or (.txt) text; relative to the data's folder
  {"hidden": "..."}   text that is there but not shown
  [..., ...]          all of these, one behind the other; an empty list takes the marker away

A marker is filled everywhere it stands in the text, whatever its case; text takes the marker's format.
Markers are filled in the order of the data. So order matters when a value holds another marker: that one is
filled too if it comes later.

With --batch each line of DATA.jsonl is such an object and gives a report. In the output's name a key in braces
stands for that key's text or number in the line, and {line} for the number of the line.

)";

constexpr const char* kCodesAndExamples = R"(

Exit codes: 0 done; 1 something failed; 2 bad usage; 3 all was written, but a marker is not in the template.

Examples:
  quillmarker build template.rtf data.json -o report.rtf
  quillmarker build template.rtf data.json -o report.pdf --paper A4
  quillmarker build template.rtf - -o - --format txt < data.json
  quillmarker build --batch patients.jsonl template.rtf -o 'out/{id}.rtf')";

constexpr const char* kCommand = "quillmarker build";

struct Options
{
    std::string source;
    std::string data;
    std::string batch;
    std::string output;
    OutputOptions form;
    bool allowMissing = false;
    // At least four: a report waits for the disk too.
    unsigned jobs = std::max(std::thread::hardware_concurrency(), 4U);
};

int Fail(const std::string& message)
{
    Complain(message);
    return kFailed;
}

fs::path FolderOf(const std::string& data)
{
    return data == kStandardStream ? fs::path() : fs::path(data).parent_path();
}

/// Empty when the arguments go together.
std::string Contradiction(const Options& options)
{
    if (options.batch.empty() && options.data.empty())
        return "the data is missing: name a DATA.json behind the template, or say --batch DATA.jsonl";
    if (!options.batch.empty() && !options.data.empty())
        return "there are two data files: \"" + options.data + "\" cannot stand beside --batch";
    if (options.source == kStandardStream && (options.data == kStandardStream || options.batch == kStandardStream))
        return "template and data cannot both be standard input: name a file for one of them";
    if (!options.batch.empty() && options.output == kStandardStream)
        return "a batch cannot go to standard output: name files, as in -o 'out/{line}.rtf'";
    return {};
}

int ReportMissing(const std::vector<std::string>& missing, const Options& options)
{
    if (options.allowMissing || missing.empty())
        return kDone;
    for (const std::string& marker : missing)
        Complain(Shown(options.source) + ": marker \"" + marker + "\" is not in the template");
    return kMissing;
}

int BuildOne(const Options& options, const Document& source, const OutputForm& form)
{
    const auto json = ReadInput(options.data);
    if (!json)
        return Fail(json.Message());
    const auto data = ParseReportData(*json, Shown(options.data));
    if (!data)
        return Fail(data.Message());
    Report report;
    report.Box().OpenValue(source);
    const Filling filling = Fill(report, *data, FolderOf(options.data));
    if (!filling.error.empty())
        return Fail(Shown(options.data) + ": " + filling.error);
    const int code = WriteOnlyOutput(report.Box().Value(), options.output, form);
    return code == kDone ? ReportMissing(filling.missing, options) : code;
}

int Build(const Options& options)
{
    if (const std::string contradiction = Contradiction(options); !contradiction.empty())
        return RefuseUsage(kCommand, contradiction);
    const auto form = OutputFormOf(options.output, options.form);
    if (!form)
        return RefuseUsage(kCommand, form.Message());
    const bool isBatch = !options.batch.empty();
    if (isBatch && form->kind == OutputKind::Png && !form->pages.page)
        return RefuseUsage(kCommand, "a batch makes an image of one page of each report: say --page and its number");
    const auto name = isBatch ? OutputName::Parse(options.output) : Result<OutputName>(OutputName());
    if (!name)
        return RefuseUsage(kCommand, name.Message());
    const auto source = ReadDocument(options.source);
    if (!source)
        return Fail(source.Message());
    if (!isBatch)
        return BuildOne(options, *source, *form);
    const Batch batch{options.batch, FolderOf(options.batch), *name, *form, options.jobs, options.allowMissing};
    return RunBatch(batch, *source);
}

}  // namespace

Action AddBuildCommand(CLI::App& command)
{
    const auto options = std::make_shared<Options>();
    command.add_option("TEMPLATE", options->source, "the RTF file with the markers; - is standard input")->required();
    command.add_option("DATA", options->data, "the JSON file with what takes their place; - is standard input");
    command.add_option("-o,--output", options->output, "the report: .rtf, .txt, .pdf or .png; - is standard output")
        ->required()
        ->type_name("OUT");
    AddOutputOptions(command, options->form);
    command.add_flag("--allow-missing", options->allowMissing, "do not mind markers that are not in the template");
    command.add_option("--batch", options->batch, "make a report of each line of a file; - is standard input")
        ->type_name("DATA.jsonl");
    command
        .add_option("-j,--jobs", options->jobs,
                    "so many reports of a batch side by side; else one a processor, at least four")
        ->check(CLI::Range(1U, 1024U).description(""))
        ->type_name("N");
    command.footer(std::string(kData) + kLengthsHelp + kCodesAndExamples);
    return [options] { return Build(*options); };
}

}  // namespace quillmarker::tool
