#include <quillmarker/numbering_text.h>

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace quillmarker
{
namespace
{

using std::string_literals::operator""s;

Numbering Numbered(NumberKind kind, std::u16string text = u"\0."s, std::int32_t level = 0, std::int32_t list = 0)
{
    return {.kind = kind, .level = level, .list = list, .text = std::move(text)};
}

std::vector<std::u16string> Counted(const std::vector<std::optional<Numbering>>& paragraphs)
{
    NumberCounter counter;
    std::vector<std::u16string> texts;
    for (const auto& numbering : paragraphs)
        texts.push_back(counter.Next(numbering ? &*numbering : nullptr));
    return texts;
}

using Texts = std::vector<std::u16string>;

TEST(NumberText, CountsAsItsKindDoes)
{
    EXPECT_EQ(NumberText(NumberKind::Decimal, 12), u"12");
    EXPECT_EQ(NumberText(NumberKind::LowerLetter, 3), u"c");
    EXPECT_EQ(NumberText(NumberKind::UpperLetter, 26), u"Z");
    EXPECT_EQ(NumberText(NumberKind::UpperRoman, 1994), u"MCMXCIV");
    EXPECT_EQ(NumberText(NumberKind::LowerRoman, 48), u"xlviii");
    EXPECT_EQ(NumberText(NumberKind::Bullet, 3), u"");
    EXPECT_EQ(NumberText(NumberKind::None, 3), u"");
}

TEST(NumberText, LettersBehindZAreDoubled)
{
    EXPECT_EQ(NumberText(NumberKind::UpperLetter, 27), u"AA");
    EXPECT_EQ(NumberText(NumberKind::LowerLetter, 52), u"zz");
    EXPECT_EQ(NumberText(NumberKind::LowerLetter, 53), u"aaa");
}

TEST(NumberText, NumbersThatAStyleCannotShowAreDecimal)
{
    for (const auto kind : {NumberKind::LowerLetter, NumberKind::UpperRoman, NumberKind::LowerRoman})
    {
        EXPECT_EQ(NumberText(kind, 0), u"0");
        EXPECT_EQ(NumberText(kind, -4), u"-4");
        EXPECT_EQ(NumberText(kind, std::numeric_limits<std::int32_t>::max()), u"2147483647");
    }
}

TEST(NumberCounter, CountsParagraphsInARow)
{
    const auto item = Numbered(NumberKind::Decimal);
    EXPECT_EQ(Counted({item, item, item}), (Texts{u"1.", u"2.", u"3."}));
}

TEST(NumberCounter, BeginsWithTheStatedNumber)
{
    auto item = Numbered(NumberKind::Decimal);
    item.start = 2;
    EXPECT_EQ(Counted({item, item}), (Texts{u"2.", u"3."}));
}

TEST(NumberCounter, AnOldListEndsAtAParagraphWithoutANumber)
{
    const auto item = Numbered(NumberKind::Decimal);
    EXPECT_EQ(Counted({item, item, std::nullopt, item}), (Texts{u"1.", u"2.", u"", u"1."}));
}

TEST(NumberCounter, AListOfItsOwnGoesOnBehindOtherParagraphs)
{
    const auto one = Numbered(NumberKind::Decimal, u"\0."s, 0, 1);
    const auto two = Numbered(NumberKind::UpperRoman, u"\0)"s, 0, 2);
    EXPECT_EQ(Counted({one, std::nullopt, two, one, two}), (Texts{u"1.", u"", u"I)", u"2.", u"II)"}));
}

TEST(NumberCounter, ADeeperLevelBeginsAnewBelowEachNumber)
{
    const auto outer = Numbered(NumberKind::Decimal, u"\0."s, 0, 1);
    const auto inner = Numbered(NumberKind::LowerLetter, u"\0.\1"s, 1, 1);
    EXPECT_EQ(Counted({outer, inner, inner, outer, inner}), (Texts{u"1.", u"1.a", u"1.b", u"2.", u"2.a"}));
}

TEST(NumberCounter, ALevelThatDidNotBeginCountsAsOne)
{
    EXPECT_EQ(Counted({Numbered(NumberKind::Decimal, u"\0.\1"s, 1, 1)}), (Texts{u"1.1"}));
}

TEST(NumberCounter, BulletsShowTheirText)
{
    const auto bullet = Numbered(NumberKind::Bullet, u"\u2022");
    EXPECT_EQ(Counted({bullet, bullet}), (Texts{u"\u2022", u"\u2022"}));
}

TEST(NumberCounter, LevelsThatDoNotExistAreTakenForTheNearest)
{
    const auto low = Numbered(NumberKind::Decimal, u"\0"s, -7, 1);
    const auto high = Numbered(NumberKind::Decimal, u"\x8"s, 4000, 1);
    EXPECT_EQ(Counted({low, high, high}), (Texts{u"1", u"1", u"2"}));
}

TEST(NumberCounter, CountsNoFurtherThanNumbersGo)
{
    auto item = Numbered(NumberKind::Decimal, u"\0"s);
    item.start = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(Counted({item, item}), (Texts{u"2147483647", u"2147483647"}));
}

}  // namespace
}  // namespace quillmarker
