#include "text_direction.h"

#include <unicode/ubidi.h>

#include <algorithm>
#include <memory>

namespace quillmarker
{

bool IsPlainlyLeftToRight(std::u16string_view text)
{
    return std::none_of(text.begin(), text.end(), [](char16_t unit) {
        if (unit < 0x0590)
            return false;
        // Hebrew to the end of Arabic Extended, the directional controls, the planes that hold old scripts, presentation forms.
        return unit <= 0x08FF || (unit >= 0x200E && unit <= 0x2069) || (unit >= 0xD802 && unit <= 0xD803) ||
               (unit >= 0xD83A && unit <= 0xD83B) || (unit >= 0xFB1D && unit <= 0xFEFC);
    });
}

std::vector<std::uint8_t> BidiLevels(std::u16string_view text, bool rightToLeftParagraph)
{
    const std::unique_ptr<UBiDi, decltype(&ubidi_close)> bidi(ubidi_open(), &ubidi_close);
    UErrorCode status = U_ZERO_ERROR;
    const auto length = static_cast<std::int32_t>(text.size());
    ubidi_setPara(bidi.get(), text.data(), length, rightToLeftParagraph ? UBIDI_RTL : UBIDI_LTR, nullptr, &status);
    const UBiDiLevel* levels = length > 0 ? ubidi_getLevels(bidi.get(), &status) : nullptr;
    if (U_FAILURE(status) != 0 || !levels)
        return {};
    return {levels, levels + length};
}

std::vector<std::int32_t> VisualOrder(const std::vector<std::uint8_t>& levels)
{
    std::vector<std::int32_t> order(levels.size());
    ubidi_reorderVisual(levels.data(), static_cast<std::int32_t>(levels.size()), order.data());
    return order;
}

}  // namespace quillmarker
