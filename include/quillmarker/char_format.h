#pragma once

#include <quillmarker/export.h>
#include <quillmarker/shared_value.h>
#include <quillmarker/twips.h>

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>

namespace quillmarker
{

/// A colour; the automatic one is the foreground or background of whatever the text is shown on.
struct Colour
{
    static constexpr std::uint32_t kAutomatic = 0xFFFFFFFF;

    std::uint32_t rgb = kAutomatic;  // 0xRRGGBB

    static constexpr Colour Of(int red, int green, int blue)
    {
        return {static_cast<std::uint32_t>((red & 255) << 16 | (green & 255) << 8 | (blue & 255))};
    }
    constexpr bool IsAutomatic() const { return rgb == kAutomatic; }
    constexpr int Red() const { return static_cast<int>(rgb >> 16 & 255); }
    constexpr int Green() const { return static_cast<int>(rgb >> 8 & 255); }
    constexpr int Blue() const { return static_cast<int>(rgb & 255); }
    constexpr bool operator==(const Colour&) const = default;
};

enum class FontFamily : std::uint8_t { Nil, Roman, Swiss, Modern, Script, Decor, Tech, Bidi };

enum class Underline : std::uint8_t {
    None,
    Single,
    Words,
    Double,
    Dotted,
    Dash,
    DashDot,
    DashDotDot,
    Thick,
    ThickDotted,
    ThickDash,
    ThickDashDot,
    ThickDashDotDot,
    LongDash,
    ThickLongDash,
    Wave,
    HeavyWave,
    DoubleWave,
    Hairline
};

/// Raised or lowered by the font's own measures; an explicit distance is the format's `offset`.
enum class Script : std::uint8_t { None, Super, Sub };

/// A field: its result is ordinary text whose characters carry it. `outer` is the field whose result holds this one.
/// `serial` only tells apart neighbours that are otherwise equal.
struct Field
{
    std::u16string instruction;  // as in the file: u"HYPERLINK \"http://…\"", u"PAGE"
    std::string switches;        // control words kept for saving: "\\fldlock"
    Shared<Field> outer;
    std::uint32_t serial = 0;

    bool operator==(const Field&) const = default;
};

/// Where a HYPERLINK field leads; empty for every other field. A bookmark target follows a '#'.
QUILLMARKER_CORE_EXPORT std::u16string LinkTarget(const Field&);

/// The format of characters. One template gives the full format and the partial one, in which an empty field means
/// "mixed" when read from a selection and "leave as it is" when put on one.
template <template <class> class Wrap>
struct CharFields
{
    Wrap<Name> font{};
    Wrap<std::uint8_t> charset{};  // the font's RTF character set number (\fcharset)
    Wrap<FontFamily> family{};
    Wrap<Twips> size{};
    Wrap<bool> bold{};
    Wrap<bool> italic{};
    Wrap<Underline> underline{};
    Wrap<bool> strike{};
    Wrap<bool> doubleStrike{};
    Wrap<Twips> offset{};  // of the baseline; positive raises
    Wrap<Script> script{};
    Wrap<Colour> colour{};
    Wrap<Colour> highlight{};
    Wrap<Colour> underlineColour{};
    Wrap<bool> hidden{};
    Wrap<bool> caps{};
    Wrap<bool> smallCaps{};
    Wrap<bool> protectedText{};
    Wrap<bool> outline{};
    Wrap<bool> shadow{};
    Wrap<bool> emboss{};
    Wrap<bool> engrave{};
    Wrap<bool> rightToLeft{};
    Wrap<std::uint16_t> language{};      // Windows language identifier; 0 is not stated
    Wrap<Twips> spacing{};               // added after each character
    Wrap<std::uint16_t> widthPercent{};  // horizontal scaling; 0 and 100 are none
    Wrap<Twips> kerning{};               // smallest size that is kerned; 0 is never
    Wrap<Name> style{};
    Wrap<Shared<Field>> field{};

    bool operator==(const CharFields&) const = default;
};

template <class T>
using Stated = T;

using CharFormat = CharFields<Stated>;
using PartialCharFormat = CharFields<std::optional>;

/// What text has when nothing else is said: Arial at 10 points, everything else off.
QUILLMARKER_CORE_EXPORT CharFormat DefaultCharFormat();

template <class Full, class Partial, class T>
struct FormatField
{
    const char* name;
    T Full::*full;
    std::optional<T> Partial::*partial;
};

template <class Full, class Partial, class T>
FormatField(const char*, T Full::*, std::optional<T> Partial::*) -> FormatField<Full, Partial, T>;

/// Every field of a character format, once, in the order of a dump: comparing, merging, patching and dumping read it.
inline constexpr auto kCharFields = std::tuple{
    FormatField{"font", &CharFormat::font, &PartialCharFormat::font},
    FormatField{"charset", &CharFormat::charset, &PartialCharFormat::charset},
    FormatField{"family", &CharFormat::family, &PartialCharFormat::family},
    FormatField{"size", &CharFormat::size, &PartialCharFormat::size},
    FormatField{"bold", &CharFormat::bold, &PartialCharFormat::bold},
    FormatField{"italic", &CharFormat::italic, &PartialCharFormat::italic},
    FormatField{"underline", &CharFormat::underline, &PartialCharFormat::underline},
    FormatField{"strike", &CharFormat::strike, &PartialCharFormat::strike},
    FormatField{"double-strike", &CharFormat::doubleStrike, &PartialCharFormat::doubleStrike},
    FormatField{"offset", &CharFormat::offset, &PartialCharFormat::offset},
    FormatField{"script", &CharFormat::script, &PartialCharFormat::script},
    FormatField{"colour", &CharFormat::colour, &PartialCharFormat::colour},
    FormatField{"highlight", &CharFormat::highlight, &PartialCharFormat::highlight},
    FormatField{"underline-colour", &CharFormat::underlineColour, &PartialCharFormat::underlineColour},
    FormatField{"hidden", &CharFormat::hidden, &PartialCharFormat::hidden},
    FormatField{"caps", &CharFormat::caps, &PartialCharFormat::caps},
    FormatField{"small-caps", &CharFormat::smallCaps, &PartialCharFormat::smallCaps},
    FormatField{"protected", &CharFormat::protectedText, &PartialCharFormat::protectedText},
    FormatField{"outline", &CharFormat::outline, &PartialCharFormat::outline},
    FormatField{"shadow", &CharFormat::shadow, &PartialCharFormat::shadow},
    FormatField{"emboss", &CharFormat::emboss, &PartialCharFormat::emboss},
    FormatField{"engrave", &CharFormat::engrave, &PartialCharFormat::engrave},
    FormatField{"right-to-left", &CharFormat::rightToLeft, &PartialCharFormat::rightToLeft},
    FormatField{"language", &CharFormat::language, &PartialCharFormat::language},
    FormatField{"spacing", &CharFormat::spacing, &PartialCharFormat::spacing},
    FormatField{"width", &CharFormat::widthPercent, &PartialCharFormat::widthPercent},
    FormatField{"kerning", &CharFormat::kerning, &PartialCharFormat::kerning},
    FormatField{"style", &CharFormat::style, &PartialCharFormat::style},
    FormatField{"field", &CharFormat::field, &PartialCharFormat::field},
};

}  // namespace quillmarker
