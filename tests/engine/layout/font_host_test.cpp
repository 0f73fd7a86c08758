#include "engine/layout/font_host.h"
#include "engine/layout/symbol_characters.h"

#include <gtest/gtest.h>

#include <QPainterPath>

#include <memory>
#include <string>

namespace quillmarker
{
namespace
{

/// A family of one weight and no italic.
constexpr const char16_t* kOneWeight = u"DejaVu Math TeX Gyre";

FontHost& Fonts()
{
    static const std::unique_ptr<FontHost> fonts = SystemFonts();
    return *fonts;
}

std::u16string FamilyFor(const FontRequest& request)
{
    return Fonts().Face(request).Identity().family.toStdU16String();
}

TEST(FontHost, GivesTheFontThatIsAskedFor)
{
    EXPECT_EQ(FamilyFor({.name = u"Liberation Serif"}), u"Liberation Serif");
    EXPECT_EQ(FamilyFor({.name = u"dejavu sans MONO"}), u"DejaVu Sans Mono");
    EXPECT_EQ(FamilyFor({.name = u"Liberation Sans Cyr"}), u"Liberation Sans");
    EXPECT_EQ(FamilyFor({.name = u"@Liberation Sans"}), u"Liberation Sans");
}

TEST(FontHost, TakesAFontOfTheSameMeasuresForOneThatIsMissing)
{
    EXPECT_EQ(FamilyFor({.name = u"Arial"}), u"Liberation Sans");
    EXPECT_EQ(FamilyFor({.name = u"Times New Roman CE"}), u"Liberation Serif");
    EXPECT_EQ(FamilyFor({.name = u"Courier New"}), u"Liberation Mono");
}

TEST(FontHost, TakesAFontOfTheFamilyForOneThatNobodyKnows)
{
    EXPECT_EQ(FamilyFor({.name = u"Nobody's", .family = FontFamily::Roman}), u"Liberation Serif");
    EXPECT_EQ(FamilyFor({.name = u"Nobody's", .family = FontFamily::Swiss}), u"Liberation Sans");
    EXPECT_EQ(FamilyFor({.name = u"Nobody's", .family = FontFamily::Modern}), u"Liberation Mono");
    EXPECT_EQ(FamilyFor({.name = u"Nobody's"}), u"Liberation Sans");
    EXPECT_EQ(FamilyFor({}), u"Liberation Sans");
}

TEST(FontHost, TheSameRequestGivesTheSameFace)
{
    const FontRequest request{.name = u"Arial", .bold = true, .italic = true};
    const FontFace& face = Fonts().Face(request);
    EXPECT_EQ(&Fonts().Face(request), &face);
    EXPECT_EQ(&Fonts().Face(face.Identity()), &face);
    EXPECT_EQ(face.Identity(), (FaceIdentity{QStringLiteral("Liberation Sans"), 700, true}));
}

TEST(FontHost, AFaceThatIsGoneIsSubstituted)
{
    const FontFace& face = Fonts().Face(FaceIdentity{QStringLiteral("Courier New"), 400, false});
    EXPECT_EQ(face.Identity().family, QStringLiteral("Liberation Mono"));
}

TEST(FontHost, MeasuresAreTheFontsOwn)
{
    const FaceMetrics& metrics = Fonts().Face(FontRequest{.name = u"Liberation Sans"}).Metrics();
    EXPECT_EQ(metrics.unitsPerEm, 2048);
    EXPECT_EQ(metrics.ascent, 1854);
    EXPECT_EQ(metrics.descent, 434);
    EXPECT_EQ(metrics.lineGap, 67);
    EXPECT_EQ(metrics.underlinePosition, 142);  // its top is 67 below the baseline, and it is 150 thick
    EXPECT_EQ(metrics.underlineThickness, 150);
    EXPECT_EQ(metrics.strikeoutPosition, 479);  // its top is 530 above the baseline, and it is 102 thick
}

TEST(FontHost, RawFontsOfASizeScaleTheDesign)
{
    const FontFace& face = Fonts().Face(FontRequest{.name = u"Liberation Sans"});
    const SimpleGlyph glyph = face.Simple(u'W');
    for (const qreal size : {7.5, 16.0, 33.25})
    {
        const QRawFont raw = face.RawFont(size);
        EXPECT_EQ(raw.pixelSize(), size);
        EXPECT_EQ(raw.hintingPreference(), QFont::PreferNoHinting);
        const qreal advance = raw.advancesForGlyphIndexes({glyph.glyph}).first().x();
        EXPECT_NEAR(advance, size * glyph.advance / kAdvancesPerUnit / face.Metrics().unitsPerEm, 0.02);
    }
}

TEST(FontHost, BoldOfAFamilyWithoutItIsThickened)
{
    const FontFace& plain = Fonts().Face(FontRequest{.name = kOneWeight});
    const FontFace& bold = Fonts().Face(FontRequest{.name = kOneWeight, .bold = true});
    EXPECT_EQ(bold.Identity(), (FaceIdentity{QString::fromUtf16(kOneWeight), 700, false}));
    EXPECT_EQ(bold.Metrics().thickening, plain.Metrics().unitsPerEm / 24);
    EXPECT_EQ(plain.Metrics().thickening, 0);
    EXPECT_EQ(bold.Simple(u'H').advance, plain.Simple(u'H').advance);
    EXPECT_EQ(Fonts().Face(FontRequest{.name = u"Liberation Sans", .bold = true}).Metrics().thickening, 0);
}

/// How wide an I is: the wider, the more it leans.
qreal LeanOf(const FontFace& face)
{
    const QRectF box = face.RawFont(100).pathForGlyph(face.Simple(u'I').glyph).boundingRect();
    return box.width();
}

TEST(FontHost, ItalicOfAFamilyWithoutItIsSlantedAtEverySize)
{
    const FontFace& plain = Fonts().Face(FontRequest{.name = kOneWeight});
    const FontFace& italic = Fonts().Face(FontRequest{.name = kOneWeight, .italic = true});
    EXPECT_GT(LeanOf(italic), LeanOf(plain) + 5);
    EXPECT_EQ(italic.Simple(u'I').advance, plain.Simple(u'I').advance);
}

TEST(SymbolFonts, ShowABulletAsABullet)
{
    const FontFace& symbol = Fonts().Face(FontRequest{.name = u"Symbol", .charset = 2});
    const FontFace& serif = Fonts().Face(FontRequest{.name = u"Liberation Serif"});
    for (const char16_t unit : {u'\uF0B7', u'\u00B7'})
    {
        EXPECT_TRUE(symbol.Simple(unit).isSimple);
        EXPECT_EQ(symbol.Simple(unit).glyph, serif.Simple(u'\u2022').glyph);
        const ShapedText shaped = symbol.Shape(std::u16string(1, unit), TextDirection::LeftToRight, Kerning::Off);
        EXPECT_EQ(shaped.glyphs.at(0).glyph, serif.Simple(u'\u2022').glyph);
        EXPECT_EQ(shaped.width, symbol.Simple(unit).advance);
    }
    EXPECT_EQ(symbol.Simple(u'a').glyph, serif.Simple(u'\u03B1').glyph);
    EXPECT_EQ(symbol.Identity(), serif.Identity());
    EXPECT_EQ(symbol.RawFont(10), serif.RawFont(10));
}

TEST(SymbolFonts, AFontThatIsOnlySaidToHaveSignsShowsItsOwnCharacters)
{
    const FontFace& arial = Fonts().Face(FontRequest{.name = u"Arial", .charset = 2});
    const FontFace& serif = Fonts().Face(FontRequest{.name = u"Liberation Serif"});
    EXPECT_EQ(arial.Simple(u'a').glyph, serif.Simple(u'a').glyph);
    EXPECT_EQ(arial.Simple(u'\uF0B7').glyph, serif.Simple(u'\u2022').glyph);
}

TEST(SymbolFonts, EverySignHasACharacter)
{
    for (const char16_t* name : {u"Symbol", u"Wingdings", u"wingdings 2", u"Wingdings 3", u"Webdings", u"ZapfDingbats"})
    {
        const std::optional<SymbolSet> set = SymbolSetOf(name);
        ASSERT_TRUE(set);
        for (char16_t code = 0x21; code <= 0xFF; ++code)
        {
            const char16_t shown = SymbolCharacter(*set, static_cast<char16_t>(0xF000 + code));
            EXPECT_TRUE(shown < 0xE000 || shown > 0xF8FF) << int(code);
            EXPECT_EQ(shown, SymbolCharacter(*set, code));
        }
        EXPECT_EQ(SymbolCharacter(*set, u'\uF020'), u' ');
        EXPECT_EQ(SymbolCharacter(*set, u'\u2022'), u'\u2022');
    }
    EXPECT_EQ(SymbolCharacter(SymbolSet::Greek, u'\uF0B7'), u'\u2022');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Wingdings, u'\uF0A7'), u'\u25AA');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Wingdings, u'\uF0FC'), u'\u2713');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Wingdings, u'\uF0D8'), u'\u27A2');
    EXPECT_EQ(SymbolSetOf(u"Arial"), std::nullopt);
}

}  // namespace
}  // namespace quillmarker
