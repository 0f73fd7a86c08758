#include "engine/rtf/rescale_script.h"

#include <gtest/gtest.h>

#include "engine/document/case_folding.h"
#include "engine/document/parse_number.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace quillmarker
{
namespace
{

std::u16string Rescaled(std::u16string rtf, std::u16string_view keyword, int factor)
{
    RescaleScriptRTF(rtf, keyword, factor);
    return rtf;
}

std::u16string Raised(std::u16string rtf) { return Rescaled(std::move(rtf), u"\\up", 8); }

std::u16string Lowered(std::u16string rtf) { return Rescaled(std::move(rtf), u"\\dn", 4); }

TEST(RescaleScript, TheSizeBecomesSeventyPercentAndTheOffsetFollowsTheFullSize)
{
    EXPECT_EQ(Lowered(u"{\\f0\\fs40\\dn6 2}"), u"{\\f0\\fs28\\dn8 2}");
    EXPECT_EQ(Raised(u"{\\f0\\fs40\\up6 2}"), u"{\\f0\\fs28\\up16 2}");
}

TEST(RescaleScript, SizesRoundToTheNearestHalvesUpOffsetsDown)
{
    EXPECT_EQ(Lowered(u"\\fs25\\dn1 x"), u"\\fs18\\dn5 x");  // 17.5; 100 / 20
    EXPECT_EQ(Lowered(u"\\fs24\\dn1 x"), u"\\fs17\\dn4 x");  // 16.8; 96 / 20 = 4.8
    EXPECT_EQ(Raised(u"\\fs24\\up1 x"), u"\\fs17\\up9 x");   // 192 / 20 = 9.6
    EXPECT_EQ(Raised(u"\\fs15\\up1 x"), u"\\fs11\\up6 x");   // 10.5
    EXPECT_EQ(Lowered(u"\\fs4\\dn9 x"), u"\\fs3\\dn0 x");
    EXPECT_EQ(Lowered(u"\\fs24.5\\dn1"), u"\\fs17\\dn14");  // two units shorter
}

TEST(RescaleScript, AShorterSizeMovesTheOffsetsPlace)
{
    EXPECT_EQ(Lowered(u"\\fs10\\dn4 x"), u"\\fs7\\dn42 x");     // behind the old digit instead of over it
    EXPECT_EQ(Lowered(u"\\fs13\\dn12 x"), u"\\fs9\\dn12 x");    // over its second digit
    EXPECT_EQ(Raised(u"\\fs100\\up30 x"), u"\\fs70\\up340 x");  // over its second digit
    EXPECT_EQ(Lowered(u"\\fs142\\dn5x"), u"\\fs99\\dn528x");
    EXPECT_EQ(Lowered(u"\\fs14\\dn4 x"), u"\\fs10\\dn2 x");
    EXPECT_EQ(Lowered(u"\\fs143\\dn5x"), u"\\fs100\\dn28x");
    EXPECT_EQ(Lowered(u"\\fs10\\dn"), u"\\fs7\\dn2");  // beyond the end is at the end
}

TEST(RescaleScript, AKeywordWithoutANumberGetsOne)
{
    EXPECT_EQ(Lowered(u"\\fs40\\dn x"), u"\\fs28\\dn8 x");
    EXPECT_EQ(Lowered(u"\\fs x\\dn4"),
              u"\\fs0 x\\d0n4");  // a size without digits is 0, and the text moves to the right
}

TEST(RescaleScript, TheNearestSizeBeforeTheKeywordCounts)
{
    EXPECT_EQ(Lowered(u"\\fs80 a\\fs40\\b\\dn4 x\\fs60 y"), u"\\fs80 a\\fs28\\b\\dn8 x\\fs60 y");
    EXPECT_EQ(Lowered(u"\\dn\\fs40 x"), u"\\dn8\\fs28 x");  // one that begins where the number would is before it
}

TEST(RescaleScript, ASizeUsedTwiceIsReducedTwice)
{
    EXPECT_EQ(Lowered(u"\\fs40\\dn4 a\\dn4 b"), u"\\fs20\\dn8 a\\dn5 b");
}

TEST(RescaleScript, WithoutASizeBeforeItNothingIsRewritten)
{
    EXPECT_EQ(Lowered(u"{\\dn4 a}"), u"{\\dn4 a}");
    EXPECT_EQ(Lowered(u"\\dn4 a\\fs40\\dn4 b"), u"\\dn4 a\\fs28\\dn8 b");
}

TEST(RescaleScript, CaseIsIgnored) { EXPECT_EQ(Lowered(u"\\FS40\\Dn4 x"), u"\\FS28\\Dn8 x"); }

TEST(RescaleScript, OnlyTheKeywordAskedForIsTouched)
{
    EXPECT_EQ(Lowered(u"\\fs40\\up4 x"), u"\\fs40\\up4 x");
    EXPECT_EQ(Lowered(u""), u"");
    EXPECT_EQ(Rescaled(u"\\fs40 00", u"0", 4), u"\\fs40 00");
    EXPECT_EQ(Rescaled(u"\\fs40 00", u"", 4), u"\\fs40 00");
}

TEST(RescaleScript, NumbersBeyondTheRuleLeaveTheOffset)
{
    EXPECT_EQ(Lowered(u"\\fs4000000000\\dn4"), u"\\fs2800000000\\dn4");
    EXPECT_EQ(Lowered(u"\\fs" + std::u16string(60, u'9') + u"x\\dn4"), u"\\fs0x\\dn40");  // 59 units shorter
}

std::size_t FindFolded(const std::u16string& text, std::u16string_view word, std::size_t from)
{
    return from > text.size() ? std::u16string::npos : Folded(text).find(Folded(word), from);
}

std::size_t NumberLength(const std::u16string& text, std::size_t at)
{
    const std::size_t end = at > text.size() ? at : text.find_first_not_of(u"0123456789,.", at);
    return std::min(end, std::max(text.size(), at)) - at;
}

std::u16string Whole(double value)
{
    std::string digits = std::to_string(std::round(value));
    digits.resize(digits.find('.'));
    return {digits.begin(), digits.end()};
}

// The rule step by step on one string.
std::u16string RescaledStepByStep(std::u16string text, std::u16string_view keyword, int factor)
{
    for (std::size_t at = FindFolded(text, keyword, 0); at != std::u16string::npos;)
    {
        const std::size_t position = at + keyword.size();
        const std::size_t word = Folded(text).rfind(u"\\fs", position);
        if (word != std::u16string::npos)
        {
            const std::size_t sizeLength = NumberLength(text, word + 3);
            const float size = ParseSize(text.substr(word + 3, sizeLength));
            text.replace(word + 3, sizeLength, Whole(size * 0.7F));
            const std::size_t offsetLength = NumberLength(text, position);
            const double product = std::round(double{size} * factor);
            if (product <= std::numeric_limits<std::int32_t>::max())
                text.replace(std::min(position, text.size()), offsetLength, Whole(std::floor(product / 20)));
        }
        at = FindFolded(text, keyword, position + 1);
    }
    return text;
}

TEST(RescaleScript, IsTheRuleStepByStep)
{
    std::mt19937 random(70);
    const std::u16string parts[] = {u"\\fs", u"\\dn", u"\\FS1", u"\\fs24", u"\\fs100", u"\\fs00010", u"0",    u"12",
                                    u",",    u".",    u" ",     u"x",      u"\\",      u"f",         u"\\up", u"\\b"};
    int changed = 0;
    for (int round = 0; round < 60000; ++round)
    {
        std::u16string text;
        for (unsigned count = random() % 16; count > 0; --count)
            text += parts[random() % std::size(parts)];
        for (const std::u16string_view keyword : {u"\\dn", u"\\", u"\\fs", u"\\f"})
            ASSERT_EQ(Rescaled(text, keyword, 4), RescaledStepByStep(text, keyword, 4));
        changed += Lowered(text) != text ? 1 : 0;
    }
    EXPECT_GT(changed, 10000);
}

}  // namespace
}  // namespace quillmarker
