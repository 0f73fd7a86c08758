#include <quillmarker/document.h>

#include "engine/document/paragraph_builder.h"
#include "engine/document/text_copy.h"
#include "engine/document/tree.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

const ParagraphTree& TreeOf(const Body& body) { return body.Content()->tree; }

}  // namespace

CharFormat DefaultCharFormat()
{
    CharFormat format;
    format.font = Name(u"Arial");
    format.family = FontFamily::Swiss;
    format.size = Points(10);
    return format;
}

Document::Document(const CharFormat& format) : m_formats(std::make_shared<FormatTable>())
{
    ParagraphMark mark;
    mark.charFormat = m_formats->Intern(format);
    mark.format = m_formats->Intern(ParagraphFormat());
    const ParagraphRef only = ParagraphBuilder().Finish(mark);
    m_body = Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree({&only, 1})}));
}

Document::Document(Body body, std::shared_ptr<FormatTable> formats, Shared<DocumentFormat> format)
    : m_body(std::move(body)), m_formats(std::move(formats)), m_properties(std::move(format))
{
}

std::int32_t Document::Size() const
{
    const ParagraphTree& tree = TreeOf(m_body);
    const Paragraph& last = *tree.At(tree.Count() - 1);
    return static_cast<std::int32_t>(tree.Total().units) - MarkLength(last.Ending().kind);
}

std::int32_t Document::ParagraphCount() const { return TreeOf(m_body).Count(); }

const Paragraph& Document::ParagraphAt(std::int32_t index) const { return *TreeOf(m_body).At(index); }

ParagraphRef Document::SharedParagraphAt(std::int32_t index) const { return TreeOf(m_body).At(index); }

Position Document::StartOf(std::int32_t paragraph) const
{
    if (paragraph >= ParagraphCount())
        return {Size()};
    return {static_cast<std::int32_t>(TreeOf(m_body).UnitsBefore(std::max(paragraph, 0)))};
}

Location Document::Locate(Position position) const
{
    const std::int32_t units = std::clamp(position.value, 0, Size());
    const auto found = TreeOf(m_body).Find(units);
    return {found.paragraph, units - static_cast<std::int32_t>(found.unitsBefore)};
}

void Document::Visit(std::int32_t first, const std::function<bool(const Paragraph&)>& visit) const
{
    TreeOf(m_body).Visit(first, [&](const ParagraphRef& paragraph) { return visit(*paragraph); });
}

std::int32_t Document::RowMarkOf(std::int32_t paragraph) const
{
    const std::uint16_t depth = ParagraphAt(paragraph).Ending().tableDepth;
    if (depth == 0)
        return -1;
    const std::int32_t found = TreeOf(m_body).FindRowMark(paragraph, depth);
    return found >= 0 && ParagraphAt(found).Ending().tableDepth == depth ? found : -1;
}

std::u16string Document::Text() const { return Text({{0}, {Size()}}); }

std::u16string Document::Text(TextRange range) const
{
    std::u16string text;
    const Location begin = Locate(range.begin);
    std::int32_t left = std::min(range.end.value, Size()) - std::max(range.begin.value, 0);
    if (left <= 0)
        return text;
    text.reserve(static_cast<std::size_t>(left));
    std::int32_t offset = begin.offset;
    TreeOf(m_body).Visit(begin.paragraph, [&](const ParagraphRef& paragraph) {
        const std::int32_t take = std::min(left, paragraph->Length() - offset);
        AppendText(*paragraph, offset, offset + take, text);
        left -= take;
        offset = 0;
        return left > 0;
    });
    return text;
}

const DocumentFormat& Document::Properties() const
{
    static const DocumentFormat none;
    return m_properties ? *m_properties : none;
}

Document Document::WithProperties(DocumentFormat properties) const
{
    return {m_body, m_formats,
            properties == DocumentFormat() ? Shared<DocumentFormat>() : Shared(std::move(properties))};
}

Document Document::Detached() const { return {m_body, std::make_shared<FormatTable>(*m_formats), m_properties}; }

bool Document::IsSameAs(const Document& other) const
{
    return m_formats == other.m_formats && m_properties.Identity() == other.m_properties.Identity() &&
           (m_body == other.m_body || TreeOf(m_body).Root() == TreeOf(other.m_body).Root());
}

}  // namespace quillmarker
