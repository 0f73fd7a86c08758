#include "engine/platform/font_families.h"
#include "engine/platform/font_styles.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

std::string Names(const std::vector<FontStyle>& styles)
{
    QStringList names;
    for (const FontStyle& style : styles)
        names.append(style.name);
    return names.join(u'|').toStdString();
}

TEST(TheStylesOfAFamily, GoFromLightToHeavy)
{
    EXPECT_EQ(Names(StylesOf(QStringLiteral("Liberation Sans"))), "Regular|Italic|Bold|Bold Italic");
    EXPECT_EQ(Names(StylesOf(QStringLiteral("C059"))), "Roman|Italic|Bold|Bold Italic");
}

TEST(TheStylesOfAFamily, AreTheUsualOnesWhereItIsNotKnown)
{
    EXPECT_EQ(Names(StylesOf({})), "Regular|Italic|Bold|Bold Italic");
    EXPECT_EQ(StylesOf(QStringLiteral("no such family")), StylesOf({}));
}

TEST(TheNearestStyle, IsTheOneThatIsWantedIfItIsThere)
{
    const std::vector<FontStyle> styles = StylesOf({});
    for (std::size_t i = 0; i < styles.size(); ++i)
        EXPECT_EQ(NearestStyle(styles, styles[i].weight, styles[i].isItalic), i);
    EXPECT_EQ(NearestStyle(styles, 600, false), 2U);
    EXPECT_EQ(NearestStyle({{QStringLiteral("Medium Italic"), 500, true}}, 400, false), 0U);
    EXPECT_EQ(
        NearestStyle({{QStringLiteral("Black Italic"), 900, true}, {QStringLiteral("Thin"), 100, false}}, 900, false),
        1U);
}

TEST(TheShownFamily, IsTheNamesOwnOrATwins)
{
    EXPECT_EQ(ShownFamily(QStringLiteral("liberation sans")), QStringLiteral("Liberation Sans"));
    EXPECT_EQ(ShownFamily(QStringLiteral("ARIAL")), QStringLiteral("Liberation Sans"));
    EXPECT_EQ(ShownFamily(QStringLiteral("Courier New")), QStringLiteral("Liberation Mono"));
    EXPECT_EQ(ShownFamily(QStringLiteral("no such family")), QString());
    EXPECT_EQ(ShownFamily({}), QString());
}

TEST(OfferedFamilies, AreThoseWithTheLettersOfAWritingSystem)
{
    const QStringList greek = OfferedFamilies(QFontDatabase::Greek);
    EXPECT_TRUE(greek.contains(QStringLiteral("Arial")));
    EXPECT_TRUE(greek.contains(QStringLiteral("DejaVu Serif")));
    EXPECT_FALSE(greek.contains(QStringLiteral("Standard Symbols PS")));
    const QStringList hebrew = OfferedFamilies(QFontDatabase::Hebrew);
    EXPECT_FALSE(hebrew.contains(QStringLiteral("Arial")));
    EXPECT_LT(OfferedFamilies(QFontDatabase::Symbol).size(), OfferedFamilies().size());
}

}  // namespace
}  // namespace quillmarker
