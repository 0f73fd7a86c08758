#include "engine/document/case_folding.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quillmarker
{
namespace
{

std::u16string Variants(char16_t unit)
{
    const CaseVariants variants = VariantsOf(unit);
    return {variants.units.begin(), variants.units.begin() + variants.count};
}

TEST(CaseFolding, FoldsEveryUnitAsUnicodeDoes)
{
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
    {
        const auto expected = static_cast<unsigned>(u_foldCase(static_cast<UChar32>(unit), U_FOLD_CASE_DEFAULT));
        ASSERT_EQ(unsigned{Fold(static_cast<char16_t>(unit))}, expected) << std::hex << unit;
    }
}

TEST(CaseFolding, FoldingTwiceIsFoldingOnce)
{
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
    {
        const char16_t folded = Fold(static_cast<char16_t>(unit));
        ASSERT_EQ(Fold(folded), folded) << std::hex << unit;
    }
}

TEST(CaseFolding, TextKeepsItsLength)
{
    EXPECT_EQ(Folded(u"Straße ÄÖÜ ΣΊΣΥΦΟΣ İI K"), u"straße äöü σίσυφοσ İi k");
    EXPECT_EQ(Folded(u""), u"");
}

TEST(CaseFolding, SurrogatesStandForThemselves)
{
    EXPECT_EQ(Folded(u"\U00010400"), u"\U00010400");  // a capital whose pair differs in the second half
    EXPECT_EQ(Fold(char16_t{0xD800}), char16_t{0xD800});
}

TEST(CaseFolding, VariantsOfALetterHoldTheSignsThatAreThatLetter)
{
    EXPECT_EQ(Variants(u'k'), u"Kk\u212A");
    EXPECT_EQ(Variants(u'\u212A'), u"Kk\u212A");
    EXPECT_EQ(Variants(u'σ'), u"Σςσ");
    EXPECT_EQ(Variants(u's'), u"Ss\u017F");
    EXPECT_EQ(Variants(u'5'), u"5");
    EXPECT_EQ(Variants(u'İ'), u"İ");
    EXPECT_EQ(Variants(u'i'), u"Ii");
}

TEST(CaseFolding, VariantsAreExactlyTheUnitsThatFoldAlike)
{
    std::vector<std::u16string> unitsByFolded(0x10000);
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
        unitsByFolded[Fold(static_cast<char16_t>(unit))] += static_cast<char16_t>(unit);
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
    {
        const auto asUnit = static_cast<char16_t>(unit);
        ASSERT_EQ(Variants(asUnit), unitsByFolded[Fold(asUnit)]) << std::hex << unit;
    }
}

}  // namespace
}  // namespace quillmarker
