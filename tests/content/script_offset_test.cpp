#include "content/report_sample.h"
#include "engine/rtf/rescale_script.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

constexpr int kSuper = 8;
constexpr int kSub = -4;

/// What the buttons for raised and lowered text do to a box.
void PressScript(TextBox& box, bool on, int factor)
{
    const int length = box.SelLength();
    const int start = box.SelStart();
    box.SetSelStart(1);
    box.SetSelLength(0);
    const std::optional<float> base = box.SelFontSize();
    box.SetSelStart(start);
    box.SetSelLength(length);
    ASSERT_TRUE(base);
    if (on)
    {
        if (box.SelCharOffset() == 0)
            box.SetSelFontSize(*base * 0.7F);
        box.SetSelCharOffset(static_cast<int>(*base * static_cast<float>(factor)));
        return;
    }
    box.SetSelLength(length);
    box.SetSelCharOffset(0);
    box.SetSelFontSize(*base);
}

/// What choosing a size does to a box.
void ApplySize(TextBox& box, float size)
{
    box.SetSelFontSize(size);
    const int start = box.SelStart();
    const int length = box.SelLength();
    std::u16string rtf = box.SelRTF();
    RescaleScriptRTF(rtf, u"\\dn", 4);
    RescaleScriptRTF(rtf, u"\\up", 8);
    box.SetSelRTF(rtf);
    box.SetSelStart(start);
    box.SetSelLength(length);
}

void Select(TextBox& box, int start, int length)
{
    box.SetSelStart(start);
    box.SetSelLength(length);
}

void ExpectScript(const TextBox& box, int at, int size, int offset)
{
    EXPECT_EQ(FormatAt(box, at).size.value, size) << "at " << at;
    EXPECT_EQ(FormatAt(box, at).offset.value, offset) << "at " << at;
}

TEST(ScriptOffset, IsSeventyPercentAndEightTwipsToThePoint)
{
    TextBox box;
    box.SetTextRTF(u"{\\rtf1\\fs24 m2}");
    Select(box, 1, 1);
    PressScript(box, true, kSuper);
    EXPECT_FLOAT_EQ(box.SelFontSize().value_or(0), 8.4F);
    EXPECT_EQ(box.SelCharOffset(), 96);
    ExpectScript(box, 0, 240, 0);
    PressScript(box, false, kSuper);
    EXPECT_EQ(box.SelFontSize(), 12.F);
    EXPECT_EQ(box.SelCharOffset(), 0);
}

TEST(ScriptOffset, OfTenPointsIsFourUpOrTwoDown)
{
    TextBox box;
    Fill(box, u"H^2|O");
    PressScript(box, true, kSub);
    ExpectScript(box, 1, 140, -40);
    PressScript(box, true, kSuper);  // straight from one to the other: the size stays
    ExpectScript(box, 1, 140, 80);
    EXPECT_EQ(Shown(box), "H^2|O");
}

TEST(ScriptOffset, TheSizeIsThatOfTheDocumentsFirstCharacter)
{
    TextBox box;
    box.SetTextRTF(u"{\\rtf1\\fs24 a{\\fs60 b}\\par\\fs40 cd}");
    Select(box, 4, 1);
    PressScript(box, true, kSuper);
    ExpectScript(box, 4, 168, 96);
    PressScript(box, false, kSuper);
    ExpectScript(box, 4, 240, 0);  // not the 20 points it had
}

TEST(ScriptOffset, OfAMixedSelectionKeepsTheSizes)
{
    TextBox box;
    Fill(box, u"a^b|c");
    PressScript(box, true, kSub);
    Select(box, 0, 3);
    EXPECT_EQ(box.SelCharOffset(), std::nullopt);
    PressScript(box, true, kSuper);
    ExpectScript(box, 0, 200, 80);
    ExpectScript(box, 1, 140, 80);
}

TEST(ScriptOffset, OnAnEmptySelectionIsTheNextCharactersFormat)
{
    TextBox box;
    Fill(box, u"m|!");
    PressScript(box, true, kSuper);
    EXPECT_EQ(Shown(box), "m|!");
    EXPECT_EQ(box.SelCharOffset(), 80);
    box.Type(u"2");
    EXPECT_EQ(Shown(box), "m2|!");
    ExpectScript(box, 1, 140, 80);
    ExpectScript(box, 2, 200, 0);
}

TEST(ScriptOffset, OfAnEmptyDocumentIsThatOfItsOnlyPlace)
{
    TextBox box;
    PressScript(box, true, kSub);
    box.Type(u"x");
    ExpectScript(box, 0, 140, -40);
}

TEST(ScriptSize, KeepsReducedSizesAndOffsetsInStep)
{
    TextBox box;
    Fill(box, u"H2O m3");
    Select(box, 1, 1);
    PressScript(box, true, kSub);
    Select(box, 5, 1);
    PressScript(box, true, kSuper);
    Select(box, 0, 6);
    ApplySize(box, 20);
    EXPECT_EQ(Shown(box), "^H2O m3|");
    for (const int at : {0, 2, 3, 4})
        ExpectScript(box, at, 400, 0);
    ExpectScript(box, 1, 280, -80);  // 14 points, 4 down
    ExpectScript(box, 5, 280, 160);  // 14 points, 8 up
}

TEST(ScriptSize, IsWhatPressingTheButtonAtThatSizeGives)
{
    // Sizes whose reduced size is a whole number of half-points, which is what the source can state.
    for (const int points : {10, 15, 20, 30, 40})
    {
        TextBox grown;
        Fill(grown, u"a^b|c");
        PressScript(grown, true, kSuper);
        Select(grown, 0, 3);
        ApplySize(grown, static_cast<float>(points));
        ExpectScript(grown, 0, points * 20, 0);
        ExpectScript(grown, 1, points * 14, points * 8);
        ExpectScript(grown, 2, points * 20, 0);
    }
}

TEST(ScriptSize, WorksWithinPartOfALineAndAcrossBreaks)
{
    TextBox box;
    Fill(box, u"ab^2|cd\r\nef");
    PressScript(box, true, kSuper);
    Select(box, 1, 7);
    ApplySize(box, 20);
    EXPECT_EQ(Shown(box), "a^b2cd\r\ne|f");
    ExpectScript(box, 0, 200, 0);
    ExpectScript(box, 1, 400, 0);
    ExpectScript(box, 2, 280, 160);
    ExpectScript(box, 7, 400, 0);
    ExpectScript(box, 8, 200, 0);
}

TEST(ScriptSize, TextThatLooksLikeAWordOfTheSourceStaysText)
{
    TextBox box;
    Fill(box, u"^\\up5 \\dn4 \\fs20|");
    ApplySize(box, 20);
    EXPECT_EQ(Shown(box), "^\\up5 \\dn4 \\fs20|");
    ExpectScript(box, 0, 400, 0);
}

TEST(ScriptSize, OfOrdinaryTextChangesNothingButTheSize)
{
    TextBox box;
    box.SetTextRTF(u"{\\rtf1\\qc a{\\b b}{\\v c}\\par\\qr d{\\i e}}");
    Select(box, 0, box.TextLength());
    TextBox other;
    other.SetValue(box.Value().Detached(), {0, box.TextLength()});
    other.SetSelFontSize(20);
    ApplySize(box, 20);
    EXPECT_EQ(Dump(box.Value()), Dump(other.Value()));
}

}  // namespace
}  // namespace quillmarker
