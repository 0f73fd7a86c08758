#include "engine/layout/number_index.h"

#include "engine/document/edit.h"
#include "engine/document/format_edit.h"
#include "support/random_document.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillmarker
{
namespace
{

using std::string_literals::operator""s;
using Texts = std::vector<std::u16string>;

Shared<Numbering> Numbered(std::int32_t list, std::int32_t level = 0, NumberKind kind = NumberKind::Decimal)
{
    const std::u16string text = level == 0 ? u"\0."s : u"\0.\1)"s;
    return Shared(Numbering{.kind = kind, .level = level, .list = list, .text = text});
}

Texts CountedFromTheStart(const Document& document)
{
    Texts texts;
    NumberCounter counter;
    document.Visit(0, [&](const Paragraph& paragraph) {
        const Shared<Numbering>& numbering = document.FormatOf(paragraph.Ending().format).numbering;
        texts.push_back(counter.Next(numbering ? &*numbering : nullptr));
        return true;
    });
    return texts;
}

Texts AllOf(NumberIndex& index, const Document& document)
{
    Texts texts;
    for (std::int32_t i = 0; i < document.ParagraphCount(); ++i)
        texts.push_back(index.NumberOf(document, i));
    return texts;
}

Document Lines(std::int32_t count)
{
    std::u16string text;
    for (; count > 1; --count)
        text += u"x\r\n";
    const Document empty;
    return WithText(empty, {{0}, {0}}, text, empty.ParagraphAt(0).Ending().charFormat);
}

Document WithNumbering(const Document& document, std::int32_t first, std::int32_t last, Shared<Numbering> numbering)
{
    return WithParagraphFormat(document, {document.StartOf(first), document.StartOf(last)},
                               {.numbering = std::move(numbering)});
}

TEST(NumberIndex, CountsAnyParagraph)
{
    const Document document = WithNumbering(Lines(2000), 100, 1900, Numbered(1));
    NumberIndex index;
    EXPECT_EQ(index.NumberOf(document, 1500), u"1401.");
    EXPECT_EQ(index.NumberOf(document, 100), u"1.");
    EXPECT_EQ(index.NumberOf(document, 99), u"");
    EXPECT_EQ(index.NumberOf(document, 1899), u"1800.");
    EXPECT_EQ(index.NumberOf(document, 1899), u"1800.");
    EXPECT_EQ(index.NumberOf(document, 1950), u"");
}

TEST(NumberIndex, AnOldListContinuesWhatStandsBeforeIt)
{
    Document document = WithNumbering(Lines(7), 0, 6, Numbered(0));
    NumberIndex index;
    EXPECT_EQ(AllOf(index, document), (Texts{u"1.", u"2.", u"3.", u"4.", u"5.", u"6.", u""}));
    const Document before = document;
    document = WithNumbering(document, 2, 3, {});
    index.Follow(before, document, Differences(before, document));
    EXPECT_EQ(AllOf(index, document), (Texts{u"1.", u"2.", u"", u"1.", u"2.", u"3.", u""}));
}

/// One of the edits a user or a host makes.
Document Edited(std::mt19937& random, const Document& document)
{
    const std::int32_t count = document.ParagraphCount();
    const std::int32_t first = Below(random, count);
    const std::int32_t last = std::min(count - 1, first + Below(random, 12));
    const Position at = document.StartOf(first);
    const CharFormatId format = document.ParagraphAt(first).Ending().charFormat;
    switch (Below(random, 6))
    {
    case 0:
        return WithText(document, {at, at}, u"typed", format);
    case 1:
        return WithText(document, {at, at}, u"a\r\nb\r\n", format);
    case 2:
        return WithText(document, {at, document.StartOf(last)}, u"", format);
    case 3:
        return WithNumbering(document, first, last, {});
    case 4:
        return WithFragment(document, {at, at}, Slice(document, {document.StartOf(last / 2), at}));
    default:
        return WithNumbering(document, first, last,
                             Numbered(Below(random, 3), Below(random, 2), static_cast<NumberKind>(Below(random, 4))));
    }
}

TEST(NumberIndexLaw, AfterAnyEditsItIsWhatAFullCountGives)
{
    std::mt19937 random(5);
    Document document = WithNumbering(Lines(1500), 0, 1500, Numbered(1));
    NumberIndex index;
    for (int round = 0; round < 400; ++round)
    {
        const Document before = document;
        for (std::int32_t edits = 1 + Below(random, 3); edits > 0; --edits)
            document = Edited(random, document);
        if (document.ParagraphCount() > 3000)
            document = WithText(document, {{0}, document.StartOf(1500)}, u"", {});
        index.Follow(before, document, Differences(before, document));
        const Texts expected = CountedFromTheStart(document);
        for (int probe = 0; probe < 4; ++probe)
        {
            const std::int32_t at = Below(random, document.ParagraphCount());
            ASSERT_EQ(index.NumberOf(document, at), expected[static_cast<std::size_t>(at)]) << round << " at " << at;
        }
        if (round % 20 == 0)
        {
            ASSERT_EQ(AllOf(index, document), expected) << round;
        }
    }
    index.Reset();
    EXPECT_EQ(AllOf(index, document), CountedFromTheStart(document));
}

}  // namespace
}  // namespace quillmarker
