#pragma once

#include <algorithm>
#include <compare>
#include <cstdint>

namespace quillmarker
{

/// A place in a document: the number of UTF-16 units of its text that stand before it. A paragraph break counts two
/// (CR LF), a table cell's end one (TAB), a table row's end two, a picture or another object one.
struct Position
{
    std::int32_t value = 0;

    constexpr auto operator<=>(const Position&) const = default;

    friend constexpr Position operator+(Position p, std::int32_t units) { return {p.value + units}; }
    friend constexpr Position operator-(Position p, std::int32_t units) { return {p.value - units}; }
    friend constexpr std::int32_t operator-(Position a, Position b) { return a.value - b.value; }
};

/// The text from `begin` up to, not including, `end`.
struct TextRange
{
    Position begin;
    Position end;

    constexpr bool operator==(const TextRange&) const = default;

    constexpr std::int32_t Length() const { return end - begin; }
    constexpr bool IsEmpty() const { return begin == end; }
};

/// The largest text a document holds; what would go beyond it is refused.
constexpr std::int32_t kMaxTextUnits = 1 << 30;

}  // namespace quillmarker
