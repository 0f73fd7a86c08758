#include "engine/rtf/format_words.h"
#include "engine/rtf/text_escape.h"

#include <array>

namespace quillmarker
{
namespace
{

constexpr std::array kAlignmentWords = {"ql", "qr", "qc", "qj", "qd"};
constexpr std::array kTabWords = {"", "tqr", "tqc", "tqdec", ""};
constexpr std::array kLeaderWords = {"", "tldot", "tlmdot", "tlhyph", "tlul", "tlth", "tleq"};
constexpr std::array kNumberWords = {"",       "pnlvlblt", "pndec", "pnlcltr", "pnucltr",
                                     "pnlcrm", "pnucrm",   "pnord", "pncard",  "pnordt"};
constexpr std::array kNumberAlignWords = {"pnql", "pnqc", "pnqr"};
constexpr std::array kBorderWords = {"brdrnone",   "brdrs",       "brdrth",     "brdrdb",     "brdrdot",
                                     "brdrdash",   "brdrhair",    "brdrdashsm", "brdrdashd",  "brdrdashdd",
                                     "brdrtriple", "brdrsh",      "brdrwavy",   "brdrwavydb", "brdrdashdotstr",
                                     "brdremboss", "brdrengrave", "brdrinset",  "brdroutset"};
constexpr std::array kParagraphSides = {"brdrt", "brdrl", "brdrb", "brdrr", "brdrbtw", "brdrbar"};
constexpr std::array kRowSides = {"trbrdrt", "trbrdrl", "trbrdrb", "trbrdrr", "trbrdrh", "trbrdrv"};
constexpr std::array kCellSides = {"clbrdrt", "clbrdrl", "clbrdrb", "clbrdrr"};

struct LengthWord
{
    Twips ParagraphFormat::*field;
    const char* word;
};

constexpr std::array kLengthWords = {
    LengthWord{&ParagraphFormat::firstIndent, "fi"}, LengthWord{&ParagraphFormat::leftIndent, "li"},
    LengthWord{&ParagraphFormat::rightIndent, "ri"}, LengthWord{&ParagraphFormat::spaceBefore, "sb"},
    LengthWord{&ParagraphFormat::spaceAfter, "sa"},
};

struct FlagWord
{
    bool ParagraphFormat::*field;
    const char* word;
};

constexpr std::array kFlagWords = {
    FlagWord{&ParagraphFormat::keepLines, "keep"},
    FlagWord{&ParagraphFormat::keepWithNext, "keepn"},
    FlagWord{&ParagraphFormat::pageBreakBefore, "pagebb"},
    FlagWord{&ParagraphFormat::widowControl, "widctlpar"},
    FlagWord{&ParagraphFormat::rightToLeft, "rtlpar"},
    FlagWord{&ParagraphFormat::contextualSpacing, "contextualspace"},
};

template <class Sides>
void AppendBorders(std::string& out, const Borders& borders, const Sides& sides, const WriterTables& tables)
{
    for (std::size_t side = 0; side < sides.size(); ++side)
    {
        const Border& border = borders.sides[side];
        if (border == Border())
            continue;
        AppendWord(out, sides[side]);
        AppendWord(out, kBorderWords[static_cast<std::size_t>(border.style)]);
        if (border.width != Twips())
            AppendWord(out, "brdrw", border.width.value);
        if (border.space != Twips())
            AppendWord(out, "brsp", border.space.value);
        if (!border.colour.IsAutomatic())
            AppendWord(out, "brdrcf", tables.ColourNumber(border.colour));
    }
}

void AppendLineSpacing(std::string& out, const LineSpacing& spacing)
{
    if (spacing.rule == LineRule::Single)
        return;
    AppendWord(out, "sl", spacing.rule == LineRule::Exactly ? -spacing.amount : spacing.amount);
    AppendWord(out, "slmult", spacing.rule == LineRule::Multiple ? 1 : 0);
}

void AppendTabs(std::string& out, const std::vector<TabStop>& tabs)
{
    for (const TabStop& tab : tabs)
    {
        if (tab.leader != TabLeader::None)
            AppendWord(out, kLeaderWords[static_cast<std::size_t>(tab.leader)]);
        if (tab.kind == TabKind::Bar)
        {
            AppendWord(out, "tb", tab.position.value);
            continue;
        }
        if (tab.kind != TabKind::Left)
            AppendWord(out, kTabWords[static_cast<std::size_t>(tab.kind)]);
        AppendWord(out, "tx", tab.position.value);
    }
}

void AppendOldNumbering(std::string& out, const Numbering& numbering, const WriterTables& tables)
{
    const bool isBullet = numbering.kind == NumberKind::Bullet;
    out += "{\\*\\pn";
    if (numbering.level > 0)
        AppendWord(out, "pnlvl", numbering.level + 1);
    else if (!isBullet)
        AppendWord(out, "pnlvlbody");
    if (numbering.kind != NumberKind::None)
        AppendWord(out, kNumberWords[static_cast<std::size_t>(numbering.kind)]);
    if (!isBullet || numbering.start != 1)
        AppendWord(out, "pnstart", numbering.start);
    if (numbering.indent != Twips())
        AppendWord(out, "pnindent", numbering.indent.value);
    if (numbering.hanging)
        AppendWord(out, "pnhang");
    if (numbering.align != 0)
        AppendWord(out, kNumberAlignWords[numbering.align]);
    if (!numbering.font.IsEmpty())
        AppendWord(out, "pnf", tables.Font(numbering.font, numbering.fontCharset, FontFamily::Nil));
    const std::size_t place = isBullet || numbering.kind == NumberKind::None
                                  ? numbering.text.size()
                                  : numbering.text.find(static_cast<char16_t>(numbering.level));
    const std::u16string_view text = numbering.text;
    const auto appendText = [&](const char* word, std::u16string_view part) {
        if (part.empty())
            return;
        out += '{';
        AppendWord(out, word);
        out += ' ';
        AppendEscaped(part, out);
        out += '}';
    };
    appendText("pntxtb", text.substr(0, place));
    if (place < text.size())
        appendText("pntxta", text.substr(place + 1));
    out += '}';
}

}  // namespace

std::string ParagraphWords(const ParagraphFormat& format, int tableDepth, const WriterTables& tables)
{
    std::string out = "\\pard";
    if (tableDepth > 0)
        AppendWord(out, "intbl");
    if (tableDepth > 1)
        AppendWord(out, "itap", tableDepth);
    if (!format.style.IsEmpty())
        AppendWord(out, "s", tables.ParagraphStyle(format.style));
    for (const FlagWord& flag : kFlagWords)
    {
        if (format.*flag.field)
            AppendWord(out, flag.word);
    }
    if (format.noHyphenation)
        AppendWord(out, "hyphpar", 0);
    if (format.outlineLevel > 0)
        AppendWord(out, "outlinelevel", format.outlineLevel - 1);
    if (format.alignment != Alignment::Left)
        AppendWord(out, kAlignmentWords[static_cast<std::size_t>(format.alignment)]);
    for (const LengthWord& length : kLengthWords)
    {
        if (format.*length.field != Twips())
            AppendWord(out, length.word, (format.*length.field).value);
    }
    AppendLineSpacing(out, format.lineSpacing);
    if (format.tabs)
        AppendTabs(out, *format.tabs);
    if (format.borders)
        AppendBorders(out, *format.borders, kParagraphSides, tables);
    if (format.shading)
    {
        AppendWord(out, "shading", format.shading->hundredths);
        AppendWord(out, "cfpat", tables.ColourNumber(format.shading->foreground));
        AppendWord(out, "cbpat", tables.ColourNumber(format.shading->fill));
    }
    if (format.kept)
        out += *format.kept;
    if (format.numbering && format.numbering->list != 0)
    {
        AppendWord(out, "ls", format.numbering->list);
        AppendWord(out, "ilvl", format.numbering->level);
    }
    else if (format.numbering)
        AppendOldNumbering(out, *format.numbering, tables);
    if (out.back() != '}')  // behind a group a blank would be text
        out += ' ';
    return out;
}

namespace
{

constexpr std::array kRowAlignWords = {"trql", "trqc", "trqr"};
constexpr std::array kCellAlignWords = {"clvertalt", "clvertalc", "clvertalb"};

void AppendMerge(std::string& out, CellMerge merge, const char* first, const char* continued)
{
    if (merge != CellMerge::None)
        AppendWord(out, merge == CellMerge::First ? first : continued);
}

void AppendCell(std::string& out, const TableCell& cell, const WriterTables& tables)
{
    AppendMerge(out, cell.horizontal, "clmgf", "clmrg");
    AppendMerge(out, cell.vertical, "clvmgf", "clvmrg");
    if (cell.align != CellAlign::Top)
        AppendWord(out, kCellAlignWords[static_cast<std::size_t>(cell.align)]);
    AppendBorders(out, cell.borders, kCellSides, tables);
    if (!cell.shading.fill.IsAutomatic())
        AppendWord(out, "clcbpat", tables.ColourNumber(cell.shading.fill));
    if (!cell.shading.foreground.IsAutomatic())
        AppendWord(out, "clcfpat", tables.ColourNumber(cell.shading.foreground));
    if (cell.shading.hundredths != 0)
        AppendWord(out, "clshdng", cell.shading.hundredths);
    out += cell.kept;
    AppendWord(out, "cellx", cell.right.value);
}

}  // namespace

std::string RowWords(const TableRow& row, const WriterTables& tables)
{
    std::string out = "\\trowd";
    if (row.gap != Twips())
        AppendWord(out, "trgaph", row.gap.value);
    if (row.left != Twips())
        AppendWord(out, "trleft", row.left.value);
    if (row.height != Twips())
        AppendWord(out, "trrh", row.height.value);
    if (row.align != RowAlign::Left)
        AppendWord(out, kRowAlignWords[static_cast<std::size_t>(row.align)]);
    if (row.header)
        AppendWord(out, "trhdr");
    if (row.keepTogether)
        AppendWord(out, "trkeep");
    if (row.rightToLeft)
        AppendWord(out, "rtlrow");
    AppendBorders(out, row.borders, kRowSides, tables);
    out += row.kept;
    for (const TableCell& cell : row.cells)
        AppendCell(out, cell, tables);
    out += ' ';
    return out;
}

}  // namespace quillmarker
