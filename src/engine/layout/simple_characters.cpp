#include "simple_characters.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <memory>

namespace quillmarker
{
namespace
{

/// Scripts whose letters stand beside each other and never change: one character, one glyph.
constexpr std::array kUnjoinedScripts = {
    USCRIPT_COMMON,   USCRIPT_LATIN,    USCRIPT_GREEK,   USCRIPT_CYRILLIC,
    USCRIPT_ARMENIAN, USCRIPT_GEORGIAN, USCRIPT_HAN,     USCRIPT_HIRAGANA,
    USCRIPT_KATAKANA, USCRIPT_BOPOMOFO, USCRIPT_HANGUL,  USCRIPT_ETHIOPIC,
    USCRIPT_CHEROKEE, USCRIPT_YI,       USCRIPT_UNKNOWN,  // private use
    USCRIPT_RUNIC,    USCRIPT_OGHAM,    USCRIPT_BRAILLE, USCRIPT_CANADIAN_ABORIGINAL,
};

constexpr std::uint32_t kShownCategories =
    U_GC_L_MASK | U_GC_N_MASK | U_GC_P_MASK | U_GC_S_MASK | U_GC_ZS_MASK | U_GC_CO_MASK;

bool ReadsInOrder(UChar32 character)
{
    switch (u_charDirection(character))
    {
    case U_LEFT_TO_RIGHT:
    case U_EUROPEAN_NUMBER:
    case U_EUROPEAN_NUMBER_SEPARATOR:
    case U_EUROPEAN_NUMBER_TERMINATOR:
    case U_COMMON_NUMBER_SEPARATOR:
    case U_WHITE_SPACE_NEUTRAL:
    case U_OTHER_NEUTRAL:
        return true;
    default:
        return false;
    }
}

bool StandsAlone(UChar32 character)
{
    switch (u_getIntPropertyValue(character, UCHAR_GRAPHEME_CLUSTER_BREAK))
    {
    case U_GCB_OTHER:
    case U_GCB_LV:  // Hangul syllables; the letters they are made of are not simple
    case U_GCB_LVT:
        return true;
    default:
        return false;
    }
}

bool FindWhetherSimple(UChar32 character)
{
    if (!(U_MASK(u_charType(character)) & kShownCategories) || !ReadsInOrder(character) || !StandsAlone(character))
        return false;
    if (u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT))
        return false;
    UErrorCode error = U_ZERO_ERROR;
    const UScriptCode script = uscript_getScript(character, &error);
    return U_SUCCESS(error) && std::ranges::find(kUnjoinedScripts, script) != kUnjoinedScripts.end();
}

using UnitSet = std::bitset<0x10000>;

std::unique_ptr<const UnitSet> FindSimpleCharacters()
{
    auto found = std::make_unique<UnitSet>();
    for (UChar32 unit = 0; unit < 0x10000; ++unit)
        (*found)[static_cast<std::size_t>(unit)] = FindWhetherSimple(unit);
    return found;
}

}  // namespace

bool IsSimpleCharacter(char16_t unit)
{
    static const std::unique_ptr<const UnitSet> simple = FindSimpleCharacters();
    return (*simple)[unit];
}

bool IsSilentCharacter(char16_t unit)
{
    if (unit < 0xA0)
        return unit < 0x20 || unit >= 0x7F;
    if (unit == 0xAD || unit == 0x061C)
        return true;
    if (unit < 0x200E || unit > 0x2069)
        return unit >= 0xFFF9 && unit <= 0xFFFB;
    return unit <= 0x200F || (unit >= 0x2028 && unit <= 0x202E) || unit >= 0x2066;
}

bool IsPlainText(std::u16string_view text)
{
    return std::ranges::all_of(text, [](char16_t unit) {
        if (IsSimpleCharacter(unit) || unit < 0x300)
            return true;
        UErrorCode error = U_ZERO_ERROR;
        return (U_MASK(u_charType(unit)) & U_GC_M_MASK) && uscript_getScript(unit, &error) == USCRIPT_INHERITED;
    });
}

}  // namespace quillmarker
