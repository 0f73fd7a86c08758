#pragma once

#include <compare>
#include <cstdint>

namespace quillmarker
{

/// A length in twips: a twentieth of a point, 1440 to the inch. All geometry of a document is held in twips.
struct Twips
{
    std::int32_t value = 0;

    constexpr auto operator<=>(const Twips&) const = default;

    constexpr Twips operator-() const { return {-value}; }
    constexpr Twips& operator+=(Twips other) { return value += other.value, *this; }
    constexpr Twips& operator-=(Twips other) { return value -= other.value, *this; }

    friend constexpr Twips operator+(Twips a, Twips b) { return {a.value + b.value}; }
    friend constexpr Twips operator-(Twips a, Twips b) { return {a.value - b.value}; }
    friend constexpr Twips operator*(Twips a, std::int32_t factor) { return {a.value * factor}; }
    friend constexpr Twips operator/(Twips a, std::int32_t divisor) { return {a.value / divisor}; }
};

constexpr Twips Inches(std::int32_t count) { return {count * 1440}; }
constexpr Twips Points(std::int32_t count) { return {count * 20}; }
constexpr Twips HalfPoints(std::int32_t count) { return {count * 10}; }

/// Half-points nearest to `length`, the unit in which RTF states sizes and baseline offsets; halves away from zero.
constexpr std::int32_t ToHalfPoints(Twips length) { return (length.value + (length.value < 0 ? -5 : 5)) / 10; }

/// Distance of the default tab stops, which follow the last stop a paragraph sets.
constexpr Twips kDefaultTab = Inches(1) / 2;

}  // namespace quillmarker
