#include "html_inline_writer.h"

#include "html_style.h"
#include "picture_exchange.h"

#include "engine/layout/picture_image.h"

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

/// Objects hold documents that hold objects; deeper ones are left out.
constexpr int kMaxNesting = 4;

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

}  // namespace

void HtmlInlineWriter::Write(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end)
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

void HtmlInlineWriter::WriteNumber(const Paragraph& paragraph, const std::u16string& number)
{
    const ParagraphMark& mark = paragraph.Ending();
    const Numbering& numbering = *m_document.FormatOf(mark.format).numbering;
    CharFormat format = m_document.FormatOf(mark.charFormat);
    format.underline = Underline::None;
    const HtmlTags tags = TagsOf(format);
    m_out += tags.open + HtmlText(NumberForOthers(number, numbering)) + HtmlText(FollowOf(numbering)) + tags.close;
}

void HtmlInlineWriter::WriteRun(const Paragraph& paragraph, std::uint32_t begin, std::uint32_t end,
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

void HtmlInlineWriter::WriteObject(const InlineObject* object)
{
    if (!object)
        return;
    if (const auto* picture = std::get_if<InlinePicture>(object))
        return WritePicture(*picture);
    const auto* embedded = std::get_if<EmbeddedObject>(object);
    if (!embedded || embedded->result.IsAbsent() || m_nesting >= kMaxNesting)
        return;  // a note is not part of the line
    const Document result = m_document.Nested(embedded->result);
    HtmlInlineWriter writer(result, m_out, m_nesting + 1);
    bool isFirst = true;
    result.Visit(0, [&](const Paragraph& paragraph) {
        m_out += isFirst ? "" : "<br>";
        isFirst = false;
        writer.Write(paragraph, 0, static_cast<std::uint32_t>(paragraph.Text().size()));
        return true;
    });
}

void HtmlInlineWriter::WritePicture(const InlinePicture& picture)
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

void HtmlInlineWriter::SetLink(const std::u16string& target)
{
    if (target == m_link)
        return;
    if (!m_link.empty())
        m_out += "</a>";
    if (!target.empty())
        m_out += "<a href=\"" + HtmlAttribute(target) + "\">";
    m_link = target;
}

}  // namespace quillmarker
