#include "symbol_characters.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <span>

namespace quillmarker
{
namespace
{

constexpr char16_t kBullet = u'\u2022';

struct NamedSet
{
    std::u16string_view name;
    SymbolSet set;
};

constexpr std::array kNamedSets = {
    NamedSet{u"Symbol", SymbolSet::Greek},
    NamedSet{u"Wingdings", SymbolSet::Wingdings},
    NamedSet{u"Wingdings 2", SymbolSet::Wingdings2},
    NamedSet{u"Wingdings 3", SymbolSet::Wingdings3},
    NamedSet{u"Webdings", SymbolSet::Webdings},
    NamedSet{u"Zapf Dingbats", SymbolSet::Dingbats},
    NamedSet{u"ZapfDingbats", SymbolSet::Dingbats},
    NamedSet{u"ITC Zapf Dingbats", SymbolSet::Dingbats},
    NamedSet{u"Monotype Sorts", SymbolSet::Dingbats},
};

// The public Symbol encoding from 0x20 to 0x7F and from 0xA0 to 0xFF; a bullet where it has nothing.
constexpr std::u16string_view kGreekLow =
    u" !\u2200#\u2203%&\u220B()\u2217+,\u2212./0123456789:;<=>?"
    u"\u2245\u0391\u0392\u03A7\u0394\u0395\u03A6\u0393\u0397\u0399\u03D1\u039A\u039B\u039C\u039D\u039F"
    u"\u03A0\u0398\u03A1\u03A3\u03A4\u03A5\u03C2\u03A9\u039E\u03A8\u0396[\u2234]\u22A5_"
    u"\u203E\u03B1\u03B2\u03C7\u03B4\u03B5\u03C6\u03B3\u03B7\u03B9\u03D5\u03BA\u03BB\u03BC\u03BD\u03BF"
    u"\u03C0\u03B8\u03C1\u03C3\u03C4\u03C5\u03D6\u03C9\u03BE\u03C8\u03B6{|}\u223C\u2022";
constexpr std::u16string_view kGreekHigh =
    u"\u20AC\u03D2\u2032\u2264\u2044\u221E\u0192\u2663\u2666\u2665\u2660\u2194\u2190\u2191\u2192\u2193"
    u"\u00B0\u00B1\u2033\u2265\u00D7\u221D\u2202\u2022\u00F7\u2260\u2261\u2248\u2026\u23D0\u23AF\u21B5"
    u"\u2135\u2111\u211C\u2118\u2297\u2295\u2205\u2229\u222A\u2283\u2287\u2284\u2282\u2286\u2208\u2209"
    u"\u2220\u2207\u00AE\u00A9\u2122\u220F\u221A\u22C5\u00AC\u2227\u2228\u21D4\u21D0\u21D1\u21D2\u21D3"
    u"\u25CA\u27E8\u00AE\u00A9\u2122\u2211\u239B\u239C\u239D\u23A1\u23A2\u23A3\u23A7\u23A8\u23A9\u23AA"
    u"\u2022\u27E9\u222B\u2320\u23AE\u2321\u239E\u239F\u23A0\u23A4\u23A5\u23A6\u23AB\u23AC\u23AD\u2022";
static_assert(kGreekLow.size() == 0x60 && kGreekHigh.size() == 0x60);

/// Characters from `first` to `last` that stand in the order of Unicode.
struct SymbolRange
{
    std::uint8_t first;
    std::uint8_t last;
    char16_t character;
};

constexpr std::array kWingdings = {
    SymbolRange{0x21, 0x21, u'\u270F'}, SymbolRange{0x22, 0x22, u'\u2702'}, SymbolRange{0x23, 0x23, u'\u2701'},
    SymbolRange{0x28, 0x28, u'\u260E'}, SymbolRange{0x29, 0x29, u'\u2706'}, SymbolRange{0x2A, 0x2A, u'\u2709'},
    SymbolRange{0x36, 0x36, u'\u231B'}, SymbolRange{0x37, 0x37, u'\u2328'}, SymbolRange{0x3E, 0x3E, u'\u2707'},
    SymbolRange{0x3F, 0x3F, u'\u270D'}, SymbolRange{0x41, 0x41, u'\u270C'}, SymbolRange{0x45, 0x45, u'\u261C'},
    SymbolRange{0x46, 0x46, u'\u261E'}, SymbolRange{0x47, 0x47, u'\u261D'}, SymbolRange{0x48, 0x48, u'\u261F'},
    SymbolRange{0x4A, 0x4A, u'\u263A'}, SymbolRange{0x4C, 0x4C, u'\u2639'}, SymbolRange{0x4E, 0x4E, u'\u2620'},
    SymbolRange{0x4F, 0x4F, u'\u2690'}, SymbolRange{0x51, 0x51, u'\u2708'}, SymbolRange{0x52, 0x52, u'\u263C'},
    SymbolRange{0x54, 0x54, u'\u2744'}, SymbolRange{0x56, 0x56, u'\u271E'}, SymbolRange{0x58, 0x59, u'\u2720'},
    SymbolRange{0x5A, 0x5A, u'\u262A'}, SymbolRange{0x5B, 0x5B, u'\u262F'}, SymbolRange{0x5D, 0x5D, u'\u2638'},
    SymbolRange{0x5E, 0x69, u'\u2648'}, SymbolRange{0x6A, 0x6B, u'&'},      SymbolRange{0x6C, 0x6C, u'\u25CF'},
    SymbolRange{0x6D, 0x6D, u'\u274D'}, SymbolRange{0x6E, 0x6F, u'\u25A0'}, SymbolRange{0x70, 0x70, u'\u25A1'},
    SymbolRange{0x71, 0x72, u'\u2751'}, SymbolRange{0x73, 0x73, u'\u2B27'}, SymbolRange{0x74, 0x74, u'\u29EB'},
    SymbolRange{0x75, 0x75, u'\u25C6'}, SymbolRange{0x76, 0x76, u'\u2756'}, SymbolRange{0x77, 0x77, u'\u2B25'},
    SymbolRange{0x78, 0x78, u'\u2327'}, SymbolRange{0x79, 0x79, u'\u2353'}, SymbolRange{0x7A, 0x7A, u'\u2318'},
    SymbolRange{0x7B, 0x7B, u'\u2740'}, SymbolRange{0x7C, 0x7C, u'\u273F'}, SymbolRange{0x7D, 0x7E, u'\u275D'},
    SymbolRange{0x80, 0x80, u'\u24EA'}, SymbolRange{0x81, 0x8A, u'\u2460'}, SymbolRange{0x8B, 0x8B, u'\u24FF'},
    SymbolRange{0x8C, 0x95, u'\u2776'}, SymbolRange{0x9E, 0x9E, u'\u00B7'}, SymbolRange{0xA1, 0xA1, u'\u25CB'},
    SymbolRange{0xA2, 0xA3, u'\u25CB'}, SymbolRange{0xA4, 0xA4, u'\u25C9'}, SymbolRange{0xA5, 0xA5, u'\u25CE'},
    SymbolRange{0xA7, 0xA7, u'\u25AA'}, SymbolRange{0xA8, 0xA8, u'\u25FB'}, SymbolRange{0xAA, 0xAA, u'\u2726'},
    SymbolRange{0xAB, 0xAB, u'\u2605'}, SymbolRange{0xAC, 0xAC, u'\u2736'}, SymbolRange{0xAD, 0xAD, u'\u2734'},
    SymbolRange{0xAE, 0xAE, u'\u2739'}, SymbolRange{0xAF, 0xAF, u'\u2735'}, SymbolRange{0xB1, 0xB1, u'\u2316'},
    SymbolRange{0xB2, 0xB2, u'\u27E1'}, SymbolRange{0xB3, 0xB3, u'\u2311'}, SymbolRange{0xB5, 0xB5, u'\u272A'},
    SymbolRange{0xB6, 0xB6, u'\u2730'}, SymbolRange{0xD5, 0xD5, u'\u232B'}, SymbolRange{0xD6, 0xD6, u'\u2326'},
    SymbolRange{0xD8, 0xD8, u'\u27A2'}, SymbolRange{0xDC, 0xDC, u'\u27B2'}, SymbolRange{0xDF, 0xDF, u'\u2190'},
    SymbolRange{0xE0, 0xE0, u'\u2192'}, SymbolRange{0xE1, 0xE1, u'\u2191'}, SymbolRange{0xE2, 0xE2, u'\u2193'},
    SymbolRange{0xE3, 0xE4, u'\u2196'}, SymbolRange{0xE5, 0xE5, u'\u2199'}, SymbolRange{0xE6, 0xE6, u'\u2198'},
    SymbolRange{0xE8, 0xE8, u'\u2794'}, SymbolRange{0xEF, 0xEF, u'\u21E6'}, SymbolRange{0xF0, 0xF0, u'\u21E8'},
    SymbolRange{0xF1, 0xF1, u'\u21E7'}, SymbolRange{0xF2, 0xF2, u'\u21E9'}, SymbolRange{0xF3, 0xF3, u'\u21D4'},
    SymbolRange{0xF4, 0xF4, u'\u21F3'}, SymbolRange{0xF5, 0xF6, u'\u21D6'}, SymbolRange{0xF7, 0xF7, u'\u21D9'},
    SymbolRange{0xF8, 0xF8, u'\u21D8'}, SymbolRange{0xFB, 0xFB, u'\u2717'}, SymbolRange{0xFC, 0xFC, u'\u2713'},
    SymbolRange{0xFD, 0xFD, u'\u2612'}, SymbolRange{0xFE, 0xFE, u'\u2611'},
};

constexpr std::array kWingdings2 = {
    SymbolRange{0x4F, 0x4F, u'\u2717'}, SymbolRange{0x50, 0x50, u'\u2713'}, SymbolRange{0x51, 0x51, u'\u2612'},
    SymbolRange{0x52, 0x52, u'\u2611'}, SymbolRange{0x53, 0x54, u'\u2612'}, SymbolRange{0x97, 0x98, u'\u25CF'},
    SymbolRange{0xA2, 0xA2, u'\u25A0'}, SymbolRange{0xA3, 0xA3, u'\u25A1'},
};

constexpr std::array kWingdings3 = {
    SymbolRange{0x21, 0x21, u'\u2190'}, SymbolRange{0x22, 0x22, u'\u2192'}, SymbolRange{0x23, 0x23, u'\u2191'},
    SymbolRange{0x24, 0x24, u'\u2193'}, SymbolRange{0x70, 0x70, u'\u25B2'}, SymbolRange{0x71, 0x71, u'\u25BC'},
    SymbolRange{0x72, 0x72, u'\u25B3'}, SymbolRange{0x73, 0x73, u'\u25BD'}, SymbolRange{0x74, 0x74, u'\u25C0'},
    SymbolRange{0x75, 0x75, u'\u25B6'}, SymbolRange{0x7D, 0x7D, u'\u25B8'},
};

constexpr std::array kWebdings = {
    SymbolRange{0x33, 0x33, u'\u25C0'}, SymbolRange{0x34, 0x34, u'\u25B6'}, SymbolRange{0x35, 0x35, u'\u25B2'},
    SymbolRange{0x36, 0x36, u'\u25BC'}, SymbolRange{0x61, 0x61, u'\u2714'}, SymbolRange{0x63, 0x63, u'\u25A1'},
    SymbolRange{0x67, 0x67, u'\u25A0'}, SymbolRange{0x6E, 0x6E, u'\u25CF'}, SymbolRange{0x72, 0x72, u'\u2715'},
};

constexpr std::array kDingbats = {
    SymbolRange{0x21, 0x24, u'\u2701'}, SymbolRange{0x25, 0x25, u'\u260E'}, SymbolRange{0x26, 0x29, u'\u2706'},
    SymbolRange{0x2A, 0x2A, u'\u261B'}, SymbolRange{0x2B, 0x2B, u'\u261E'}, SymbolRange{0x2C, 0x47, u'\u270C'},
    SymbolRange{0x48, 0x48, u'\u2605'}, SymbolRange{0x49, 0x6B, u'\u2729'}, SymbolRange{0x6C, 0x6C, u'\u25CF'},
    SymbolRange{0x6D, 0x6D, u'\u274D'}, SymbolRange{0x6E, 0x6E, u'\u25A0'}, SymbolRange{0x6F, 0x72, u'\u274F'},
    SymbolRange{0x73, 0x73, u'\u25B2'}, SymbolRange{0x74, 0x74, u'\u25BC'}, SymbolRange{0x75, 0x75, u'\u25C6'},
    SymbolRange{0x76, 0x76, u'\u2756'}, SymbolRange{0x77, 0x77, u'\u25D7'}, SymbolRange{0x78, 0x7E, u'\u2758'},
    SymbolRange{0xA1, 0xA7, u'\u2761'}, SymbolRange{0xA8, 0xA8, u'\u2663'}, SymbolRange{0xA9, 0xA9, u'\u2666'},
    SymbolRange{0xAA, 0xAA, u'\u2665'}, SymbolRange{0xAB, 0xAB, u'\u2660'}, SymbolRange{0xAC, 0xB5, u'\u2460'},
    SymbolRange{0xB6, 0xD4, u'\u2776'}, SymbolRange{0xD5, 0xD5, u'\u2192'}, SymbolRange{0xD6, 0xD7, u'\u2194'},
    SymbolRange{0xD8, 0xEF, u'\u2798'}, SymbolRange{0xF1, 0xFE, u'\u27B1'},
};

char16_t InRanges(std::span<const SymbolRange> ranges, unsigned code)
{
    for (const SymbolRange& range : ranges)
    {
        if (code >= range.first && code <= range.last)
            return static_cast<char16_t>(range.character + (code - range.first));
    }
    return kBullet;
}

char16_t InGreek(unsigned code)
{
    if (code < 0x80)
        return kGreekLow[code - 0x20];
    return code < 0xA0 ? kBullet : kGreekHigh[code - 0xA0];
}

char16_t InLatin(unsigned code)
{
    const bool isBullet = code == 0xB7 || (code >= 0x7F && code < 0xA0);
    return isBullet ? kBullet : static_cast<char16_t>(code);
}

}  // namespace

std::optional<SymbolSet> SymbolSetOf(std::u16string_view font)
{
    const QStringView name(font.data(), static_cast<qsizetype>(font.size()));
    for (const NamedSet& named : kNamedSets)
    {
        const QStringView known(named.name.data(), static_cast<qsizetype>(named.name.size()));
        if (name.trimmed().compare(known, Qt::CaseInsensitive) == 0)
            return named.set;
    }
    return std::nullopt;
}

char16_t SymbolCharacter(SymbolSet set, char16_t unit)
{
    const bool isPrivate = unit >= 0xF020 && unit <= 0xF0FF;
    const unsigned code = isPrivate ? unit - 0xF000U : unit;
    if (code <= 0x20 || code > 0xFF || (set == SymbolSet::Latin && !isPrivate))
        return isPrivate ? u' ' : unit;
    switch (set)
    {
    case SymbolSet::Latin:
        return InLatin(code);
    case SymbolSet::Greek:
        return InGreek(code);
    case SymbolSet::Wingdings:
        return InRanges(kWingdings, code);
    case SymbolSet::Wingdings2:
        return InRanges(kWingdings2, code);
    case SymbolSet::Wingdings3:
        return InRanges(kWingdings3, code);
    case SymbolSet::Webdings:
        return InRanges(kWebdings, code);
    case SymbolSet::Dingbats:
        return InRanges(kDingbats, code);
    }
    return unit;
}

}  // namespace quillmarker
