#include "support/random_document.h"

#include "engine/document/paragraph_builder.h"
#include "engine/document/tree.h"
#include "support/sample.h"

namespace quillmarker
{
namespace
{

void AppendRandomText(std::mt19937& random, ParagraphBuilder& builder, std::u16string_view alphabet, FormatTable& table)
{
    for (std::int32_t pieces = Below(random, 4); pieces > 0; --pieces)
    {
        const CharFormatId format = RandomCharFormat(random, table);
        builder.Append(RandomText(random, alphabet, Below(random, 6)), format);
        if (Below(random, 8) == 0)
            builder.Append(Shared(SamplePicture()), format);
    }
}

}  // namespace

std::int32_t Below(std::mt19937& random, std::int32_t limit)
{
    return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(limit));
}

std::u16string RandomText(std::mt19937& random, std::u16string_view alphabet, std::int32_t length)
{
    std::u16string text;
    for (; length > 0; --length)
        text += alphabet[static_cast<std::size_t>(Below(random, static_cast<std::int32_t>(alphabet.size())))];
    return text;
}

TextRange RandomRange(std::mt19937& random, const Document& document)
{
    const std::int32_t a = Below(random, document.Size() + 1);
    const std::int32_t b = Below(random, document.Size() + 1);
    return {{std::min(a, b)}, {std::max(a, b)}};
}

CharFormatId RandomCharFormat(std::mt19937& random, FormatTable& table)
{
    CharFormat format = DefaultCharFormat();
    format.bold = Below(random, 2) == 0;
    format.size = Points(Below(random, 3) + 9);
    format.hidden = Below(random, 5) == 0;
    return table.Intern(format);
}

ParagraphFormatId RandomParagraphFormat(std::mt19937& random, FormatTable& table)
{
    ParagraphFormat format;
    format.leftIndent = Inches(Below(random, 3));
    format.keepLines = Below(random, 2) == 0;
    return table.Intern(format);
}

Document RandomDocument(std::mt19937& random, std::u16string_view alphabet, std::int32_t paragraphs)
{
    const Document start;
    FormatTable& table = start.SharedFormats();
    ParagraphBuilder builder;
    std::vector<ParagraphRef> all;
    while (static_cast<std::int32_t>(all.size()) < paragraphs)
    {
        AppendRandomText(random, builder, alphabet, table);
        const bool isLast = static_cast<std::int32_t>(all.size()) + 1 == paragraphs;
        const auto kind = isLast ? Mark::Break : static_cast<Mark>(Below(random, 3));
        const ParagraphMark mark = {
            .kind = kind,
            .tableDepth = static_cast<std::uint16_t>(kind == Mark::Break ? 0 : Below(random, 3) + 1),
            .charFormat = RandomCharFormat(random, table),
            .format = RandomParagraphFormat(random, table),
        };
        const auto row = kind == Mark::Row ? Shared(TableRow{.height = {Below(random, 9)}}) : Shared<TableRow>();
        all.push_back(builder.Finish(mark, row, {}));
    }
    return start.WithBody(Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(all)})));
}

}  // namespace quillmarker
