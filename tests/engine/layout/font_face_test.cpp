#include "engine/layout/font_host.h"
#include "engine/layout/qt_shaper.h"
#include "engine/layout/simple_characters.h"

#include "support/fixed_font_host.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

namespace quillmarker
{
namespace
{

struct Style
{
    bool bold;
    bool italic;
};

constexpr Style kStyles[] = {{false, false}, {true, false}, {false, true}, {true, true}};
constexpr const char16_t* kFamilies[] = {u"Liberation Sans", u"Liberation Serif", u"Liberation Mono"};

FontHost& Fonts()
{
    static const std::unique_ptr<FontHost> fonts = SystemFonts();
    return *fonts;
}

std::u16string SimpleCharactersOf(const FontFace& face)
{
    std::u16string all;
    for (unsigned unit = 0; unit < 0x10000; ++unit)
    {
        if (face.Simple(static_cast<char16_t>(unit)).isSimple)
            all += static_cast<char16_t>(unit);
    }
    return all;
}

/// Shaped by Qt, without the look-ups that Shape takes for simple characters.
ShapedPiece ByTheShaper(const FontFace& face, std::u16string_view text)
{
    return ShapeWithQt(MeasuringFont(face.Identity(), face.Metrics().unitsPerEm), text, TextDirection::LeftToRight,
                       Kerning::Off);
}

void ExpectTheSame(const FontFace& face, const std::u16string& text)
{
    const ShapedPiece piece = ByTheShaper(face, text);
    const ShapedText shaped = face.Shape(text, TextDirection::LeftToRight, Kerning::Off);
    ASSERT_EQ(piece.advances.size(), text.size());
    ASSERT_EQ(piece.glyphs.size(), text.size());
    EXPECT_EQ(shaped.advances, piece.advances);
    std::int64_t width = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const SimpleGlyph simple = face.Simple(text[i]);
        ASSERT_EQ(simple.advance, piece.advances[i])
            << std::hex << int(text[i]) << " in " << ::testing::PrintToString(text);
        ASSERT_EQ(simple.glyph, piece.glyphs[i].glyph) << std::hex << int(text[i]);
        ASSERT_EQ(piece.glyphs[i].x, width);
        ASSERT_EQ(piece.glyphs[i].y, 0);
        width += simple.advance;
    }
    EXPECT_EQ(shaped.width, width);
}

TEST(FontFaceLaw, SumsOfSimpleAdvancesAreWhatTheShaperGives)
{
    for (const char16_t* family : kFamilies)
    {
        for (const Style style : kStyles)
        {
            const FontFace& face =
                Fonts().Face(FontRequest{.name = family, .bold = style.bold, .italic = style.italic});
            ASSERT_EQ(face.Identity().family.toStdU16String(), family);
            const std::u16string all = SimpleCharactersOf(face);
            ASSERT_GT(all.size(), 500U);
            for (std::size_t at = 0; at < all.size(); at += 400)
                ExpectTheSame(face, all.substr(at, 400));
            std::mt19937 random(7);
            for (int word = 0; word < 300; ++word)
            {
                std::u16string text;
                for (unsigned length = 1 + random() % 12; length > 0; --length)
                    text += random() % 4 ? static_cast<char16_t>(u'A' + random() % 58) : all[random() % all.size()];
                ExpectTheSame(face, text);
            }
        }
    }
}

}  // namespace
}  // namespace quillmarker
