#include "engine/rtf/writer_tables.h"

#include "engine/document/tree.h"
#include "engine/rtf/format_words.h"
#include "engine/rtf/header_tables.h"
#include "engine/rtf/text_escape.h"

#include <array>
#include <tuple>

namespace quillmarker
{
namespace
{

constexpr std::array kFamilyWords = {"fnil", "froman", "fswiss", "fmodern", "fscript", "fdecor", "ftech", "fbidi"};
constexpr std::int32_t kFirstCharacterStyle = 1'001;

}  // namespace

WriterTables::WriterTables(const Document& document, RtfScope scope) : m_document(document)
{
    m_seenChars.resize(document.Formats().CharFormatCount());
    m_seenParagraphs.resize(document.Formats().ParagraphFormatCount());
    const std::int32_t last = document.ParagraphCount() - 1;
    std::int32_t index = 0;
    document.Visit(0, [&](const Paragraph& paragraph) {
        // A fragment ends before its last mark, which is not written.
        if (index++ == last && scope == RtfScope::Fragment)
            GatherText(paragraph);
        else
            Gather(paragraph);
        return true;
    });
    Gather(document.Properties().lastSection);
    if (m_fontList.empty())
        Gather(document.FormatOf(document.ParagraphAt(last).Ending().charFormat));
    const auto& [name, charset, family] = m_fontList.front();
    m_plain.font = Name(name);
    m_plain.charset = charset;
    m_plain.family = family;
    m_plain.size = Points(12);
}

void WriterTables::Gather(const Body& body)
{
    if (body.IsAbsent())
        return;
    body.Content()->tree.Visit(0, [&](const ParagraphRef& paragraph) {
        Gather(*paragraph);
        return true;
    });
}

template <class Id>
void WriterTables::GatherOnce(Id id, std::vector<bool>& seen)
{
    const auto number = static_cast<std::size_t>(id);
    if (seen[number])
        return;
    seen[number] = true;
    Gather(m_document.FormatOf(id));
}

void WriterTables::Gather(const Paragraph& paragraph)
{
    GatherText(paragraph);
    GatherOnce(paragraph.Ending().charFormat, m_seenChars);
}

void WriterTables::GatherText(const Paragraph& paragraph)
{
    for (const Run& run : paragraph.Runs())
        GatherOnce(run.format, m_seenChars);
    GatherOnce(paragraph.Ending().format, m_seenParagraphs);
    if (!paragraph.HasExtras())
        return;
    const ParagraphExtras& extras = paragraph.Extras();
    for (const PlacedObject& placed : extras.objects)
    {
        if (const auto* embedded = std::get_if<EmbeddedObject>(&*placed.object))
            Gather(embedded->result);
        else if (const auto* note = std::get_if<Note>(&*placed.object))
            Gather(note->body);
    }
    if (extras.row)
        Gather(*extras.row);
    if (extras.section)
        Gather(*extras.section);
}

void WriterTables::Gather(const CharFormat& format)
{
    GatherFont(format.font, format.charset, format.family);
    Gather(format.colour);
    Gather(format.highlight);
    Gather(format.underlineColour);
    GatherStyle(StyleKind::Character, format.style);
}

void WriterTables::Gather(const ParagraphFormat& format)
{
    if (format.numbering)
        Gather(*format.numbering);
    if (format.borders)
        Gather(*format.borders);
    if (format.shading)
    {
        Gather(format.shading->fill);
        Gather(format.shading->foreground);
    }
    GatherStyle(StyleKind::Paragraph, format.style);
}

void WriterTables::Gather(const Numbering& numbering)
{
    if (!numbering.font.IsEmpty())
        GatherFont(numbering.font, numbering.fontCharset, FontFamily::Nil);
    if (numbering.list != 0)
        m_lists[numbering.list].emplace(numbering.level, numbering);
}

void WriterTables::Gather(const Section& section)
{
    for (const Body& header : section.headers)
        Gather(header);
}

void WriterTables::Gather(const TableRow& row)
{
    Gather(row.borders);
    for (const TableCell& cell : row.cells)
    {
        Gather(cell.borders);
        Gather(cell.shading.fill);
        Gather(cell.shading.foreground);
    }
}

void WriterTables::Gather(const Borders& borders)
{
    for (const Border& border : borders.sides)
        Gather(border.colour);
}

void WriterTables::Gather(Colour colour)
{
    if (!colour.IsAutomatic() && m_colours.emplace(colour.rgb, m_colourList.size() + 1).second)
        m_colourList.push_back(colour);
}

void WriterTables::GatherFont(const Name& name, std::uint8_t charset, FontFamily family)
{
    FontKey key{name.Text(), charset, family};
    if (m_fonts.emplace(key, static_cast<std::int32_t>(m_fontList.size())).second)
        m_fontList.push_back(std::move(key));
}

/// A style, and those it is based on.
void WriterTables::GatherStyle(StyleKind kind, const Name& style)
{
    const bool isParagraph = kind == StyleKind::Paragraph;
    StyleNumbers& numbers = isParagraph ? m_paragraphStyles : m_characterStyles;
    std::vector<Name>& names = isParagraph ? m_paragraphStyleList : m_characterStyleList;
    for (Name at = style; !at.IsEmpty();)
    {
        const auto count = static_cast<std::int32_t>(names.size());
        if (!numbers.emplace(at.Text(), (isParagraph ? 1 : kFirstCharacterStyle) + count).second)
            return;
        names.push_back(at);
        const StyleDefinition* definition = m_document.Formats().StyleOf(kind, at);
        if (!definition)
            return;
        Gather(*definition);
        at = definition->basedOn.value_or(Name());
    }
}

void WriterTables::Gather(const StyleDefinition& definition)
{
    const CharFormat& chars = definition.chars;
    const CharFormat unstated;
    if (std::tie(chars.font, chars.charset, chars.family) != std::tie(unstated.font, unstated.charset, unstated.family))
        GatherFont(chars.font, chars.charset, chars.family);
    Gather(chars.colour);
    Gather(chars.highlight);
    Gather(chars.underlineColour);
    Gather(definition.paragraph);
}

/// A style's number and what it means, in words behind which its name may stand.
std::string WriterTables::StyleWords(StyleKind kind, const Name& style) const
{
    const bool isParagraph = kind == StyleKind::Paragraph;
    const StyleNumbers& numbers = isParagraph ? m_paragraphStyles : m_characterStyles;
    std::string out;
    AppendWord(out, isParagraph ? "s" : "cs", Number(numbers, style));
    if (const StyleDefinition* definition = m_document.Formats().StyleOf(kind, style))
    {
        out += DefinitionWords(*definition, kind, *this);
        const auto refer = [&](const char* word, const std::optional<Name>& other) {
            if (other && (other->IsEmpty() || numbers.contains(other->Text())))
                AppendWord(out, word, Number(numbers, *other));
        };
        refer("sbasedon", definition->basedOn);
        refer("snext", definition->next);
    }
    return out + ' ';
}

std::int32_t WriterTables::Font(const Name& name, std::uint8_t charset, FontFamily family) const
{
    return m_fonts.find({name.Text(), charset, family})->second;
}

std::int32_t WriterTables::ColourNumber(Colour colour) const
{
    return colour.IsAutomatic() ? 0 : m_colours.find(colour.rgb)->second;
}

std::int32_t WriterTables::Number(const StyleNumbers& styles, const Name& style)
{
    return style.IsEmpty() ? 0 : styles.find(style.Text())->second;
}

void WriterTables::WriteHead(std::string& out) const
{
    out += "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0";
    WriteFonts(out);
    WriteColours(out);
    WriteStyles(out);
    WriteLists(out);
}

void WriterTables::WriteFonts(std::string& out) const
{
    out += "{\\fonttbl";
    for (std::size_t number = 0; number < m_fontList.size(); ++number)
    {
        const auto& [name, charset, family] = m_fontList[number];
        out += '{';
        AppendWord(out, "f", static_cast<long long>(number));
        AppendWord(out, kFamilyWords[static_cast<std::size_t>(family)]);
        AppendWord(out, "fcharset", charset);
        out += ' ';
        AppendEscapedName(name, out);
        out += ";}";
    }
    out += "}\r\n";
}

void WriterTables::WriteColours(std::string& out) const
{
    if (m_colourList.empty())
        return;
    out += "{\\colortbl ;";
    for (const Colour colour : m_colourList)
    {
        AppendWord(out, "red", colour.Red());
        AppendWord(out, "green", colour.Green());
        AppendWord(out, "blue", colour.Blue());
        out += ';';
    }
    out += "}\r\n";
}

void WriterTables::WriteStyles(std::string& out) const
{
    if (m_paragraphStyleList.empty() && m_characterStyleList.empty())
        return;
    out += "{\\stylesheet{\\s0 Normal;}";
    for (const Name& style : m_paragraphStyleList)
    {
        out += '{' + StyleWords(StyleKind::Paragraph, style);
        AppendEscapedName(style.Text(), out);
        out += ";}";
    }
    for (const Name& style : m_characterStyleList)
    {
        out += "{\\*" + StyleWords(StyleKind::Character, style);
        AppendEscapedName(style.Text(), out);
        out += ";}";
    }
    out += "}\r\n";
}

void WriterTables::WriteLevel(const Numbering& level, std::string& out) const
{
    out += "{\\listlevel";
    AppendWord(out, "levelnfc", LevelFormatOf(level.kind));
    AppendWord(out, "leveljc", level.align);
    AppendWord(out, "levelfollow", level.follow);
    AppendWord(out, "levelstartat", level.start);
    if (level.indent != Twips())
        AppendWord(out, "levelindent", level.indent.value);
    std::u16string text = level.text.substr(0, kMaxNumberText);
    text.insert(text.begin(), static_cast<char16_t>(text.size()));
    std::u16string places;
    out += "{\\leveltext ";
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const std::u16string_view unit(&text[i], 1);
        if (i > 0 && text[i] < 9)
            places += static_cast<char16_t>(i);
        // Lengths and places are bytes, whatever character they would be.
        if (i == 0 || text[i] < 0x20)
        {
            constexpr char kDigits[] = "0123456789abcdef";
            out += "\\'";
            out += kDigits[text[i] >> 4 & 15];
            out += kDigits[text[i] & 15];
        }
        else
            AppendEscaped(unit, out);
    }
    out += ";}{\\levelnumbers ";
    AppendEscaped(places, out);
    out += ";}";
    if (!level.font.IsEmpty())
        AppendWord(out, "f", Font(level.font, level.fontCharset, FontFamily::Nil));
    out += '}';
}

void WriterTables::WriteLists(std::string& out) const
{
    if (m_lists.empty())
        return;
    out += "{\\*\\listtable";
    for (const auto& [list, levels] : m_lists)
    {
        out += "\r\n{\\list";
        AppendWord(out, "listtemplateid", list);
        for (std::int32_t number = 0; number <= levels.rbegin()->first; ++number)
        {
            const auto level = levels.find(number);
            WriteLevel(level == levels.end() ? Numbering{.kind = NumberKind::None} : level->second, out);
        }
        AppendWord(out, "listid", list);
        out += '}';
    }
    out += "}\r\n{\\*\\listoverridetable";
    for (const auto& entry : m_lists)
    {
        out += "{\\listoverride";
        AppendWord(out, "listid", entry.first);
        AppendWord(out, "listoverridecount", 0);
        AppendWord(out, "ls", entry.first);
        out += '}';
    }
    out += "}\r\n";
}

}  // namespace quillmarker
