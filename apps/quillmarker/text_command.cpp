#include "command.h"
#include "files.h"
#include "plain_text.h"
#include "standard_streams.h"

#include <quillmarker/rtf.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmarker::tool
{
namespace
{

struct Options
{
    std::string input;
    bool visible = false;
    bool numbers = false;
};

int PrintText(const Options& options)
{
    const auto bytes = ReadInput(options.input);
    if (!bytes)
    {
        Complain(bytes.Message());
        return kFailed;
    }
    TextMaker text(options.visible ? HiddenText::LeftOut : HiddenText::Kept, Print,
                   options.numbers ? ListNumbers::Shown : ListNumbers::LeftOut);
    VisitRtf(*bytes, [&text](const Paragraph& paragraph, const FormatTable& formats) {
        text.Add(paragraph, formats);
        return CanPrint();
    });
    text.Finish();
    return kDone;
}

}  // namespace

Action AddTextCommand(CLI::App& command)
{
    const auto options = std::make_shared<Options>();
    command.add_option("IN", options->input, "the RTF file; - is standard input")->required();
    command.add_flag("--visible", options->visible, "leave hidden text out");
    command.add_flag("--numbers", options->numbers,
                     "put the numbers and bullets of lists in front of their paragraphs");
    command.footer("The text is UTF-8. Lines end with LF, cells of a table with TAB, pages with FF.\n\n"
                   "Example:\n  quillmarker text report.rtf | less");
    return [options] { return PrintText(*options); };
}

}  // namespace quillmarker::tool
