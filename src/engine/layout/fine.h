#pragma once

#include <quillmarker/twips.h>

#include <cstdint>

namespace quillmarker
{

/// A distance of layout in 1024ths of a twip. Sums of advances are exact in it, so that a line breaks at the same place
/// on every machine, device and zoom.
using Fine = std::int64_t;

constexpr Fine kFinePerTwip = 1024;

constexpr Fine ToFine(Twips length) { return length.value * kFinePerTwip; }
constexpr double InTwips(Fine length) { return static_cast<double>(length) / kFinePerTwip; }

/// `amount` font units of a face with `unitsPerEm`, at `size`; halves away from zero.
constexpr Fine ScaledUnits(std::int64_t amount, Twips size, std::int64_t unitsPerEm)
{
    const std::int64_t product = amount * size.value * kFinePerTwip;
    return (product + (product < 0 ? -unitsPerEm : unitsPerEm) / 2) / unitsPerEm;
}

}  // namespace quillmarker
