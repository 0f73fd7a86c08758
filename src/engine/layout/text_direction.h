#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillmarker
{

/// Whether a text holds nothing that is written from right to left, so that it needs no bidirectional algorithm.
bool IsPlainlyLeftToRight(std::u16string_view text);

/// The embedding level of each unit by the bidirectional algorithm of Unicode (UAX #9); odd ones run from right to
/// left. Empty when the algorithm fails, as it does for want of memory.
std::vector<std::uint8_t> BidiLevels(std::u16string_view text, bool rightToLeftParagraph);

/// The order from left to right of pieces with these levels: the index of the first, the second, …
std::vector<std::int32_t> VisualOrder(const std::vector<std::uint8_t>& levels);

}  // namespace quillmarker
