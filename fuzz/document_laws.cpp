#include "document_laws.h"

#include "require.h"

#include <algorithm>
#include <string_view>
#include <variant>

namespace quillmarker
{
namespace
{

void RequireRuns(const Document& document, const Paragraph& paragraph)
{
    std::uint32_t covered = 0;
    const Run* before = nullptr;
    for (const Run& run : paragraph.Runs())
    {
        Require(run.end > covered, "no run is empty");
        Require(!before || before->format != run.format, "neighbouring runs differ");
        Require(static_cast<std::size_t>(run.format) < document.Formats().CharFormatCount(), "a run's format exists");
        covered = run.end;
        before = &run;
    }
    Require(covered == paragraph.Text().size(), "runs cover the text");
    const ParagraphMark& mark = paragraph.Ending();
    Require(static_cast<std::size_t>(mark.charFormat) < document.Formats().CharFormatCount(), "a mark's format exists");
    Require(static_cast<std::size_t>(mark.format) < document.Formats().ParagraphFormatCount(),
            "a paragraph's format exists");
}

void RequireObjects(const Paragraph& paragraph)
{
    std::int64_t before = -1;
    for (const PlacedObject& placed : paragraph.Extras().objects)
    {
        Require(std::int64_t{placed.offset} > before, "objects stand in ascending order");
        Require(placed.offset < paragraph.Text().size(), "an object stands inside the text");
        Require(paragraph.Text()[placed.offset] == kObjectCharacter, "an object stands on its character");
        Require(placed.object && paragraph.ObjectAt(placed.offset) == &*placed.object, "an object is found");
        before = placed.offset;
    }
}

void RequireMark(const Document& document, const Paragraph& paragraph, std::int32_t index)
{
    const ParagraphMark& mark = paragraph.Ending();
    Require(mark.kind == Mark::Break || mark.tableDepth > 0, "a cell or row belongs to a table");
    const std::int32_t row = document.RowMarkOf(index);
    if (row < 0)
        return;
    Require(row >= index && row < document.ParagraphCount(), "a row ends behind its cells");
    const ParagraphMark& end = document.ParagraphAt(row).Ending();
    Require(end.kind == Mark::Row && end.tableDepth == mark.tableDepth, "a row's mark ends the row of this depth");
}

void RequirePlace(const Document& document, const Paragraph& paragraph, std::int32_t index, std::int32_t start)
{
    const std::int32_t size = document.Size();
    Require(document.StartOf(index).value == start, "a paragraph starts where the one before it ends");
    const auto length = static_cast<std::int32_t>(paragraph.Text().size());
    for (const std::int32_t offset : {0, length / 2, length, paragraph.Length() - 1})
    {
        if (start + offset > size)
            continue;
        const Location found = document.Locate({start + offset});
        Require(found.paragraph == index && found.offset == offset, "a position is located where it was counted");
    }
}

/// What a paragraph adds to the text, by itself and slowly.
std::u16string TextOf(const Paragraph& paragraph)
{
    std::u16string text(paragraph.Text());
    for (const PlacedObject& placed : paragraph.Extras().objects)
        text[placed.offset] = u' ';
    return text + (paragraph.Ending().kind == Mark::Cell ? u"\t" : u"\r\n");
}

void Add(Extent& sum, const Extent& more)
{
    sum.units += more.units;
    sum.paragraphs += more.paragraphs;
    sum.runs += more.runs;
}

Extent NestedIn(const Document& document, const Body& body)
{
    return body.IsAbsent() ? Extent() : RequireWhole(document.Nested(body));
}

Extent NestedIn(const Document& document, const Section& section)
{
    Extent sum;
    for (const Body& header : section.headers)
        Add(sum, NestedIn(document, header));
    return sum;
}

Extent NestedIn(const Document& document, const Paragraph& paragraph)
{
    Extent sum;
    for (const PlacedObject& placed : paragraph.Extras().objects)
    {
        if (const auto* embedded = std::get_if<EmbeddedObject>(&*placed.object))
            Add(sum, NestedIn(document, embedded->result));
        else if (const auto* note = std::get_if<Note>(&*placed.object))
            Add(sum, NestedIn(document, note->body));
    }
    if (paragraph.Extras().section)
        Add(sum, NestedIn(document, *paragraph.Extras().section));
    return sum;
}

}  // namespace

Extent RequireWhole(const Document& document)
{
    const std::u16string text = document.Text();
    Require(static_cast<std::int64_t>(text.size()) == document.Size(), "the text is as long as Size says");
    Extent sum{document.Size(), document.ParagraphCount(), 0};
    std::u16string gathered;
    std::int32_t index = 0;
    document.Visit(0, [&](const Paragraph& paragraph) {
        Require(&paragraph == &document.ParagraphAt(index), "a visit meets the paragraphs in order");
        RequirePlace(document, paragraph, index, static_cast<std::int32_t>(gathered.size()));
        RequireRuns(document, paragraph);
        RequireObjects(paragraph);
        RequireMark(document, paragraph, index);
        gathered += TextOf(paragraph);
        sum.runs += static_cast<std::int64_t>(paragraph.Runs().size());
        Add(sum, NestedIn(document, paragraph));
        ++index;
        return true;
    });
    Require(index == document.ParagraphCount() && index > 0, "a visit meets every paragraph, and there is one");
    Require(gathered.size() >= text.size() && gathered.size() - text.size() <= 2 && gathered.starts_with(text),
            "the text is that of the paragraphs");
    Add(sum, NestedIn(document, document.Properties().lastSection));
    return sum;
}

void RequireSame(const Document& expected, const Document& actual, const char* law)
{
    Require(SameContent(expected, actual), law, [&] {
        const std::string first = Dump(expected);
        const std::string second = Dump(actual);
        const auto apart = std::ranges::mismatch(first, second);
        const auto at = static_cast<std::size_t>(apart.in1 - first.begin());
        const std::size_t from = at < 300 ? 0 : at - 300;
        return "dumps differ at " + std::to_string(at) + "\n--- expected\n" + first.substr(from, 900) +
               "\n--- actual\n" + second.substr(from, 900);
    });
}

std::string Printable(std::u16string_view text)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string shown;
    for (const char16_t unit : text.substr(0, 600))
    {
        if (unit >= 0x20 && unit < 0x7F)
        {
            shown += static_cast<char>(unit);
            continue;
        }
        shown += "<";
        for (int shift = 12; shift >= 0; shift -= 4)
            shown += kDigits[unit >> shift & 15];
        shown += ">";
    }
    return shown;
}

}  // namespace quillmarker
