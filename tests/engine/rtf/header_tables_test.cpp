#include "engine/rtf/header_tables.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

void AddFont(FontTable& fonts, std::int32_t number, std::u16string name)
{
    fonts.Begin(number);
    fonts.CurrentName() = std::move(name);
    fonts.EndEntry();
}

TEST(FontTable, FontsAreFoundByTheirNumbers)
{
    FontTable fonts;
    EXPECT_TRUE(fonts.IsEmpty());
    AddFont(fonts, 7, u" Arial ");
    AddFont(fonts, -2, u"Courier");
    EXPECT_EQ(fonts[fonts.IndexOf(7)].name, Name(u"Arial"));
    EXPECT_EQ(fonts[fonts.IndexOf(-2)].name, Name(u"Courier"));
    EXPECT_EQ(fonts.IndexOf(8), -1);
    EXPECT_EQ(fonts[0].charset, -1);
}

TEST(FontTable, TheLatterOfTwoFontsWithOneNumberCounts)
{
    FontTable fonts;
    AddFont(fonts, 1, u"Old");
    AddFont(fonts, 1, u"New");
    EXPECT_EQ(fonts[fonts.IndexOf(1)].name, Name(u"New"));
}

TEST(FontTable, TextOutsideOfAnEntryNamesNothing)
{
    FontTable fonts;
    fonts.CurrentName() = u"stray";
    fonts.EndEntry();
    EXPECT_TRUE(fonts.IsEmpty());
    AddFont(fonts, 0, u"Arial");
    EXPECT_EQ(fonts[0].name, Name(u"Arial"));
}

TEST(FontTable, MoreFontsThanItsBoundAreLeftOut)
{
    FontTable fonts;
    for (std::int32_t number = 0; number < 40'000; ++number)
        AddFont(fonts, number, u"F");
    EXPECT_GE(fonts.IndexOf(FontTable::kMaxFonts - 1), 0);
    EXPECT_EQ(fonts.IndexOf(FontTable::kMaxFonts), -1);
}

TEST(ColourTable, AnEntryThatStatesNothingIsAutomatic)
{
    ColourTable colours;
    colours.EndEntry();
    colours.Red(255);
    colours.EndEntry();
    colours.Green(300);
    colours.Blue(-1);
    colours.EndEntry();
    EXPECT_TRUE(colours[0].IsAutomatic());
    EXPECT_EQ(colours[1], Colour::Of(255, 0, 0));
    EXPECT_EQ(colours[2], Colour::Of(0, 255, 0));
}

TEST(ColourTable, AColourItLacksIsAutomatic)
{
    const ColourTable colours;
    EXPECT_TRUE(colours[0].IsAutomatic());
    EXPECT_TRUE(colours[-1].IsAutomatic());
    EXPECT_TRUE(colours[2147483647].IsAutomatic());
}

TEST(StyleSheet, ParagraphAndCharacterStylesHaveNumbersOfTheirOwn)
{
    StyleSheet styles;
    styles.Begin(StyleKind::Paragraph, 1);
    styles.CurrentName() = u"heading 1";
    styles.EndEntry();
    styles.Begin(StyleKind::Character, 1);
    styles.CurrentName() = u"Strong";
    styles.EndEntry();
    styles.Begin(StyleKind::Other, 2);
    styles.CurrentName() = u"Grid";
    styles.EndEntry();
    EXPECT_EQ(styles.ParagraphStyle(1), Name(u"heading 1"));
    EXPECT_EQ(styles.CharacterStyle(1), Name(u"Strong"));
    EXPECT_TRUE(styles.ParagraphStyle(2).IsEmpty());
    EXPECT_TRUE(styles.CharacterStyle(2).IsEmpty());
}

TEST(StyleSheet, StyleZeroIsWhatTextHasAnyway)
{
    StyleSheet styles;
    styles.CurrentName() = u"Normal";
    styles.EndEntry();
    EXPECT_TRUE(styles.ParagraphStyle(0).IsEmpty());
}

TEST(StyleSheet, ALongNameIsCut)
{
    StyleSheet styles;
    styles.Begin(StyleKind::Paragraph, 1);
    styles.CurrentName() = std::u16string(100'000, u'x');
    styles.EndEntry();
    EXPECT_EQ(styles.ParagraphStyle(1).Text().size(), 256U);
}

TEST(ListTable, AListIsFoundThroughItsOverride)
{
    ListTable lists;
    lists.BeginList();
    lists.BeginLevel();
    lists.Level()->numbering.kind = NumberKind::UpperRoman;
    lists.BeginLevel();
    lists.EndList(77);
    lists.BeginOverride();
    lists.OverrideOf(77);
    lists.EndOverride(1);
    ASSERT_NE(lists.Find(1, 0), nullptr);
    EXPECT_EQ(lists.Find(1, 0)->numbering.kind, NumberKind::UpperRoman);
    EXPECT_EQ(lists.Find(1, 1)->numbering.level, 1);
    EXPECT_EQ(lists.Find(1, 2), nullptr);
    EXPECT_EQ(lists.Find(1, -1), nullptr);
    EXPECT_EQ(lists.Find(77, 0), nullptr);
}

TEST(ListTable, AnOverrideChangesTheStartOfItsLevelOnly)
{
    ListTable lists;
    lists.BeginList();
    lists.BeginLevel();
    lists.BeginLevel();
    lists.EndList(5);
    lists.BeginOverride();
    lists.OverrideOf(5);
    lists.BeginOverrideLevel();
    lists.BeginOverrideLevel();
    lists.OverrideStart(9);
    lists.EndOverride(1);
    lists.BeginOverride();
    lists.OverrideOf(5);
    lists.EndOverride(2);
    EXPECT_EQ(lists.Find(1, 0)->numbering.start, 1);
    EXPECT_EQ(lists.Find(1, 1)->numbering.start, 9);
    EXPECT_EQ(lists.Find(2, 1)->numbering.start, 1);
}

TEST(ListTable, LevelsBeyondTheNinthAreLeftOut)
{
    ListTable lists;
    EXPECT_EQ(lists.Level(), nullptr);
    lists.BeginList();
    for (int level = 0; level < 20; ++level)
        lists.BeginLevel();
    EXPECT_EQ(lists.Level()->numbering.level, 8);
}

TEST(ListTable, AnOverrideOfAnUnknownListSaysNothing)
{
    ListTable lists;
    lists.BeginOverride();
    lists.OverrideOf(5);
    lists.OverrideStart(3);
    lists.EndOverride(1);
    EXPECT_EQ(lists.Find(1, 0), nullptr);
}

TEST(LevelFormat, EveryKindOfNumberHasOneAndComesBack)
{
    for (int kind = 0; kind <= static_cast<int>(NumberKind::OrdinalText); ++kind)
        EXPECT_EQ(NumberKindOf(LevelFormatOf(static_cast<NumberKind>(kind))), static_cast<NumberKind>(kind));
    EXPECT_EQ(LevelFormatOf(NumberKind::Decimal), 0);
    EXPECT_EQ(LevelFormatOf(NumberKind::Bullet), 23);
    EXPECT_EQ(NumberKindOf(4711), NumberKind::Decimal);
}

}  // namespace
}  // namespace quillmarker
