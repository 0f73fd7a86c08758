#include <quillmarker/format_table.h>

#include "engine/document/edit.h"
#include "engine/document/format_edit.h"
#include "engine/document/paragraph_builder.h"
#include "engine/document/reinterned.h"
#include "engine/document/tree.h"
#include "support/random_document.h"
#include "support/sample.h"

#include <gtest/gtest.h>

#include <thread>

namespace quillmarker
{
namespace
{

CharFormat Sized(std::int32_t twips)
{
    CharFormat format = DefaultCharFormat();
    format.size = {twips};
    return format;
}

TEST(FormatTable, HoldsEqualFormatsOnce)
{
    FormatTable table;
    const CharFormatId first = table.Intern(Sized(200));
    CharFormat same = Sized(200);
    same.font = Name(std::u16string(u"Ari") + u"al");  // equal, in memory of its own
    EXPECT_EQ(table.Intern(same), first);
    EXPECT_EQ(table.CharFormatCount(), 1U);
    EXPECT_EQ(table.Intern(ParagraphFormat()), table.Intern(ParagraphFormat()));
    EXPECT_EQ(table.ParagraphFormatCount(), 1U);
}

TEST(FormatTable, NumbersStayValidWhileItGrows)
{
    FormatTable table;
    std::vector<CharFormatId> ids;
    const CharFormat* firstPlace = &table[table.Intern(Sized(0))];
    for (std::int32_t size = 0; size < 5000; ++size)
        ids.push_back(table.Intern(Sized(size)));
    EXPECT_EQ(table.CharFormatCount(), 5000U);
    for (std::int32_t size = 0; size < 5000; ++size)
        ASSERT_EQ(table[ids[static_cast<std::size_t>(size)]].size, Twips{size});
    EXPECT_EQ(&table[ids[0]], firstPlace);
}

TEST(FormatTable, AFormatReadFromItCanBePutBackInIt)
{
    FormatTable table;
    for (std::int32_t size = 0; size < 300; ++size)
    {
        const CharFormatId id = table.Intern(Sized(size));
        ASSERT_EQ(table.Intern(table[id]), id);
    }
}

// A document whose header, note and object hold nested text in bold.
Document WithNestedBodies()
{
    const Document document = SampleDocument("a<b>b</b>");
    const Body nested = Slice(document, {{1}, {2}}).Content();
    Section section;
    section[HeaderKind::Footer] = nested;
    const CharFormatId format = document.ParagraphAt(0).FormatAt(0);
    ParagraphBuilder builder;
    builder.Append(u"text", format);
    builder.Append(Shared(InlineObject(Note{.body = nested})), format);
    builder.Append(Shared(InlineObject(EmbeddedObject{.kind = "objemb", .result = nested})), format);
    builder.Append(Shared(SamplePicture()), format);
    const ParagraphMark mark = document.ParagraphAt(0).Ending();
    const std::vector<ParagraphRef> all = {builder.Finish(mark, {}, Shared(section)), builder.Finish(mark)};
    return document.WithBody(Body(std::make_shared<BodyContent>(BodyContent{ParagraphTree(all)})));
}

// A family of documents in whose table every number means something else.
std::shared_ptr<FormatTable> OtherTable()
{
    auto table = std::make_shared<FormatTable>();
    for (std::int32_t size = 1; size < 40; ++size)
    {
        table->Intern(Sized(size));
        table->Intern(ParagraphFormat{.leftIndent = {size}});
    }
    return table;
}

TEST(FormatTransfer, CarriesNestedBodiesIntoTheOtherTable)
{
    const Document from = WithNestedBodies();
    const auto table = OtherTable();
    FormatTransfer transfer(from.Formats(), *table);
    const Document to(transfer(from.Content()), table, {});
    EXPECT_TRUE(SameContent(from, to));
    EXPECT_EQ(Dump(to), Dump(from));
    const auto& note = std::get<Note>(*to.ParagraphAt(0).ObjectAt(4));
    EXPECT_EQ(DumpSample(to.Nested(note.body)), "<b>b</b>");
    const auto& footer = (*to.ParagraphAt(0).Extras().section)[HeaderKind::Footer];
    EXPECT_EQ(DumpSample(to.Nested(footer)), "<b>b</b>");
}

TEST(FormatTransfer, CarriesAnyDocument)
{
    std::mt19937 random(91);
    for (int round = 0; round < 200; ++round)
    {
        const Document from = RandomDocument(random, u"ab", 1 + Below(random, 9));
        const auto table = OtherTable();
        FormatTransfer transfer(from.Formats(), *table);
        ASSERT_TRUE(SameContent(from, Document(transfer(from.Content()), table, {})));
    }
}

TEST(FormatTransfer, WithinOneTableSharesEverything)
{
    const Document document = WithNestedBodies();
    FormatTransfer transfer(document.Formats(), document.SharedFormats());
    EXPECT_TRUE(transfer.IsIdentity());
    EXPECT_EQ(transfer(document.Content()), document.Content());
    EXPECT_EQ(transfer(document.SharedParagraphAt(0)), document.SharedParagraphAt(0));
}

Document Listed(std::int32_t list, NumberKind kind)
{
    const Numbering numbering{.kind = kind, .list = list, .text = u"\0."};
    return WithParagraphFormat(SampleDocument("x\n"), {}, {.numbering = Shared(numbering)});
}

std::int32_t ListOf(const Document& document, std::int32_t paragraph)
{
    return document.FormatOf(document.ParagraphAt(paragraph).Ending().format).numbering->list;
}

TEST(FormatTransfer, TwoListsOfOneNumberStayApart)
{
    const Document here = Listed(1, NumberKind::Decimal);
    const Document other = WithFragment(here, {}, Listed(1, NumberKind::UpperRoman));
    EXPECT_NE(ListOf(other, 0), ListOf(other, 1));
    const Document same = WithFragment(here, {}, Listed(1, NumberKind::Decimal));
    EXPECT_EQ(ListOf(same, 0), ListOf(same, 1));
}

// Many edits, each in formats the table doesn't hold yet.
Document Edited(Document document, std::int32_t seed)
{
    for (std::int32_t i = 0; i < 400; ++i)
    {
        const CharFormatId format = document.SharedFormats().Intern(Sized(seed + i));
        document = WithText(document, {{i}, {i}}, u"x", format);
        document = WithParagraphFormat(document, {{i}, {i}}, {.leftIndent = Twips{seed + i}});
    }
    return document;
}

TEST(DetachedDocuments, AreEditedInThreadsOfTheirOwn)
{
    std::mt19937 random(92);
    const Document shared = RandomDocument(random, u"ab", 200);
    const Document left = shared.Detached();
    const Document right = shared.Detached();
    EXPECT_TRUE(SameContent(left, shared));
    EXPECT_NE(left.FormatsPointer(), right.FormatsPointer());
    Document leftResult;
    Document rightResult;
    std::thread other([&] { rightResult = Edited(right, 5000); });
    leftResult = Edited(left, 1000);
    other.join();
    EXPECT_TRUE(SameContent(leftResult, Edited(shared.Detached(), 1000)));
    EXPECT_TRUE(SameContent(rightResult, Edited(shared.Detached(), 5000)));
    EXPECT_TRUE(SameContent(left, shared));
}

}  // namespace
}  // namespace quillmarker
