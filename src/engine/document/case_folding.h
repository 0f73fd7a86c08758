#pragma once

#include <array>
#include <string>
#include <string_view>

namespace quillmarker
{

/// The unit that stands for every case form of `unit`: Unicode's simple folding, without a language's own rules. One
/// unit gives one unit, so offsets stay; ß and İ, whose full folding is longer, stand for themselves. Surrogates too.
char16_t Fold(char16_t unit);

/// `text`, every unit folded. The length is kept.
std::u16string Folded(std::u16string_view text);

/// All units that fold to the same unit; the first `count` places are used, in ascending order.
struct CaseVariants
{
    std::array<char16_t, 4> units{};
    int count = 0;
};

/// The units that equal `unit` when case is ignored, `unit` itself among them: k gives K, k and the Kelvin sign.
CaseVariants VariantsOf(char16_t unit);

}  // namespace quillmarker
