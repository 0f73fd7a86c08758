#include "engine/rtf/writer.h"

#include "engine/document/tree.h"
#include "engine/rtf/text_escape.h"

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

constexpr std::array kHeaderWords = {"header", "headerl", "headerr", "headerf",
                                     "footer", "footerl", "footerr", "footerf"};

bool IsRowStart(const std::vector<const Paragraph*>& paragraphs, std::size_t index)
{
    if (paragraphs[index]->Ending().tableDepth == 0)
        return false;
    if (index == 0)
        return true;
    const ParagraphMark& before = paragraphs[index - 1]->Ending();
    return before.tableDepth == 0 || (before.kind == Mark::Row && before.tableDepth == 1);
}

/// A field and those around it, the outermost first.
std::vector<Shared<Field>> PathOf(const Shared<Field>& field)
{
    std::vector<Shared<Field>> path;
    for (Shared<Field> at = field; at; at = at->outer)
        path.push_back(at);
    std::ranges::reverse(path);
    return path;
}

}  // namespace

std::string Writer::Write()
{
    m_out.reserve(static_cast<std::size_t>(m_document.Size()) * 5 / 4 + 512);
    m_tables.WriteHead(m_out);
    const bool isDocument = m_scope == RtfScope::Document;
    m_document.Visit(0, [&](const Paragraph& paragraph) {
        if (paragraph.Extras().section)
            m_sections.push_back(paragraph.Extras().section);
        return true;
    });
    if (isDocument)
    {
        m_out += DocumentWords(m_document.Properties());
        m_sections.emplace_back(m_document.Properties().lastSection);
    }
    const bool isPlain = isDocument && m_sections.size() == 1 && *m_sections.front() == Section();
    if (!m_sections.empty() && !isPlain)
        WriteSection(*m_sections.front());
    WriteBody(m_document.Content(), isDocument ? LastMark::Written : LastMark::LeftOut);
    m_out += "}\r\n";
    return std::move(m_out);
}

void Writer::WriteBody(const Body& body, LastMark lastMark)
{
    Paragraphs paragraphs;
    body.Content()->tree.Visit(0, [&](const ParagraphRef& paragraph) {
        paragraphs.push_back(paragraph.Identity());
        return true;
    });
    for (std::size_t i = 0; i < paragraphs.size(); ++i)
    {
        if (IsRowStart(paragraphs, i))
            WriteRowStart(paragraphs, i);
        const bool isLast = i + 1 == paragraphs.size();
        // An open end is read as standing outside of tables and of fields.
        const ParagraphMark& mark = paragraphs[i]->Ending();
        const bool leavesOut = lastMark == LastMark::LeftOutUnlessEmpty && !paragraphs[i]->Text().empty() &&
                               mark.tableDepth == 0 && !m_document.FormatOf(mark.charFormat).field;
        WriteParagraph(*paragraphs[i]);
        if (isLast && lastMark == LastMark::LeftOut)
            break;
        UseMark(*paragraphs[i]);
        if (!isLast || !leavesOut)
            WriteMark(*paragraphs[i]);
    }
    UseField({});
}

/// A row's properties stand at its mark, but readers want them before its first cell.
void Writer::WriteRowStart(const Paragraphs& paragraphs, std::size_t index)
{
    for (; index < paragraphs.size() && paragraphs[index]->Ending().tableDepth > 0; ++index)
    {
        const ParagraphMark& mark = paragraphs[index]->Ending();
        if (mark.kind != Mark::Row || mark.tableDepth != 1)
            continue;
        if (paragraphs[index]->Extras().row)
            m_out += RowWords(*paragraphs[index]->Extras().row, m_tables);
        return;
    }
}

void Writer::WriteParagraph(const Paragraph& paragraph)
{
    const ParagraphMark& mark = paragraph.Ending();
    // A field that begins here is opened by its text, behind the paragraph's own words, which hold beyond it.
    CloseFields(PathOf(m_document.FormatOf(paragraph.FormatAt(0)).field));
    UseParagraph(mark);
    WriteNumber(m_document.FormatOf(mark.format));
    std::uint32_t begin = 0;
    for (const Run& run : paragraph.Runs())
    {
        UseChars(run.format);
        WriteText(paragraph, begin, run.end);
        begin = run.end;
    }
}

/// What holds at the mark: also where the mark itself is not written, its formats are those that the text ends with.
void Writer::UseMark(const Paragraph& paragraph)
{
    UseChars(paragraph.Ending().charFormat);
    UseParagraph(paragraph.Ending());
}

void Writer::WriteNumber(const ParagraphFormat& format)
{
    const Numbering* numbering = format.numbering ? &*format.numbering : nullptr;
    const std::u16string number = m_numbers.Next(numbering);
    if (!numbering)
        return;
    m_out += numbering->list != 0 ? "{\\listtext" : "{\\pntext";
    if (!numbering->font.IsEmpty())
        AppendWord(m_out, "f", m_tables.Font(numbering->font, numbering->fontCharset, FontFamily::Nil));
    m_out += ' ';
    AppendEscaped(number, m_out);
    m_out += "\\tab}";
}

void Writer::WriteText(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end)
{
    const auto text = paragraph.Text();
    if (paragraph.HasExtras())
    {
        for (const PlacedObject& placed : paragraph.Extras().objects)
        {
            if (placed.offset < begin || placed.offset >= end)
                continue;
            AppendEscaped(text.substr(begin, placed.offset - begin), m_out);
            WriteObject(*placed.object);
            begin = placed.offset + 1;
        }
    }
    AppendEscaped(text.substr(begin, end - begin), m_out);
}

void Writer::WriteMark(const Paragraph& paragraph)
{
    const ParagraphMark& mark = paragraph.Ending();
    const ParagraphExtras& extras = paragraph.Extras();
    if (mark.kind == Mark::Cell)
        m_out += mark.tableDepth > 1 ? "\\nestcell " : "\\cell ";
    else if (mark.kind == Mark::Row && mark.tableDepth > 1)
    {
        m_out += "{\\*\\nesttableprops";
        if (extras.row)
            m_out += RowWords(*extras.row, m_tables);
        m_out += "\\nestrow}{\\nonesttables\\par}\r\n";
    }
    else if (mark.kind == Mark::Row)
        m_out += "\\row\r\n";
    else if (extras.section)
    {
        m_out += "\\sect\r\n";
        if (++m_section < m_sections.size())
            WriteSection(*m_sections[m_section]);
    }
    else
        m_out += "\\par\r\n";
}

void Writer::WriteSection(const Section& section)
{
    m_out += SectionWords(section);
    for (std::size_t kind = 0; kind < kHeaderKinds; ++kind)
    {
        if (!section.headers[kind].IsAbsent())
            WriteNested(kHeaderWords[kind], section.headers[kind], LastMark::Written);
    }
}

void Writer::WriteNested(const char* word, const Body& body, LastMark lastMark)
{
    const Place outside = m_place;
    std::vector<OpenedField> fields = std::exchange(m_fields, {});
    NumberCounter numbers = std::exchange(m_numbers, {});
    m_out += '{';
    AppendWord(m_out, word);
    m_place = {};
    WriteBody(body, lastMark);
    m_out += '}';
    m_fields = std::move(fields);
    m_numbers = std::move(numbers);
    m_place = outside;
}

void Writer::UseParagraph(const ParagraphMark& mark)
{
    const int depth = mark.tableDepth;
    if (m_place.paragraph == mark.format && m_place.tableDepth == depth)
        return;
    const auto key = std::uint64_t{static_cast<std::uint32_t>(mark.format)} << 16 | mark.tableDepth;
    std::string& words = m_paragraphWords[key];
    if (words.empty())
        words = ParagraphWords(m_document.FormatOf(mark.format), depth, m_tables);
    m_out += words;
    m_place.paragraph = mark.format;
    m_place.tableDepth = depth;
}

void Writer::UseChars(CharFormatId id)
{
    if (m_place.chars == id)
        return;
    const CharFormat& format = m_document.FormatOf(id);
    UseField(format.field);
    if (!m_place.chars)
        m_out += PlainWords(format, m_tables);
    else if (*m_place.chars != id)
    {
        const auto key =
            std::uint64_t{static_cast<std::uint32_t>(*m_place.chars)} << 32 | static_cast<std::uint32_t>(id);
        const auto [words, isNew] = m_charWords.try_emplace(key);
        if (isNew)
            words->second = CharWords(m_document.FormatOf(*m_place.chars), format, m_tables);
        m_out += words->second;
    }
    m_place.chars = id;
}

void Writer::UseField(const Shared<Field>& field)
{
    if (m_fields.empty() && !field)
        return;
    const std::vector<Shared<Field>> path = PathOf(field);
    CloseFields(path);
    for (std::size_t open = m_fields.size(); open < path.size(); ++open)
        OpenField(path[open]);
}

/// Closes the open fields that are not on the path.
void Writer::CloseFields(std::span<const Shared<Field>> path)
{
    std::size_t common = 0;
    while (common < path.size() && common < m_fields.size() && path[common] == m_fields[common].field)
        ++common;
    while (m_fields.size() > common)
        CloseField();
}

void Writer::OpenField(const Shared<Field>& field)
{
    m_fields.push_back({field, m_place});
    m_out += "{\\field";
    m_out += field->switches;
    m_out += "{\\*\\fldinst ";
    AppendEscaped(field->instruction, m_out);
    m_out += "}{\\fldrslt ";
}

void Writer::CloseField()
{
    m_out += "}}";
    m_place = m_fields.back().outside;
    m_fields.pop_back();
}

std::string WriteRtf(const Document& document, RtfScope scope) { return Writer(document, scope).Write(); }

}  // namespace quillmarker
