#pragma once

#include <quillmarker/widgets/font_dialog_service.h>

#include <QString>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmarker
{

inline constexpr int kSymbolCharset = 2;

/// What the chooser is given of the selection, and what it gives back.
struct FontChoice
{
    QString Name;
    std::int32_t Weight = 0;  // 400 regular, 700 bold; on the way in -1 bold, 0 not
    std::int32_t Size = 0;    // whole points; 0: no size chosen
    bool Underline = false;
    bool Italic = false;
    bool StrikeOut = false;
    std::uint32_t Color = 0;  // 0x00BBGGRR
    std::int32_t Charset = 0;

    bool operator==(const FontChoice&) const = default;
};

struct CharsetNaming
{
    int charset;
    std::u16string_view name;
};

inline constexpr std::array<CharsetNaming, 17> kCharsetNames = {{
    {kSymbolCharset, u"Symbol"},
    {77, u"Macintosh"},
    {128, u"Japanese"},
    {129, u"Korean"},
    {130, u"Korean"},
    {134, u"Chinese"},
    {136, u"Chinese"},
    {161, u"Greek"},
    {162, u"Turkish"},
    {163, u"Vietnamese"},
    {177, u"Hebrew"},
    {178, u"Arabic"},
    {186, u"Baltic"},
    {204, u"Cyrillic"},
    {222, u"Thai"},
    {238, u"Central and Eastern Europe"},
    {255, u"MS-DOS"},
}};

/// What users call a character set; "Western" for 0 and for every number that has no other name.
QString CharsetName(int charset);

/// a * b / c to the nearest whole number, the even one of two that are equally near. -1 when c is 0; nothing when the
/// product (or the quotient of the smallest number and -1) is beyond 32 bits.
std::optional<std::int32_t> MulDivRound(std::int32_t a, std::int32_t b, std::int32_t c);

/// Points in pixels of a device; nothing when the product is beyond 32 bits.
std::optional<std::int32_t> PointsToLogicalHeight(std::int32_t points, int dotsPerInch);

/// The request that a chooser is opened with. A name is cut to its first 32 characters; a height that cannot be told is 0.
FontDialogRequest RequestFor(const FontChoice& choice, int dotsPerInch);

/// What a chooser that was left with OK has chosen. `asked` is the request it was opened with.
FontChoice ChoiceOf(const FontDialogRequest& chosen, const FontDialogRequest& asked);

}  // namespace quillmarker
