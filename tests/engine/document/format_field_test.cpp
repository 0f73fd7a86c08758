#include "engine/document/dump_values.h"
#include "engine/document/format_edit.h"
#include "engine/document/format_hash.h"
#include "engine/document/format_values.h"
#include "support/sample.h"

#include <gtest/gtest.h>

#include <set>

namespace quillmarker
{
namespace
{

constexpr TextRange kAll{{0}, {1000}};

// What the two kinds of formats have in common, so that one test serves both.
struct Chars
{
    using Full = CharFormat;
    using Partial = PartialCharFormat;
    static constexpr const auto& kFields = kCharFields;
    static Partial Over(const Document& document, TextRange range) { return CharFormatOver(document, range); }
    static Document With(const Document& d, TextRange range, const Partial& p) { return WithCharFormat(d, range, p); }
    static Full FirstOf(const Document& document) { return document.FormatOf(document.ParagraphAt(0).FormatAt(0)); }
};

struct ParagraphsOf
{
    using Full = ParagraphFormat;
    using Partial = PartialParagraphFormat;
    static constexpr const auto& kFields = kParagraphFields;
    static Partial Over(const Document& document, TextRange range) { return ParagraphFormatOver(document, range); }
    static Document With(const Document& d, TextRange range, const Partial& p)
    {
        return WithParagraphFormat(d, range, p);
    }
    static Full FirstOf(const Document& document) { return document.FormatOf(document.ParagraphAt(0).Ending().format); }
};

template <class Kind>
class FormatFields : public ::testing::Test
{
public:
    static constexpr TextRange kFirst{{0}, {3}};  // the first of the two paragraphs of `Two`

    static Document Two() { return SampleDocument("a\nb"); }

    // The two paragraphs, of which the first has another value in this field.
    template <class FieldType>
    static Document TwoWithOther(const FieldType& field)
    {
        typename Kind::Partial patch;
        patch.*field.partial = OtherThan(Kind::FirstOf(Two()).*field.full);
        return Kind::With(Two(), kFirst, patch);
    }
};

using Kinds = ::testing::Types<Chars, ParagraphsOf>;
TYPED_TEST_SUITE(FormatFields, Kinds, );

TYPED_TEST(FormatFields, EachTellsFormatsApart)
{
    const typename TypeParam::Full usual{};
    ForEachField(TypeParam::kFields, [&](const auto& field) {
        typename TypeParam::Full other = usual;
        other.*field.full = OtherThan(usual.*field.full);
        EXPECT_FALSE(other == usual) << field.name;
        EXPECT_NE(HashOfFields(other, TypeParam::kFields), HashOfFields(usual, TypeParam::kFields)) << field.name;
        FormatTable table;
        EXPECT_NE(table.Intern(other), table.Intern(usual)) << field.name;
    });
}

TYPED_TEST(FormatFields, EachIsPatchedAlone)
{
    ForEachField(TypeParam::kFields, [&](const auto& field) {
        typename TypeParam::Full expected = TypeParam::FirstOf(this->Two());
        expected.*field.full = OtherThan(expected.*field.full);
        const Document document = this->TwoWithOther(field);
        EXPECT_TRUE(TypeParam::FirstOf(document) == expected) << field.name;
    });
}

TYPED_TEST(FormatFields, EachIsMixedAloneWhereItDiffers)
{
    ForEachField(TypeParam::kFields, [&](const auto& field) {
        typename TypeParam::Partial expected = TypeParam::Over(this->Two(), kAll);
        EXPECT_TRUE((expected.*field.partial).has_value()) << field.name;
        (expected.*field.partial).reset();
        const Document document = this->TwoWithOther(field);
        EXPECT_TRUE(TypeParam::Over(document, kAll) == expected) << field.name;
        EXPECT_TRUE((TypeParam::Over(document, this->kFirst).*field.partial).has_value()) << field.name;
    });
}

TYPED_TEST(FormatFields, EachTakesPartInSameness)
{
    ForEachField(TypeParam::kFields, [&](const auto& field) {
        EXPECT_FALSE(SameContent(this->TwoWithOther(field), this->Two())) << field.name;
        EXPECT_TRUE(SameContent(this->TwoWithOther(field), this->TwoWithOther(field))) << field.name;
    });
}

TYPED_TEST(FormatFields, EachIsShownInADump)
{
    ForEachField(TypeParam::kFields, [&](const auto& field) {
        typename TypeParam::Full other{};
        other.*field.full = OtherThan(other.*field.full);
        EXPECT_TRUE(DumpOf(other).starts_with(std::string(" ") + field.name)) << field.name << ":" << DumpOf(other);
    });
    EXPECT_EQ(DumpOf(typename TypeParam::Full{}), "");
}

TYPED_TEST(FormatFields, NamesAreUnique)
{
    std::set<std::string> names;
    ForEachField(TypeParam::kFields, [&](const auto& field) { EXPECT_TRUE(names.insert(field.name).second); });
}

// Whether the fields of a list, in their order and with their gaps, are all that a format holds.
template <class Full, class Fields>
std::size_t LastByte(const Fields& fields)
{
    const Full format{};
    const auto* begin = reinterpret_cast<const char*>(&format);
    std::size_t end = 0;
    ForEachField(fields, [&](const auto& field) {
        const auto* at = reinterpret_cast<const char*>(&(format.*field.full));
        const std::size_t alignment = alignof(std::remove_cvref_t<decltype(format.*field.full)>);
        EXPECT_EQ(static_cast<std::size_t>(at - begin), (end + alignment - 1) / alignment * alignment) << field.name;
        end = static_cast<std::size_t>(at - begin) + sizeof(format.*field.full);
    });
    return (end + alignof(Full) - 1) / alignof(Full) * alignof(Full);
}

TEST(FormatFieldList, HoldsEveryFieldInTheOrderOfTheFormat)
{
    EXPECT_EQ(LastByte<CharFormat>(kCharFields), sizeof(CharFormat));
    EXPECT_EQ(LastByte<ParagraphFormat>(kParagraphFields), sizeof(ParagraphFormat));
}

TEST(FormatFieldList, AllOfAFormatPatchedOnAnyOtherGivesIt)
{
    CharFormat other;
    ForEachField(kCharFields, [&](const auto& field) { other.*field.full = OtherThan(other.*field.full); });
    EXPECT_TRUE(Patched(other, AllOf(DefaultCharFormat())) == DefaultCharFormat());
    EXPECT_TRUE(Patched(DefaultCharFormat(), AllOf(other)) == other);
    EXPECT_TRUE(Patched(other, PartialCharFormat()) == other);
}

}  // namespace
}  // namespace quillmarker
