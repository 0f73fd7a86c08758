#include "engine/rtf/format_words.h"

#include "engine/rtf/text_escape.h"

#include <array>

namespace quillmarker
{
namespace
{

constexpr std::array kUnderlineWords = {
    "ulnone",   "ul",        "ulw",        "uldb",    "uld",       "uldash", "uldashd", "uldashdd",   "ulth",  "ulthd",
    "ulthdash", "ulthdashd", "ulthdashdd", "ulldash", "ulthldash", "ulwave", "ulhwave", "ululdbwave", "ulhair"};
constexpr std::array kScriptWords = {"nosupersub", "super", "sub"};

struct FlagWord
{
    bool CharFormat::*field;
    const char* word;
};

constexpr std::array kFlagWords = {
    FlagWord{&CharFormat::bold, "b"},
    FlagWord{&CharFormat::italic, "i"},
    FlagWord{&CharFormat::strike, "strike"},
    FlagWord{&CharFormat::doubleStrike, "striked"},
    FlagWord{&CharFormat::caps, "caps"},
    FlagWord{&CharFormat::smallCaps, "scaps"},
    FlagWord{&CharFormat::outline, "outl"},
    FlagWord{&CharFormat::shadow, "shad"},
    FlagWord{&CharFormat::emboss, "embo"},
    FlagWord{&CharFormat::engrave, "impr"},
    FlagWord{&CharFormat::protectedText, "protect"},
    FlagWord{&CharFormat::hidden, "v"},
};

struct ColourWord
{
    Colour CharFormat::*field;
    const char* word;
};

constexpr std::array kColourWords = {
    ColourWord{&CharFormat::colour, "cf"},
    ColourWord{&CharFormat::highlight, "highlight"},
    ColourWord{&CharFormat::underlineColour, "ulc"},
};

void AppendFlag(std::string& out, const char* word, bool on)
{
    AppendWord(out, word);
    if (!on)
        out += '0';
}

/// \striked knows no short form: its 1 is always written.
void AppendFlagChange(std::string& out, const FlagWord& flag, bool on)
{
    if (flag.field == &CharFormat::doubleStrike)
        AppendWord(out, flag.word, on ? 1 : 0);
    else
        AppendFlag(out, flag.word, on);
}

}  // namespace

std::string PlainWords(const CharFormat& format, const WriterTables& tables)
{
    std::string out = "\\plain";
    // Readers differ in what \plain means for the font, so that is always stated.
    AppendWord(out, "f", tables.Font(format));
    AppendWord(out, "fs", std::max(ToHalfPoints(format.size), 1));
    CharFormat stated = tables.Plain();
    stated.font = format.font;
    stated.charset = format.charset;
    stated.family = format.family;
    stated.size = format.size;
    const std::string more = CharWords(stated, format, tables);
    return out + (more.empty() ? " " : more);
}

std::string CharWords(const CharFormat& from, const CharFormat& to, const WriterTables& tables)
{
    // An offset is ended by \plain and not by \up0, which a host that rewrites sizes would take for another offset. No
    // language has a number that says so: \plain ends one too, as no \deflang is written.
    if ((from.offset != Twips() && to.offset == Twips()) || (from.language != 0 && to.language == 0))
        return PlainWords(to, tables);
    std::string out;
    if (from.style != to.style)
        AppendWord(out, "cs", tables.CharacterStyle(to.style));
    if (from.rightToLeft != to.rightToLeft)
        AppendWord(out, to.rightToLeft ? "rtlch" : "ltrch");
    if (from.font != to.font || from.charset != to.charset || from.family != to.family)
        AppendWord(out, "f", tables.Font(to));
    if (from.size != to.size || to.offset != Twips())
        AppendWord(out, "fs", std::max(ToHalfPoints(to.size), 1));
    for (const ColourWord& colour : kColourWords)
    {
        if (from.*colour.field != to.*colour.field)
            AppendWord(out, colour.word, tables.ColourNumber(to.*colour.field));
    }
    if (from.language != to.language)
        AppendWord(out, "lang", to.language);
    if (from.spacing != to.spacing)
        AppendWord(out, "expndtw", to.spacing.value);
    if (from.widthPercent != to.widthPercent)
        AppendWord(out, "charscalex", to.widthPercent == 0 ? 100 : to.widthPercent);
    if (from.kerning != to.kerning)
        AppendWord(out, "kerning", ToHalfPoints(to.kerning));
    if (from.underline != to.underline)
        AppendWord(out, kUnderlineWords[static_cast<std::size_t>(to.underline)]);
    if (from.script != to.script)
        AppendWord(out, kScriptWords[static_cast<std::size_t>(to.script)]);
    if (to.offset != Twips())
        AppendWord(out, to.offset > Twips() ? "up" : "dn", std::abs(ToHalfPoints(to.offset)));
    for (const FlagWord& flag : kFlagWords)
    {
        if (from.*flag.field != to.*flag.field)
            AppendFlagChange(out, flag, to.*flag.field);
    }
    if (!out.empty())
        out += ' ';
    return out;
}

std::string DefinitionWords(const StyleDefinition& definition, StyleKind kind, const WriterTables& tables)
{
    const auto withoutBlank = [](std::string words) {
        if (words.ends_with(' '))
            words.pop_back();
        return words;
    };
    std::string out;
    if (kind == StyleKind::Paragraph)
        out = withoutBlank(ParagraphWords(definition.paragraph, 0, tables)).substr(std::string_view("\\pard").size());
    CharFormat chars = definition.chars;
    if (chars.offset != Twips() && chars.size == Twips())
        chars.size = Points(12);  // an offset is never written without a size
    return out + withoutBlank(CharWords({}, chars, tables)) + definition.kept;
}

}  // namespace quillmarker
