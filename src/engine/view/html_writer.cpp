#include "html_writer.h"

#include "html_style.h"
#include "picture_exchange.h"

#include "engine/layout/picture_image.h"

#include <quillmarker/numbering_text.h>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

/// Objects hold documents that hold objects; deeper ones are left out.
constexpr int kMaxNesting = 4;

constexpr std::string_view kHead = "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"></head><body>\n"
                                   "<!--StartFragment-->";
constexpr std::string_view kTail = "<!--EndFragment-->\n</body></html>\n";

/// The link of a field or of one that it stands in; empty when there is none.
std::u16string LinkOf(const Shared<Field>& field)
{
    for (const Field* at = field.Identity(); at; at = at->outer.Identity())
    {
        if (std::u16string target = LinkTarget(*at); !target.empty())
            return target;
    }
    return {};
}

/// A bullet of a symbol font is shown wrong in any other.
std::u16string NumberForOthers(std::u16string number, const Numbering& numbering)
{
    const auto isPrivate = [](char16_t unit) { return unit >= 0xE000 && unit <= 0xF8FF; };
    constexpr std::uint8_t kSymbolCharset = 2;
    if (numbering.kind == NumberKind::Bullet &&
        (numbering.fontCharset == kSymbolCharset || std::ranges::any_of(number, isPrivate)))
        return u"\u2022";
    return number;
}

std::u16string_view FollowOf(const Numbering& numbering)
{
    switch (numbering.follow)
    {
    case 0:
        return u"\t";
    case 1:
        return u" ";
    default:
        return {};
    }
}

/// What stands in a line: text, links, pictures.
class InlineWriter
{
public:
    InlineWriter(const Document& document, std::string& out, int nesting)
        : m_document(document), m_out(out), m_nesting(nesting)
    {
    }

    void Write(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end);
    void WriteNumber(const Paragraph& paragraph, const std::u16string& number);

private:
    void WriteRun(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end, const CharFormat& format);
    void WriteObject(const InlineObject* object);
    void WritePicture(const Picture& picture);
    void SetLink(const std::u16string& target);

    const Document& m_document;
    std::string& m_out;
    int m_nesting;
    std::u16string m_link;
};

void InlineWriter::Write(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end)
{
    const auto runs = paragraph.Runs();
    end = std::min(end, static_cast<std::uint32_t>(paragraph.Text().size()));
    for (auto run = std::ranges::upper_bound(runs, begin, {}, &Run::end); begin < end; ++run)
    {
        const std::uint32_t stop = std::min(run->end, end);
        const CharFormat& format = m_document.FormatOf(run->format);
        if (!format.hidden)
            WriteRun(paragraph, begin, stop, format);
        begin = stop;
    }
    SetLink({});
}

void InlineWriter::WriteNumber(const Paragraph& paragraph, const std::u16string& number)
{
    const ParagraphMark& mark = paragraph.Ending();
    const Numbering& numbering = *m_document.FormatOf(mark.format).numbering;
    CharFormat format = m_document.FormatOf(mark.charFormat);
    format.underline = Underline::None;
    const HtmlTags tags = TagsOf(format);
    m_out += tags.open + HtmlText(NumberForOthers(number, numbering)) + HtmlText(FollowOf(numbering)) + tags.close;
}

void InlineWriter::WriteRun(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end,
                            const CharFormat& format)
{
    const std::u16string target = LinkOf(format.field);
    SetLink(IsCommonLink(target) ? target : std::u16string());
    const HtmlTags tags = TagsOf(format);
    m_out += tags.open;
    const std::u16string_view text = paragraph.Text().substr(0, end);
    while (begin < end)
    {
        const std::size_t object = std::min<std::size_t>(text.find(kObjectCharacter, begin), end);
        m_out += HtmlText(text.substr(begin, object - begin));
        if (object < end)
            WriteObject(paragraph.ObjectAt(static_cast<std::uint32_t>(object)));
        begin = static_cast<std::uint32_t>(object) + 1;
    }
    m_out += tags.close;
}

void InlineWriter::WriteObject(const InlineObject* object)
{
    if (!object)
        return;
    if (const auto* picture = std::get_if<Picture>(object))
        return WritePicture(*picture);
    const auto* embedded = std::get_if<EmbeddedObject>(object);
    if (!embedded || embedded->result.IsAbsent() || m_nesting >= kMaxNesting)
        return;  // a note is not part of the line
    const Document result = m_document.Nested(embedded->result);
    InlineWriter writer(result, m_out, m_nesting + 1);
    bool isFirst = true;
    result.Visit(0, [&](const Paragraph& paragraph) {
        m_out += isFirst ? "" : "<br>";
        isFirst = false;
        writer.Write(paragraph, 0, static_cast<std::uint32_t>(paragraph.Text().size()));
        return true;
    });
}

void InlineWriter::WritePicture(const Picture& picture)
{
    const std::optional<PortablePicture> portable = PortableForm(picture);
    if (!portable)
        return;
    constexpr qreal kTwipsPerPixel = 1440.0 / 96;
    const QSizeF shown = ShownSize(picture);
    const auto pixels = [](qreal twips) { return std::to_string(std::max(1L, std::lround(twips / kTwipsPerPixel))); };
    m_out += "<img src=\"data:" + std::string(portable->mimeType) + ";base64,";
    m_out += portable->bytes.toBase64().toStdString();
    m_out += "\" width=\"" + pixels(shown.width()) + "\" height=\"" + pixels(shown.height()) + "\" alt=\"\">";
}

void InlineWriter::SetLink(const std::u16string& target)
{
    if (target == m_link)
        return;
    if (!m_link.empty())
        m_out += "</a>";
    if (!target.empty())
        m_out += "<a href=\"" + HtmlAttribute(target) + "\">";
    m_link = target;
}

/// Opens and closes tables so that every paragraph stands where it belongs, even when the range begins inside a row.
class TableTags
{
public:
    explicit TableTags(std::string& out) : m_out(out) {}

    /// The next paragraph stands in `depth` tables.
    void Enter(int depth)
    {
        Leave(depth);
        for (int level = 0; level < depth; ++level)
        {
            if (level == static_cast<int>(m_levels.size()))
            {
                m_out += "<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\">";
                m_levels.emplace_back();
            }
            Level& at = m_levels[static_cast<std::size_t>(level)];
            m_out += at.inRow ? "" : "<tr>";
            m_out += at.inCell ? "" : "<td>";
            at = {true, true};
        }
    }

    void EndCell()
    {
        m_out += "</td>";
        m_levels.back().inCell = false;
    }

    void EndRow()
    {
        m_out += m_levels.back().inCell ? "</td>" : "";
        m_out += m_levels.back().inRow ? "</tr>\n" : "";
        m_levels.back() = {};
    }

    void Leave(int depth)
    {
        while (static_cast<int>(m_levels.size()) > depth)
        {
            EndRow();
            m_out += "</table>\n";
            m_levels.pop_back();
        }
    }

    int Depth() const { return static_cast<int>(m_levels.size()); }

private:
    struct Level
    {
        bool inRow = false;
        bool inCell = false;
    };

    std::string& m_out;
    std::vector<Level> m_levels;
};

/// The paragraphs of a range.
class HtmlWriter
{
public:
    HtmlWriter(const Document& document, TextRange range)
        : m_document(document),
          m_begin(document.Locate(range.begin)),
          m_end(document.Locate(range.end)),
          m_inline(document, m_out, 0),
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
    InlineWriter m_inline;
    TableTags m_tables;
    NumberCounter m_numbers;
};

}  // namespace

std::string WriteHtml(const Document& document, TextRange range) { return HtmlWriter(document, range).Write(); }

}  // namespace quillmarker
