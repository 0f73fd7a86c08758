#include "font_choice.h"

#include <algorithm>
#include <limits>

namespace quillmarker
{
namespace
{

constexpr int kPointsPerInch = 72;
constexpr int kTenths = 10;

static_assert(std::ranges::is_sorted(kCharsetNames, {}, &CharsetNaming::charset));

std::optional<std::int32_t> In32Bits(std::int64_t number)
{
    const auto kept = static_cast<std::int32_t>(number);
    return kept == number ? std::optional(kept) : std::nullopt;
}

QString ToQString(std::u16string_view text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

/// Where a chooser has put its answer: see FontDialogRequest::faceName.
QString ChosenName(const FontDialogRequest& chosen, const FontDialogRequest& asked)
{
    const QString inImage = LogFontFaceName(chosen.logFont);
    LogFontImage own{};
    SetLogFontFaceName(own, chosen.faceName);
    const bool counts = inImage == LogFontFaceName(own) || inImage == LogFontFaceName(asked.logFont);
    return counts ? chosen.faceName.left(kFaceNameLength) : inImage;
}

}  // namespace

QString CharsetName(int charset)
{
    const auto* found = std::ranges::find(kCharsetNames, charset, &CharsetNaming::charset);
    return ToQString(found == kCharsetNames.end() ? std::u16string_view(u"Western") : found->name);
}

std::optional<std::int32_t> MulDivRound(std::int32_t a, std::int32_t b, std::int32_t c)
{
    if (c == 0)
        return -1;
    const std::int64_t product = std::int64_t{a} * b;
    if (!In32Bits(product))
        return std::nullopt;
    const std::int64_t quotient = product / c;
    const std::int64_t twiceTheRest = 2 * std::abs(product % c);
    const std::int64_t divisor = std::abs(std::int64_t{c});
    const bool isAway = twiceTheRest > divisor || (twiceTheRest == divisor && quotient % 2 != 0);
    const std::int64_t away = (product < 0) == (c < 0) ? 1 : -1;
    return In32Bits(isAway ? quotient + away : quotient);
}

std::optional<std::int32_t> PointsToLogicalHeight(std::int32_t points, int dotsPerInch)
{
    return MulDivRound(points, dotsPerInch, kPointsPerInch);
}

FontDialogRequest RequestFor(const FontChoice& choice, int dotsPerInch)
{
    FontDialogRequest request;
    LogFontImage& image = request.logFont;
    SetLogFontNumber(image, LogFontField::Height, -PointsToLogicalHeight(choice.Size, dotsPerInch).value_or(0));
    SetLogFontNumber(image, LogFontField::Weight, choice.Weight);
    SetLogFontNumber(image, LogFontField::Italic, choice.Italic ? 1 : 0);
    SetLogFontNumber(image, LogFontField::Underline, choice.Underline ? 1 : 0);
    SetLogFontNumber(image, LogFontField::StrikeOut, choice.StrikeOut ? 1 : 0);
    SetLogFontNumber(image, LogFontField::CharSet, choice.Charset);
    SetLogFontFaceName(image, choice.Name);
    request.faceName = choice.Name.left(kFaceNameLength);
    request.rgbColors = choice.Color;
    return request;
}

FontChoice ChoiceOf(const FontDialogRequest& chosen, const FontDialogRequest& asked)
{
    const LogFontImage& image = chosen.logFont;
    return {
        .Name = ChosenName(chosen, asked),
        .Weight = LogFontNumber(image, LogFontField::Weight),
        .Size = MulDivRound(chosen.pointSizeTenths, 1, kTenths).value_or(0),
        .Underline = LogFontNumber(image, LogFontField::Underline) != 0,
        .Italic = LogFontNumber(image, LogFontField::Italic) != 0,
        .StrikeOut = LogFontNumber(image, LogFontField::StrikeOut) != 0,
        .Color = chosen.rgbColors,
        .Charset = LogFontNumber(image, LogFontField::CharSet),
    };
}

}  // namespace quillmarker
