#include "engine/layout/font_host.h"

#include "support/fixed_font_host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

namespace quillmarker
{
namespace
{

constexpr auto kForward = TextDirection::LeftToRight;
constexpr auto kBackward = TextDirection::RightToLeft;

const FontFace& Face(const char16_t* family)
{
    static const std::unique_ptr<FontHost> fonts = SystemFonts();
    return fonts->Face(FontRequest{.name = family});
}

std::vector<std::u16string> FamiliesOf(const ShapedText& shaped)
{
    std::vector<std::u16string> families;
    for (const ShapedGlyph& glyph : shaped.glyphs)
    {
        const std::u16string family = glyph.face->Identity().family.toStdU16String();
        if (families.empty() || families.back() != family)
            families.push_back(family);
    }
    return families;
}

/// What holds of every shaped text.
void ExpectSound(const ShapedText& shaped, std::u16string_view text)
{
    ASSERT_EQ(shaped.advances.size(), text.size());
    EXPECT_EQ(std::accumulate(shaped.advances.begin(), shaped.advances.end(), std::int64_t{0}), shaped.width);
    EXPECT_TRUE(std::ranges::is_sorted(shaped.glyphs, {}, &ShapedGlyph::x));
    for (const ShapedGlyph& glyph : shaped.glyphs)
        EXPECT_NE(glyph.face, nullptr);
}

TEST(FontShaping, MakesNoLigaturesOfWhatCanStandAlone)
{
    for (const char16_t* family : {u"Liberation Serif", u"DejaVu Sans", u"DejaVu Serif"})
    {
        for (const Kerning kerning : {Kerning::Off, Kerning::On})
        {
            const ShapedText shaped = Face(family).Shape(u"fi ffl", kForward, kerning);
            ExpectSound(shaped, u"fi ffl");
            EXPECT_EQ(shaped.glyphs.size(), 6U);
            EXPECT_TRUE(std::ranges::none_of(shaped.advances, [](std::int32_t advance) { return advance == 0; }));
        }
    }
}

TEST(FontShaping, KerningMovesPairsTogetherOnlyWhenAskedFor)
{
    const FontFace& face = Face(u"Liberation Sans");
    EXPECT_LT(face.Shape(u"AVAVA", kForward, Kerning::On).width, face.Shape(u"AVAVA", kForward, Kerning::Off).width);
}

TEST(FontShaping, ArabicLettersJoinAndStandFromRightToLeft)
{
    const std::u16string word = u"\u0628\u0628\u0628";
    const ShapedText shaped = Face(u"DejaVu Sans").Shape(word, kBackward, Kerning::Off);
    ExpectSound(shaped, word);
    ASSERT_EQ(shaped.glyphs.size(), 3U);
    // The same letter three times: its last, its middle and its first form, from left to right.
    EXPECT_NE(shaped.glyphs[0].glyph, shaped.glyphs[1].glyph);
    EXPECT_NE(shaped.glyphs[1].glyph, shaped.glyphs[2].glyph);
    EXPECT_NE(shaped.glyphs[0].glyph, shaped.glyphs[2].glyph);
    EXPECT_EQ(shaped.glyphs[2].x + shaped.advances[0], shaped.width);
    EXPECT_EQ(shaped.glyphs[0].x, 0);
}

TEST(FontShaping, LamAndAlefAreOneGlyphBetweenWhichACaretCanStand)
{
    const ShapedText shaped = Face(u"DejaVu Sans").Shape(u"\u0644\u0627", kBackward, Kerning::Off);
    ExpectSound(shaped, u"\u0644\u0627");
    EXPECT_EQ(shaped.glyphs.size(), 1U);
    EXPECT_GT(shaped.advances[0], 0);
    EXPECT_GT(shaped.advances[1], 0);
}

TEST(FontShaping, WordsFromRightToLeftStandInThatOrder)
{
    const FontFace& face = Face(u"DejaVu Sans");
    const std::u16string text = u"\u05D0 \u05D1";
    const ShapedText shaped = face.Shape(text, kBackward, Kerning::Off);
    ExpectSound(shaped, text);
    ASSERT_EQ(shaped.glyphs.size(), 3U);
    EXPECT_EQ(shaped.glyphs[0].glyph, face.Shape(u"\u05D1", kBackward, Kerning::Off).glyphs[0].glyph);
    EXPECT_EQ(shaped.glyphs[2].glyph, face.Shape(u"\u05D0", kBackward, Kerning::Off).glyphs[0].glyph);
}

TEST(FontShaping, BracketsAreMirroredFromRightToLeft)
{
    const FontFace& face = Face(u"DejaVu Sans");
    EXPECT_EQ(face.Shape(u"(", kBackward, Kerning::Off).glyphs[0].glyph, face.Simple(u')').glyph);
    EXPECT_EQ(face.Shape(u"(", kForward, Kerning::Off).glyphs[0].glyph, face.Simple(u'(').glyph);
}

TEST(FontShaping, TheDirectionAskedForHoldsAgainstTheCharacters)
{
    const FontFace& face = Face(u"DejaVu Sans");
    const ShapedText forward = face.Shape(u"\u05D0\u05D1", kForward, Kerning::Off);
    const ShapedText backward = face.Shape(u"\u05D0\u05D1", kBackward, Kerning::Off);
    ASSERT_EQ(forward.glyphs.size(), 2U);
    EXPECT_EQ(forward.glyphs[0].glyph, backward.glyphs[1].glyph);
    EXPECT_EQ(forward.glyphs[1].glyph, backward.glyphs[0].glyph);
}

TEST(FontShaping, AMarkBelongsToItsLetter)
{
    for (const char16_t* family : {u"Liberation Sans", u"DejaVu Sans"})
    {
        const ShapedText shaped = Face(family).Shape(u"xe\u0301x", kForward, Kerning::Off);
        ExpectSound(shaped, u"xe\u0301x");
        EXPECT_GT(shaped.advances[1], 0);
        EXPECT_EQ(shaped.advances[2], 0);
        EXPECT_EQ(shaped.advances[3], shaped.advances[0]);
    }
}

TEST(FontShaping, WhatAFaceLacksComesFromAnotherWithItsHeight)
{
    const FontFace& face = Face(u"DejaVu Math TeX Gyre");
    ASSERT_FALSE(face.Simple(u'\u0416').isSimple);
    const ShapedText shaped = face.Shape(u"a\u0416b", kForward, Kerning::Off);
    ExpectSound(shaped, u"a\u0416b");
    EXPECT_EQ(FamiliesOf(shaped).size(), 3U);
    EXPECT_GT(shaped.fallbackAscent, 0);
    EXPECT_GT(shaped.fallbackDescent, 0);
    EXPECT_EQ(face.Shape(u"abc", kForward, Kerning::Off).fallbackAscent, 0);
    // The fallback's advance is stated in the units of the face that was asked.
    const FontFace& fallback = *shaped.glyphs[1].face;
    ASSERT_NE(fallback.Metrics().unitsPerEm, face.Metrics().unitsPerEm);
    EXPECT_EQ(shaped.glyphs[1].glyph, fallback.Simple(u'\u0416').glyph);
    const double ems = double(fallback.Simple(u'\u0416').advance) / fallback.Metrics().unitsPerEm;
    EXPECT_NEAR(shaped.advances[1], ems * face.Metrics().unitsPerEm, 1.0);
}

TEST(FontShaping, AScriptThatTheSlantedFontsLackComesFromAnUprightOne)
{
    const std::unique_ptr<FontHost> fonts = SystemFonts();
    for (const bool bold : {false, true})
    {
        const FontFace& face = fonts->Face(FontRequest{.name = u"Liberation Serif", .bold = bold, .italic = true});
        const ShapedText shaped = face.Shape(u"\u0623\u062D\u0645\u062F", kBackward, Kerning::Off);
        ASSERT_EQ(shaped.glyphs.size(), 4U);
        for (const ShapedGlyph& glyph : shaped.glyphs)
            EXPECT_NE(glyph.glyph, 0U) << "an empty box";
        // Asked in the other order too: what was found for one style is not taken for another.
        EXPECT_NE(fonts->Face(FontRequest{.name = u"Liberation Serif"})
                      .Shape(u"\u0623", kBackward, Kerning::Off)
                      .glyphs[0]
                      .glyph,
                  0U);
    }
}

TEST(FontShaping, ASupplementaryCharacterIsOneGlyphOfTwoUnits)
{
    const std::u16string text = u"a\U0001D400b";  // a bold letter of mathematics
    const ShapedText shaped = Face(u"DejaVu Sans").Shape(text, kForward, Kerning::Off);
    ExpectSound(shaped, text);
    EXPECT_EQ(shaped.glyphs.size(), 3U);
    EXPECT_GT(shaped.advances[1], 0);
    EXPECT_EQ(shaped.advances[2], 0);
}

TEST(FontShaping, CharactersThatNoFontHasShowABoxAndCrashNothing)
{
    for (const std::u16string text : {u"\u0915\u094D\u0937\u093F", u"\U000F0000", u"\uFFFF", u"\xD800",
                                      u"\xDC00"
                                      u"a"})
    {
        for (const TextDirection direction : {kForward, kBackward})
        {
            const ShapedText shaped = Face(u"Liberation Sans").Shape(text, direction, Kerning::Off);
            ExpectSound(shaped, text);
            EXPECT_GT(shaped.width, 0);
        }
    }
}

TEST(FontShaping, WhatIsSilentTakesNoRoomAndShapesNothing)
{
    const FontFace& face = Face(u"Liberation Sans");
    const std::u16string text = u"a\u00AD\u202Eb\t\u2028\vc";
    const ShapedText shaped = face.Shape(text, kForward, Kerning::Off);
    ExpectSound(shaped, text);
    EXPECT_EQ(shaped.glyphs.size(), 3U);
    EXPECT_EQ(shaped.width, face.Shape(u"abc", kForward, Kerning::Off).width);
    EXPECT_EQ(face.Shape(u"", kForward, Kerning::Off).width, 0);
}

TEST(FontShaping, AWordThatComesAgainIsTheSame)
{
    const FontFace& face = Face(u"DejaVu Sans");
    const std::u16string text = u"\u0633\u0644\u0627\u0645 \u0633\u0644\u0627\u0645";
    const ShapedText first = face.Shape(text, kBackward, Kerning::On);
    const ShapedText again = face.Shape(text, kBackward, Kerning::On);
    EXPECT_EQ(first.advances, again.advances);
    ASSERT_EQ(first.glyphs.size() % 2, 1U);
    for (std::size_t i = 0; i < first.glyphs.size() / 2; ++i)
        EXPECT_EQ(first.glyphs[i].glyph, first.glyphs[first.glyphs.size() / 2 + 1 + i].glyph);
}

TEST(FontShaping, LongTextWithoutBlanksIsShapedInPieces)
{
    std::u16string text;
    for (int i = 0; i < 30'000; ++i)
        text += u"\u0628\u064E";
    const FontFace& face = Face(u"DejaVu Sans");
    const ShapedText shaped = face.Shape(text, kBackward, Kerning::Off);
    ExpectSound(shaped, text);
    EXPECT_GT(shaped.width, 30'000LL * 64 * 100);
    for (std::size_t i = 1; i < text.size(); i += 2)
        ASSERT_EQ(shaped.advances[i], 0) << i;
}

TEST(FixedFont, MeasuresTheSameEverywhere)
{
    FixedFontHost fonts;
    const FontFace& plain = fonts.Face(FontRequest{.name = u"Any"});
    const FontFace& bold = fonts.Face(FontRequest{.name = u"Any", .bold = true});
    EXPECT_EQ(plain.Simple(u'x').advance, 500 * kAdvancesPerUnit);
    EXPECT_EQ(bold.Simple(u'x').advance, 600 * kAdvancesPerUnit);
    EXPECT_EQ(plain.Simple(u'\u6F22').advance, 1000 * kAdvancesPerUnit);
    EXPECT_FALSE(plain.Simple(u'\u0301').isSimple);
    const ShapedText shaped = plain.Shape(u"\u05D0\u05D1\u0301", kBackward, Kerning::Off);
    ExpectSound(shaped, u"\u05D0\u05D1\u0301");
    EXPECT_EQ(shaped.width, 1000 * kAdvancesPerUnit);
    EXPECT_EQ(shaped.glyphs[0].glyph, 0x301U);
    EXPECT_EQ(shaped.glyphs[2].glyph, 0x5D0U);
    EXPECT_EQ(&fonts.Face(bold.Identity()), &bold);
}

}  // namespace
}  // namespace quillmarker
