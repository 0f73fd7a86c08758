#include "engine/document/edit.h"

#include "engine/document/field_fit.h"
#include "engine/document/format_edit.h"
#include "engine/document/paragraph_builder.h"
#include "engine/document/reinterned.h"
#include "engine/document/tree.h"
#include "engine/document/utf.h"

#include <algorithm>
#include <limits>

namespace quillmarker
{
namespace
{

/// Where the paragraphs touched by an edit begin and end, and what of them stays.
class Splice
{
public:
    Splice(const Document& document, TextRange range) : m_document(document)
    {
        const TextRange snapped = Snapped(document, range);
        m_begin = document.Locate(snapped.begin);
        m_end = document.Locate(snapped.end);
        m_last = document.SharedParagraphAt(m_end.paragraph);
        m_builder.Append(*document.SharedParagraphAt(m_begin.paragraph), 0, std::uint32_t(m_begin.offset));
    }

    ParagraphBuilder& Builder() { return m_builder; }

    /// The paragraph whose mark stays.
    const Paragraph& Last() const { return *m_last; }

    void Add(ParagraphRef paragraph) { m_paragraphs.push_back(std::move(paragraph)); }

    Document Finish()
    {
        m_builder.Append(*m_last, std::uint32_t(m_end.offset), std::numeric_limits<std::uint32_t>::max());
        Add(m_builder.FinishLike(*m_last));
        const ParagraphTree& tree = m_document.Content().Content()->tree;
        return m_document.WithBody(Body(std::make_shared<BodyContent>(
            BodyContent{tree.Replaced(m_begin.paragraph, m_end.paragraph + 1, m_paragraphs)})));
    }

private:
    const Document& m_document;
    Location m_begin;
    Location m_end;
    ParagraphRef m_last;
    ParagraphBuilder m_builder;
    std::vector<ParagraphRef> m_paragraphs;
};

/// Calls `piece(text)` for the text between line ends and `lineEnd()` at each line end; NULs are left out.
template <class Piece, class LineEnd>
void ForEachLine(std::u16string_view text, Piece piece, LineEnd lineEnd)
{
    constexpr std::u16string_view kStops(u"\r\n\0", 3);
    while (!text.empty())
    {
        const std::size_t stop = std::min(text.find_first_of(kStops), text.size());
        piece(text.substr(0, stop));
        if (stop == text.size())
            return;
        const bool isPair = text.substr(stop, 2) == u"\r\n";
        if (text[stop] != u'\0')
            lineEnd();
        text.remove_prefix(stop + (isPair ? 2 : 1));
    }
}

}  // namespace

TextRange Snapped(const Document& document, TextRange range)
{
    const Position end{document.Size()};
    range.begin = std::clamp(range.begin, Position{0}, end);
    range.end = std::clamp(range.end, range.begin, end);
    const auto insideMark = [&](Position position) {
        const Location at = document.Locate(position);
        return at.offset > static_cast<std::int32_t>(document.ParagraphAt(at.paragraph).Text().size());
    };
    const bool wasEmpty = range.IsEmpty();
    if (insideMark(range.begin))
        range.begin = range.begin - 1;
    if (wasEmpty)
        range.end = range.begin;
    else if (insideMark(range.end))
        range.end = range.end + 1;
    return range;
}

Document WithText(const Document& document, TextRange range, std::u16string_view text, CharFormatId format)
{
    Splice splice(document, range);
    ParagraphMark mark = splice.Last().Ending();
    mark.kind = Mark::Break;
    mark.charFormat = format;
    ForEachLine(
        text, [&](std::u16string_view piece) { splice.Builder().Append(piece, format); },
        [&] { splice.Add(splice.Builder().Finish(mark)); });
    return splice.Finish();
}

Document WithObject(const Document& document, TextRange range, Shared<InlineObject> object, CharFormatId format)
{
    Splice splice(document, range);
    splice.Builder().Append(std::move(object), format);
    return splice.Finish();
}

Document WithFragment(const Document& document, TextRange range, const Document& given)
{
    const Document fragment = WithFieldsFitted(document, Snapped(document, range), given);
    Splice splice(document, range);
    FormatTransfer transfer(fragment.Formats(), document.SharedFormats());
    const std::int32_t last = fragment.ParagraphCount() - 1;
    std::int32_t index = 0;
    fragment.Content().Content()->tree.Visit(0, [&](const ParagraphRef& shared) {
        const ParagraphRef paragraph = transfer(shared);
        const auto length = static_cast<std::uint32_t>(paragraph->Text().size());
        if (index == 0 || index == last)
            splice.Builder().Append(*paragraph, 0, length);
        if (index == 0 && index < last)
            splice.Add(splice.Builder().FinishLike(*paragraph));
        else if (index < last)
            splice.Add(paragraph);
        return ++index <= last;
    });
    return splice.Finish();
}

Document Slice(const Document& document, TextRange range)
{
    const TextRange snapped = Snapped(document, range);
    const Location begin = document.Locate(snapped.begin);
    const Location end = document.Locate(snapped.end);
    std::vector<ParagraphRef> paragraphs;
    ParagraphBuilder builder;
    std::int32_t index = begin.paragraph;
    document.Content().Content()->tree.Visit(index, [&](const ParagraphRef& paragraph) {
        const std::uint32_t from = index == begin.paragraph ? std::uint32_t(begin.offset) : 0;
        if (index < end.paragraph && from == 0)
            paragraphs.push_back(paragraph);
        else
        {
            const bool isLast = index == end.paragraph;
            builder.Append(*paragraph, from, isLast ? std::uint32_t(end.offset) : std::uint32_t(paragraph->Length()));
            ParagraphMark mark = paragraph->Ending();
            mark.kind = Mark::Break;
            paragraphs.push_back(isLast ? builder.Finish(mark) : builder.FinishLike(*paragraph));
        }
        return ++index <= end.paragraph;
    });
    return document.WithBody(Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(paragraphs)})));
}

std::int32_t LengthInDocument(std::u16string_view text)
{
    std::size_t length = 0;
    ForEachLine(
        text, [&](std::u16string_view piece) { length += piece.size(); }, [&] { length += 2; });
    return static_cast<std::int32_t>(std::min<std::size_t>(length, std::numeric_limits<std::int32_t>::max()));
}

std::u16string_view StartThatFits(std::u16string_view text, std::int32_t room)
{
    std::size_t begin = 0;
    while (begin < text.size())
    {
        const std::u16string_view rest = text.substr(begin);
        const std::u16string_view next = rest.substr(0, BeginsWithPair(rest) ? 2 : 1);
        room -= LengthInDocument(next);
        if (room < 0)
            break;
        begin += next.size();
    }
    return text.substr(0, begin);
}

}  // namespace quillmarker
