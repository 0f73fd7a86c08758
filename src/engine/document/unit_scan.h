#pragma once

#include <array>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quillmarker
{

/// Scanning looks at this many positions at a time.
inline constexpr int kScanBlock = 16;

/// Up to four units, of which `Count` are compared.
using ScanUnits = std::array<char16_t, 4>;

/// Bit i is set where one of the first `Count` units of `first` stands at first position + i and one of `last` at
/// last position + i.
template <int Count>
std::uint32_t PortableScan(const char16_t* firstAt, const char16_t* lastAt, const ScanUnits& first,
                           const ScanUnits& last)
{
    std::uint32_t found = 0;
    for (int i = 0; i < kScanBlock; ++i)
    {
        bool isFirst = false;
        bool isLast = false;
        for (unsigned k = 0; k < Count; ++k)
        {
            isFirst |= firstAt[i] == first[k];
            isLast |= lastAt[i] == last[k];
        }
        found |= static_cast<std::uint32_t>(isFirst && isLast) << i;
    }
    return found;
}

#if defined(__SSE2__)

/// Eight lanes, all ones where the unit at `at` is one of the first `Count` units.
template <int Count>
__m128i EqualLanes(const char16_t* at, const ScanUnits& units)
{
    const __m128i lanes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    __m128i equal = _mm_cmpeq_epi16(lanes, _mm_set1_epi16(static_cast<short>(units[0])));
    for (unsigned k = 1; k < Count; ++k)
        equal = _mm_or_si128(equal, _mm_cmpeq_epi16(lanes, _mm_set1_epi16(static_cast<short>(units[k]))));
    return equal;
}

/// The same as PortableScan.
template <int Count>
std::uint32_t VectorScan(const char16_t* firstAt, const char16_t* lastAt, const ScanUnits& first, const ScanUnits& last)
{
    const __m128i low = _mm_and_si128(EqualLanes<Count>(firstAt, first), EqualLanes<Count>(lastAt, last));
    const __m128i high = _mm_and_si128(EqualLanes<Count>(firstAt + 8, first), EqualLanes<Count>(lastAt + 8, last));
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
}

#endif

template <int Count>
std::uint32_t Scan(const char16_t* firstAt, const char16_t* lastAt, const ScanUnits& first, const ScanUnits& last)
{
#if defined(__SSE2__)
    return VectorScan<Count>(firstAt, lastAt, first, last);
#else
    return PortableScan<Count>(firstAt, lastAt, first, last);
#endif
}

}  // namespace quillmarker
