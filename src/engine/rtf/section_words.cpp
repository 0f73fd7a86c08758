#include "engine/rtf/format_words.h"
#include "engine/rtf/text_escape.h"

#include <array>

namespace quillmarker
{
namespace
{

struct PageWord
{
    Twips PageFormat::*field;
    const char* document;
    const char* section;
};

constexpr std::array kPageWords = {
    PageWord{&PageFormat::width, "paperw", "pgwsxn"},     PageWord{&PageFormat::height, "paperh", "pghsxn"},
    PageWord{&PageFormat::left, "margl", "marglsxn"},     PageWord{&PageFormat::right, "margr", "margrsxn"},
    PageWord{&PageFormat::top, "margt", "margtsxn"},      PageWord{&PageFormat::bottom, "margb", "margbsxn"},
    PageWord{&PageFormat::gutter, "gutter", "guttersxn"},
};

constexpr std::array kBreakWords = {"sbknone", "sbkcol", "sbkpage", "sbkeven", "sbkodd"};

void AppendPage(std::string& out, const PageFormat& page, const char* PageWord::*word)
{
    for (const PageWord& length : kPageWords)
    {
        if (page.*length.field != Twips())
            AppendWord(out, length.*word, (page.*length.field).value);
    }
}

}  // namespace

std::string SectionWords(const Section& section)
{
    std::string out = "\\sectd";
    if (section.breakKind != SectionBreak::Page)
        AppendWord(out, kBreakWords[static_cast<std::size_t>(section.breakKind)]);
    AppendPage(out, section.page, &PageWord::section);
    if (section.page.landscape)
        AppendWord(out, "lndscpsxn");
    if (section.columns != 1)
        AppendWord(out, "cols", section.columns);
    if (section.columnGap != Twips())
        AppendWord(out, "colsx", section.columnGap.value);
    if (section.headerDistance != Twips())
        AppendWord(out, "headery", section.headerDistance.value);
    if (section.footerDistance != Twips())
        AppendWord(out, "footery", section.footerDistance.value);
    if (section.titlePage)
        AppendWord(out, "titlepg");
    if (section.firstPage != 0)
        AppendWord(out, "pgnstarts", section.firstPage);
    if (section.restartPages)
        AppendWord(out, "pgnrestart");
    out += section.kept;
    out += "\r\n";
    return out;
}

std::string DocumentWords(const DocumentFormat& format)
{
    std::string out;
    if (!format.info.empty() || !format.infoKept.empty())
    {
        out += "{\\info";
        for (const auto& [word, text] : format.info)
        {
            out += word == "company" || word == "manager" || word == "category" || word == "hlinkbase" ? "{\\*" : "{";
            AppendWord(out, word);
            out += ' ';
            AppendEscaped(text, out);
            out += '}';
        }
        out += format.infoKept;
        out += "}\r\n";
    }
    AppendPage(out, format.page, &PageWord::document);
    if (format.page.landscape)
        AppendWord(out, "landscape");
    if (format.facingPages)
        AppendWord(out, "facingp");
    if (format.defaultTab != kDefaultTab)
        AppendWord(out, "deftab", format.defaultTab.value);
    out += format.kept;
    return out;
}

}  // namespace quillmarker
