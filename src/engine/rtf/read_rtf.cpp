#include "engine/document/edit.h"
#include "engine/document/utf.h"
#include "engine/rtf/plain_text.h"
#include "engine/rtf/reader.h"

#include <quillmarker/rtf.h>

namespace quillmarker
{
namespace
{

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// Without what may stand before the first brace: a byte order mark, blanks, line ends, NULs.
std::string_view WithoutLead(std::string_view source)
{
    if (source.starts_with(kUtf8Mark))
        source.remove_prefix(kUtf8Mark.size());
    const std::size_t begin = source.find_first_not_of(std::string_view(" \t\r\n\0", 5));
    return begin == source.npos ? std::string_view() : source.substr(begin);
}

Document PlainDocument(std::u16string_view text, const RtfReading& options)
{
    Document empty(options.defaultFormat);
    if (options.formats)
    {
        const auto formats = options.formats;
        ParagraphMark mark{Mark::Break, 0, formats->Intern(options.defaultFormat), formats->Intern(ParagraphFormat())};
        Story story;
        empty = Document(story.Finish(mark, false), formats, {});
    }
    return WithText(empty, {}, text, empty.ParagraphAt(0).Ending().charFormat);
}

}  // namespace

bool IsRtf(std::string_view bytes)
{
    const std::string_view source = WithoutLead(bytes);
    return source.starts_with("{\\rtf") || source.starts_with("{\\urtf");
}

Document ReadRtf(std::string_view bytes, const RtfReading& options)
{
    if (!IsRtf(bytes))
        return PlainDocument(DecodePlainText(bytes, options.codePage), options);
    return Reader(WithoutLead(bytes), SourceKind::Bytes, options).Read();
}

Document ReadRtf(std::u16string_view text, const RtfReading& options)
{
    const std::string source = ToUtf8(text);
    if (!IsRtf(source))
        return PlainDocument(text, options);
    return Reader(WithoutLead(source), SourceKind::Utf8, options).Read();
}

void VisitRtf(std::string_view bytes, const ParagraphVisitor& visit, const RtfReading& options)
{
    if (IsRtf(bytes))
        return Reader(WithoutLead(bytes), SourceKind::Bytes, options).Visit(visit);
    const Document document = PlainDocument(DecodePlainText(bytes, options.codePage), options);
    document.Visit(0, [&](const Paragraph& paragraph) { return visit(paragraph, document.Formats()); });
}

}  // namespace quillmarker
