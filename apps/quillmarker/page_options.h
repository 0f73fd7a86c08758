#pragma once

#include "output_kind.h"
#include "result.h"

#include <quillmarker/document.h>
#include <quillmarker/pages/page_setup.h>

#include <optional>
#include <string>
#include <string_view>

namespace CLI
{
class App;
}

namespace quillmarker::tool
{

/// How the pages should be, as the command line says it. What is not said is empty.
struct PageOptions
{
    std::string paper;
    std::string margins;
    std::string page;
    std::string dotsPerInch;
};

/// What their help says about lengths.
inline constexpr const char* kLengthsHelp =
    R"(--margins takes one length for all sides, two (top and bottom, left and right), or four (top, right, bottom, left),
in mm, cm, in, pt or tw (twips): --margins 2cm, --margins 1in,20mm. A paper with a name lies as the document's own does;
others are width and height: --paper 210mmx99mm.)";

/// Lets a command take them.
void AddPageOptions(CLI::App& command, PageOptions& options);

struct Margins
{
    Twips top, right, bottom, left;

    bool operator==(const Margins&) const = default;
};

struct WantedPaper
{
    PaperSize size;
    bool isTurned = false;  // to lie as the document's own paper does

    bool operator==(const WantedPaper&) const = default;
};

/// How the pages should be. What is empty is the document's own.
struct PageWishes
{
    std::optional<WantedPaper> paper;
    std::optional<Margins> margins;
    std::optional<int> page = 1;  // the one that becomes an image; empty: each
    double dotsPerInch = 96;
};

/// What the options say; they must go with what is written.
Result<PageWishes> ParsePageOptions(const PageOptions& options, OutputKind kind);

/// "2cm", "1.5in", "20mm", "72pt", "1440tw", "0"; empty for anything else.
std::optional<Twips> ParseLength(std::string_view text);
/// "A4", "letter", or width and height: "210mmx99mm".
std::optional<WantedPaper> ParsePaper(const std::string& text);
/// All four; top and bottom, left and right; or top, right, bottom, left.
std::optional<Margins> ParseMargins(std::string_view text);

/// The document's page with what is wished for. Wished margins must leave room for text.
Result<PageSetup> SetupFor(const Document& document, const PageWishes& wishes);

}  // namespace quillmarker::tool
