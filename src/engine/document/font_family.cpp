#include "engine/document/font_family.h"

#include "engine/document/case_folding.h"

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

struct KnownFont
{
    std::u16string_view name;  // folded
    FontFamily family;
};

constexpr std::array kKnownFonts = {
    KnownFont{u"arial", FontFamily::Swiss},
    KnownFont{u"arial narrow", FontFamily::Swiss},
    KnownFont{u"calibri", FontFamily::Swiss},
    KnownFont{u"cambria", FontFamily::Roman},
    KnownFont{u"consolas", FontFamily::Modern},
    KnownFont{u"courier new", FontFamily::Modern},
    KnownFont{u"dejavu sans", FontFamily::Swiss},
    KnownFont{u"dejavu serif", FontFamily::Roman},
    KnownFont{u"georgia", FontFamily::Roman},
    KnownFont{u"helvetica", FontFamily::Swiss},
    KnownFont{u"liberation mono", FontFamily::Modern},
    KnownFont{u"liberation sans", FontFamily::Swiss},
    KnownFont{u"liberation serif", FontFamily::Roman},
    KnownFont{u"tahoma", FontFamily::Swiss},
    KnownFont{u"times new roman", FontFamily::Roman},
    KnownFont{u"verdana", FontFamily::Swiss},
};

constexpr std::array<std::u16string_view, 5> kSymbolFonts = {u"symbol", u"webdings", u"wingdings", u"wingdings 2",
                                                             u"wingdings 3"};

}  // namespace

FontFamily FamilyOf(std::u16string_view font)
{
    const std::u16string name = Folded(font);
    const auto* known = std::ranges::find(kKnownFonts, std::u16string_view(name), &KnownFont::name);
    return known == kKnownFonts.end() ? FontFamily::Nil : known->family;
}

bool IsSymbolFont(std::u16string_view font)
{
    const std::u16string name = Folded(font);
    return std::ranges::find(kSymbolFonts, std::u16string_view(name)) != kSymbolFonts.end();
}

}  // namespace quillmarker
