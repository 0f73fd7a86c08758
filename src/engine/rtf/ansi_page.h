#pragma once

#include <array>
#include <optional>

namespace quillmarker
{

/// The bytes 0x80 to 0x9F of code page 1252, the rest being Latin-1. The five undefined ones are the C1 controls of the
/// same number, as the platform the code page comes from has them, so that every byte survives.
inline constexpr std::array<char16_t, 32> kAnsiHigh = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                       0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// The character of a byte in code page 1252.
constexpr char16_t DecodeAnsi(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 ? kAnsiHigh[byte - 0x80] : char16_t{byte};
}

/// The byte for `unit` in code page 1252; empty when the page has none.
constexpr std::optional<unsigned char> EncodeAnsi(char16_t unit)
{
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF))
        return static_cast<unsigned char>(unit);
    if (unit > 0x2122)
        return std::nullopt;
    for (unsigned i = 0; i < kAnsiHigh.size(); ++i)
    {
        if (kAnsiHigh[i] == unit)
            return static_cast<unsigned char>(0x80 + i);
    }
    return std::nullopt;
}

}  // namespace quillmarker
