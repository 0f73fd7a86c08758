#pragma once

#include <array>
#include <cstdint>

namespace quillmarker
{

inline constexpr auto kHexValues = [] {
    std::array<std::int8_t, 256> values{};
    values.fill(-1);
    for (int digit = 0; digit < 10; ++digit)
        values[static_cast<std::size_t>('0' + digit)] = static_cast<std::int8_t>(digit);
    for (int digit = 0; digit < 6; ++digit)
        values[static_cast<std::size_t>('a' + digit)] = values[static_cast<std::size_t>('A' + digit)] =
            static_cast<std::int8_t>(10 + digit);
    return values;
}();

/// The value of a hexadecimal digit; -1 for any other character.
constexpr int HexValue(char c) { return kHexValues[static_cast<unsigned char>(c)]; }

}  // namespace quillmarker
