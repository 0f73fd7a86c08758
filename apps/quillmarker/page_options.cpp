#include "page_options.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <cmath>
#include <vector>

namespace quillmarker::tool
{
namespace
{

struct Unit
{
    std::string_view name;
    double twips;
};

constexpr Unit kUnits[] = {{"mm", 1440 / 25.4}, {"cm", 1440 / 2.54}, {"in", 1440}, {"pt", 20}, {"tw", 1}};

constexpr double kLongest = 1440 * 1000;
constexpr int kLeastDotsPerInch = 1;
constexpr int kMostDotsPerInch = 2400;
const std::string kAllPages = "all";

template <class Number>
std::optional<Number> ParseWhole(std::string_view text)
{
    Number number{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// Empty when the options go with what is written.
std::string Contradiction(const PageOptions& options, OutputKind kind)
{
    if (!IsOnPages(kind) && (!options.paper.empty() || !options.margins.empty()))
        return std::string(options.paper.empty() ? "--margins" : "--paper") +
               " goes with PDF and PNG; RTF and text have no pages yet";
    if (kind != OutputKind::Png && !options.dotsPerInch.empty())
        return "--dpi goes with PNG; nothing else is made of dots";
    if (kind == OutputKind::Pdf && !options.page.empty())
        return "--page goes with PNG; a PDF holds all pages";
    if (kind != OutputKind::Png && !options.page.empty())
        return "--page goes with PNG; RTF and text have no pages yet";
    return {};
}

std::string ReadPaper(const std::string& text, PageWishes& wishes)
{
    wishes.paper = ParsePaper(text);
    return wishes.paper ? "" : "there is no paper \"" + text + "\"; say A4, Letter, ..., or as 210mmx99mm";
}

std::string ReadMargins(const std::string& text, PageWishes& wishes)
{
    wishes.margins = ParseMargins(text);
    return wishes.margins ? ""
                          : "the margins \"" + text + "\" should be one, two or four lengths, as in 2cm or 1in,20mm";
}

std::string ReadPage(const std::string& text, PageWishes& wishes)
{
    wishes.page = text == kAllPages ? std::nullopt : ParseWhole<int>(text);
    const bool isPage = text == kAllPages || wishes.page.value_or(0) >= 1;
    return isPage ? "" : "the page \"" + text + "\" should be a number from 1 on, or all";
}

std::string ReadDotsPerInch(const std::string& text, PageWishes& wishes)
{
    wishes.dotsPerInch = ParseWhole<double>(text).value_or(0);
    const bool isInRange = wishes.dotsPerInch >= kLeastDotsPerInch && wishes.dotsPerInch <= kMostDotsPerInch;
    return isInRange ? ""
                     : "--dpi \"" + text + "\" should be a number from " + std::to_string(kLeastDotsPerInch) + " to " +
                           std::to_string(kMostDotsPerInch);
}

std::vector<std::string_view> Split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; at <= text.size();)
    {
        const std::size_t end = std::min(text.find(separator, at), text.size());
        parts.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return parts;
}

}  // namespace

void AddPageOptions(CLI::App& command, PageOptions& options)
{
    command
        .add_option("--paper", options.paper,
                    "for PDF and PNG: A4, Letter, ..., or as 210mmx99mm; else the document's own")
        ->type_name("PAPER");
    command
        .add_option("--margins", options.margins,
                    "for PDF and PNG: one, two or four lengths (see below); else the document's own")
        ->type_name("LENGTHS");
    command.add_option("--page", options.page, "for PNG: which page; all: OUT-1.png, OUT-2.png, ...; else the first")
        ->type_name("N|all");
    command.add_option("--dpi", options.dotsPerInch, "for PNG: dots an inch; else 96")->type_name("N");
}

Result<PageWishes> ParsePageOptions(const PageOptions& options, OutputKind kind)
{
    struct Reading
    {
        const std::string& text;
        std::string (*read)(const std::string&, PageWishes&);
    };
    if (const std::string contradiction = Contradiction(options, kind); !contradiction.empty())
        return Failure{contradiction};
    PageWishes wishes;
    for (const Reading& reading : {Reading{options.paper, ReadPaper}, Reading{options.margins, ReadMargins},
                                   Reading{options.page, ReadPage}, Reading{options.dotsPerInch, ReadDotsPerInch}})
    {
        const std::string error = reading.text.empty() ? "" : reading.read(reading.text, wishes);
        if (!error.empty())
            return Failure{error};
    }
    return wishes;
}

std::optional<Twips> ParseLength(std::string_view text)
{
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    if (result.ec != std::errc() || !(number >= 0))
        return {};
    const std::string_view name(result.ptr, static_cast<std::size_t>(text.data() + text.size() - result.ptr));
    double twips = number == 0 && name.empty() ? 0 : kLongest + 1;
    for (const Unit& unit : kUnits)
        if (unit.name == name)
            twips = number * unit.twips;
    return twips <= kLongest ? std::optional(Twips{static_cast<std::int32_t>(std::lround(twips))}) : std::nullopt;
}

std::optional<WantedPaper> ParsePaper(const std::string& text)
{
    if (const auto paper = PaperNamed(text))
        return WantedPaper{*paper, true};
    const auto sides = Split(text, 'x');
    const auto width = ParseLength(sides.front());
    const auto height = ParseLength(sides.back());
    if (sides.size() != 2 || !width || !height)
        return {};
    const PaperSize size{*width, *height};
    return WithRoom({.paper = size}).paper == size ? std::optional(WantedPaper{size}) : std::nullopt;
}

std::optional<Margins> ParseMargins(std::string_view text)
{
    std::vector<Twips> lengths;
    for (const std::string_view part : Split(text, ','))
    {
        const auto length = ParseLength(part);
        if (!length)
            return {};
        lengths.push_back(*length);
    }
    if (lengths.size() == 1)
        lengths.push_back(lengths[0]);
    if (lengths.size() == 2)
        lengths.insert(lengths.end(), {lengths[0], lengths[1]});
    if (lengths.size() != 4)
        return {};
    return Margins{lengths[0], lengths[1], lengths[2], lengths[3]};
}

Result<PageSetup> SetupFor(const Document& document, const PageWishes& wishes)
{
    PageSetup setup = PageSetupOf(document);
    if (wishes.paper)
    {
        PaperSize paper = wishes.paper->size;
        const bool isTurned = (setup.paper.width > setup.paper.height) != (paper.width > paper.height);
        if (wishes.paper->isTurned && isTurned)
            std::swap(paper.width, paper.height);
        setup.paper = paper;
    }
    if (!wishes.margins)
        return WithRoom(setup);
    const Margins& margins = *wishes.margins;
    setup.top = margins.top;
    setup.right = margins.right;
    setup.bottom = margins.bottom;
    setup.left = margins.left;
    return WithRoom(setup) == setup ? Result<PageSetup>(setup)
                                    : Failure{"the margins leave no room for text on the paper"};
}

}  // namespace quillmarker::tool
