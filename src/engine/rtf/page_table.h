#pragma once

#include "engine/rtf/charset.h"

#include <array>
#include <cstddef>
#include <vector>

namespace quillmarker
{

inline constexpr char16_t kReplacementUnit = 0xFFFD;

/// The characters of one code page by byte and, for double-byte pages, by pair of bytes.
struct PageTable
{
    std::array<char16_t, 256> units{};
    std::array<bool, 256> lead{};
    std::vector<char16_t> pairs;  // [lead - 0x80][trail]; empty for single-byte pages

    char16_t Pair(unsigned char leadByte, unsigned char trailByte) const
    {
        return pairs[PairIndex(leadByte, trailByte)];
    }

    static std::size_t PairIndex(unsigned leadByte, unsigned trailByte)
    {
        return (std::size_t{leadByte} - 0x80) * 256 + trailByte;
    }
};

/// The table of `page`; the one of 1252 for pages nobody knows (and for UTF-8, which has none, ASCII).
PageTable TableOfPage(CodePage page);

}  // namespace quillmarker
