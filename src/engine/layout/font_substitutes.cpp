#include "font_substitutes.h"

#include "engine/document/font_twins.h"

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

using Names = std::span<const std::u16string_view>;

using Name = std::u16string_view;

template <std::size_t first, std::size_t second>
constexpr std::array<Name, first + second> Joined(const std::array<Name, first>& twins,
                                                  const std::array<Name, second>& lookAlikes)
{
    std::array<Name, first + second> all;
    std::ranges::copy(lookAlikes, std::ranges::copy(twins, all.begin()).out);
    return all;
}

constexpr auto kSans = Joined(kSansTwins, std::array<Name, 3>{u"Noto Sans", u"DejaVu Sans", u"Segoe UI"});
constexpr auto kSerif = Joined(kSerifTwins, std::array<Name, 3>{u"Noto Serif", u"DejaVu Serif", u"Georgia"});
constexpr auto kMono = Joined(kMonoTwins, std::array<Name, 3>{u"Noto Sans Mono", u"DejaVu Sans Mono", u"Consolas"});
constexpr auto kNarrow = Joined(kNarrowTwins, std::array<Name, 1>{u"DejaVu Sans Condensed"});
constexpr std::array<std::u16string_view, 4> kScript = {u"Z003", u"URW Chancery L", u"Monotype Corsiva",
                                                        u"Apple Chancery"};
constexpr std::array<std::u16string_view, 3> kWideSans = {u"DejaVu Sans", u"Verdana", u"Bitstream Vera Sans"};
constexpr std::array<std::u16string_view, 3> kPalatino = {u"P052", u"Palatino", u"TeX Gyre Pagella"};
constexpr std::array<std::u16string_view, 3> kBookman = {u"URW Bookman", u"Bookman", u"TeX Gyre Bonum"};
constexpr std::array<std::u16string_view, 3> kGothic = {u"URW Gothic", u"Century Gothic", u"TeX Gyre Adventor"};
constexpr std::array<std::u16string_view, 3> kSchoolbook = {u"C059", u"Century Schoolbook", u"TeX Gyre Schola"};

struct LikeFont
{
    std::u16string_view name;
    Names fonts;
};

constexpr std::array kLikeFonts = {
    LikeFont{u"Arial", kSans},
    LikeFont{u"Arial MT", kSans},
    LikeFont{u"Arial Narrow", kNarrow},
    LikeFont{u"Arial Unicode MS", kSans},
    LikeFont{u"Book Antiqua", kPalatino},
    LikeFont{u"Bookman Old Style", kBookman},
    LikeFont{u"Calibri", kCalibriTwins},
    LikeFont{u"Cambria", kCambriaTwins},
    LikeFont{u"Century Gothic", kGothic},
    LikeFont{u"Century Schoolbook", kSchoolbook},
    LikeFont{u"Consolas", kMono},
    LikeFont{u"Courier", kMono},
    LikeFont{u"Courier New", kMono},
    LikeFont{u"Fixedsys", kMono},
    LikeFont{u"Georgia", kGeorgiaTwins},
    LikeFont{u"Helv", kSans},
    LikeFont{u"Helvetica", kSans},
    LikeFont{u"Helvetica Narrow", kNarrow},
    LikeFont{u"Lucida Console", kMono},
    LikeFont{u"Lucida Sans Unicode", kWideSans},
    LikeFont{u"Microsoft Sans Serif", kSans},
    LikeFont{u"Monotype Corsiva", kScript},
    LikeFont{u"MS Sans Serif", kSans},
    LikeFont{u"MS Serif", kSerif},
    LikeFont{u"MS Shell Dlg", kSans},
    LikeFont{u"MS Shell Dlg 2", kSans},
    LikeFont{u"Palatino", kPalatino},
    LikeFont{u"Palatino Linotype", kPalatino},
    LikeFont{u"Segoe UI", kSans},
    LikeFont{u"System", kSans},
    LikeFont{u"Tahoma", kWideSans},
    LikeFont{u"Terminal", kMono},
    LikeFont{u"Times", kSerif},
    LikeFont{u"Times New Roman", kSerif},
    LikeFont{u"Times Roman", kSerif},
    LikeFont{u"Tms Rmn", kSerif},
    LikeFont{u"Verdana", kWideSans},
    LikeFont{u"Webdings", kWideSans},  // which has the most signs
};

constexpr std::array<std::u16string_view, 12> kCharsetEndings = {
    u" CE",       u" Cyr",      u" Greek",  u" Tur",     u" Baltic",       u" (Arabic)",
    u" (Hebrew)", u" (Baltic)", u" (Thai)", u" Western", u" (Vietnamese)", u" CYR",
};

QStringView View(std::u16string_view text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

bool IsSameName(QStringView a, QStringView b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

}  // namespace

QString PlainFontName(const QString& name)
{
    QString plain = name.trimmed();
    if (plain.startsWith(u'@'))
        plain.remove(0, 1);
    for (const std::u16string_view ending : kCharsetEndings)
    {
        if (plain.size() > View(ending).size() && plain.endsWith(View(ending), Qt::CaseInsensitive))
            return plain.chopped(View(ending).size()).trimmed();
    }
    return plain;
}

Names FontsLike(const QString& name)
{
    const auto* found =
        std::ranges::find_if(kLikeFonts, [&](const LikeFont& like) { return IsSameName(View(like.name), name); });
    return found == kLikeFonts.end() ? Names() : found->fonts;
}

Names FontsOf(FontFamily family)
{
    switch (family)
    {
    case FontFamily::Roman:
        return kSerif;
    case FontFamily::Modern:
        return kMono;
    case FontFamily::Script:
        return kScript;
    default:
        return kSans;
    }
}

}  // namespace quillmarker
