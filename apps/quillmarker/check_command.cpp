#include "command.h"
#include "files.h"
#include "graphics.h"
#include "page_writing.h"
#include "round_trip.h"
#include "standard_streams.h"

#include <quillmarker/pages/paged_document.h>
#include <quillmarker/rtf.h>

#include <CLI/CLI.hpp>

#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

namespace quillmarker::tool
{
namespace
{

struct Options
{
    std::vector<std::string> inputs;
    bool quiet = false;
    bool pages = false;
};

double SecondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// ": 1234 bytes, 0.012 s: "
std::string Measures(std::size_t bytes, double seconds)
{
    char text[64];
    std::snprintf(text, sizeof text, ": %zu bytes, %.3f s: ", bytes, seconds);
    return text;
}

/// What is wrong with the pages of a document, as a line; empty when nothing is.
std::string PagesFault(const Document& document)
{
    constexpr double kDotsPerInch = 72;
    PagedDocument pages(document);
    for (int page = 2; pages.HasPage(page); ++page)
        if (pages.StartOfPage(page) <= pages.StartOfPage(page - 1))
            return "page " + std::to_string(page) + " does not begin behind the one before\n";
    if (ToPdf(pages).empty())
        return "its pages cannot be written as PDF\n";
    const bool canBeImage = CanBeImage(pages.Setup().paper, kDotsPerInch);
    return canBeImage && ToPng(pages, 1, kDotsPerInch).empty() ? "its first page cannot be made an image\n" : "";
}

class Checker
{
public:
    explicit Checker(const Options& options) : m_options(options) {}

    void Check(const std::string& name)
    {
        ++m_files;
        const auto bytes = ReadInput(name);
        if (!bytes)
        {
            ++m_unreadable;
            Complain(bytes.Message());
            return;
        }
        m_bytes += bytes->size();
        const auto start = std::chrono::steady_clock::now();
        std::string difference =
            RoundTripDifference(*bytes, [](const Document& document) { return WriteRtf(document); });
        if (m_options.pages)
            difference += PagesFault(ReadRtf(*bytes));
        const std::string measures = Measures(bytes->size(), SecondsSince(start));
        if (!difference.empty())
            ++m_different;
        if (!difference.empty() || !m_options.quiet)
            Print(Shown(name) + measures + (difference.empty() ? "ok\n" : difference));
    }

    int Finish() const
    {
        Print(std::to_string(m_files) + " files" + Measures(m_bytes, SecondsSince(m_start)) +
              std::to_string(m_files - m_different - m_unreadable) + " ok, " + std::to_string(m_different) +
              " differ, " + std::to_string(m_unreadable) + " could not be read\n");
        return m_different + m_unreadable > 0 ? kFailed : kDone;
    }

private:
    const Options& m_options;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::size_t m_files = 0;
    std::size_t m_different = 0;
    std::size_t m_unreadable = 0;
    std::size_t m_bytes = 0;
};

int CheckAll(const Options& options)
{
    const auto graphics = options.pages ? std::make_unique<Graphics>() : nullptr;
    Checker checker(options);
    for (const std::string& name : options.inputs)
        checker.Check(name);
    return checker.Finish();
}

}  // namespace

Action AddCheckCommand(CLI::App& command)
{
    const auto options = std::make_shared<Options>();
    command.add_option("FILE", options->inputs, "RTF files; - is standard input")->required();
    command.add_flag("-q,--quiet", options->quiet, "print only what fails, and the summary");
    command.add_flag("--pages", options->pages, "put each on pages too, as PDF and (the first one) as an image");
    command.footer(
        "\nReads each file, writes it (to memory), reads that and compares; then writes again and compares the "
        "bytes.\nExit code 1 if anything differs or cannot be read.\n\n"
        "Example:\n  quillmarker check -q archive/*.rtf");
    return [options] { return CheckAll(*options); };
}

}  // namespace quillmarker::tool
