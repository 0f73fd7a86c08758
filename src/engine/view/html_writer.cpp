#include "html_writer.h"

#include "html_inline_writer.h"
#include "html_style.h"
#include "html_table_tags.h"

#include <quillmarker/numbering_text.h>

#include <algorithm>

namespace quillmarker
{
namespace
{

constexpr std::string_view kHead = "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"></head><body>\n"
                                   "<!--StartFragment-->";
constexpr std::string_view kTail = "<!--EndFragment-->\n</body></html>\n";

/// The paragraphs of a range.
class HtmlWriter
{
public:
    HtmlWriter(const Document& document, TextRange range)
        : m_document(document),
          m_begin(document.Locate(range.begin)),
          m_end(document.Locate(range.end)),
          m_inline(document, m_out),
          m_tables(m_out)
    {
    }

    std::string Write()
    {
        m_out = kHead;
        if (m_begin.paragraph == m_end.paragraph)
            WriteInline();
        else
            WriteParagraphs();
        return m_out.append(kTail);
    }

private:
    void WriteInline()
    {
        m_out += "<span style=\"white-space:pre-wrap\">";
        const Paragraph& paragraph = m_document.ParagraphAt(m_begin.paragraph);
        m_inline.Write(paragraph, static_cast<std::uint32_t>(m_begin.offset), static_cast<std::uint32_t>(m_end.offset));
        m_out += "</span>";
    }

    void WriteParagraphs()
    {
        std::int32_t index = 0;
        m_document.Visit(0, [&](const Paragraph& paragraph) {
            // Numbers are counted from the document's start.
            const Numbering* numbering = m_document.FormatOf(paragraph.Ending().format).numbering.Identity();
            const std::u16string number = m_numbers.Next(numbering);
            if (index >= m_begin.paragraph)
                WriteParagraph(paragraph, index, number);
            return ++index <= m_end.paragraph;
        });
        m_tables.Leave(0);
    }

    void WriteParagraph(const Paragraph& paragraph, std::int32_t index, const std::u16string& number)
    {
        const bool isLast = index == m_end.paragraph;
        if (isLast && m_end.offset == 0)
            return;
        const ParagraphMark& mark = paragraph.Ending();
        const std::uint32_t begin = index == m_begin.paragraph ? static_cast<std::uint32_t>(m_begin.offset) : 0;
        const auto length = static_cast<std::uint32_t>(paragraph.Text().size());
        const std::uint32_t end = isLast ? std::min(static_cast<std::uint32_t>(m_end.offset), length) : length;
        if (mark.kind == Mark::Row)
            return EndRow(mark.tableDepth);
        m_tables.Enter(std::min<int>(mark.tableDepth, kMaxTableDepth));
        const bool isWhole = !isLast || end == length;
        if (!IsHiddenWhole(paragraph, begin, end, isWhole))
            WriteBlock(paragraph, begin, end, begin == 0 ? number : std::u16string());
        if (mark.kind == Mark::Cell && !isLast && m_tables.Depth() > 0)
            m_tables.EndCell();
    }

    void EndRow(int depth)
    {
        m_tables.Leave(std::min(depth, kMaxTableDepth));
        if (m_tables.Depth() > 0)
            m_tables.EndRow();
    }

    /// A paragraph that is hidden with its mark is no line.
    bool IsHiddenWhole(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end, bool isWhole) const
    {
        const auto isHidden = [&](CharFormatId id) { return m_document.FormatOf(id).hidden; };
        if (!isWhole || paragraph.Ending().kind != Mark::Break || !isHidden(paragraph.Ending().charFormat))
            return false;
        const auto runs = paragraph.Runs();
        for (auto run = std::ranges::upper_bound(runs, begin, {}, &Run::end); begin < end; begin = (run++)->end)
        {
            if (!isHidden(run->format))
                return false;
        }
        return true;
    }

    void WriteBlock(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end, const std::u16string& number)
    {
        const ParagraphFormat& format = m_document.FormatOf(paragraph.Ending().format);
        m_out += format.rightToLeft ? "<p dir=\"rtl\" style=\"" : "<p style=\"";
        m_out += StyleOf(format) + "\">";
        const std::size_t before = m_out.size();
        if (!number.empty())
            m_inline.WriteNumber(paragraph, number);
        m_inline.Write(paragraph, begin, end);
        // An empty paragraph has no height otherwise.
        m_out += m_out.size() == before ? "<br></p>\n" : "</p>\n";
    }

    static constexpr int kMaxTableDepth = 32;

    const Document& m_document;
    Location m_begin;
    Location m_end;
    std::string m_out;
    HtmlInlineWriter m_inline;
    HtmlTableTags m_tables;
    NumberCounter m_numbers;
};

}  // namespace

std::string WriteHtml(const Document& document, TextRange range) { return HtmlWriter(document, range).Write(); }

}  // namespace quillmarker
