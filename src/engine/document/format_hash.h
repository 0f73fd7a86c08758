#pragma once

#include <quillmarker/paragraph_format.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

namespace quillmarker
{

constexpr std::size_t Mixed(std::size_t seed, std::size_t value)
{
    seed ^= value + 0x9E3779B97F4A7C15ULL;
    seed *= 0xBF58476D1CE4E5B9ULL;
    return seed ^ seed >> 31;
}

template <class T>
requires(std::is_arithmetic_v<T> || std::is_enum_v<T>) std::size_t HashOf(T value)
{
    return static_cast<std::size_t>(value);
}

inline std::size_t HashOf(Twips value) { return static_cast<std::size_t>(value.value); }
inline std::size_t HashOf(Colour value) { return value.rgb; }
inline std::size_t HashOf(const Name& name) { return name.IsEmpty() ? 0 : std::hash<std::u16string>()(name.Text()); }
inline std::size_t HashOf(const std::string& text) { return std::hash<std::string>()(text); }
inline std::size_t HashOf(const LineSpacing& s) { return Mixed(HashOf(s.rule), HashOf(s.amount)); }

inline std::size_t HashOf(const std::vector<TabStop>& tabs)
{
    std::size_t hash = tabs.size();
    for (const TabStop& tab : tabs)
        hash = Mixed(hash, HashOf(tab.position) * 64 + HashOf(tab.kind) * 8 + HashOf(tab.leader));
    return hash;
}

template <class T>
std::size_t HashOf(const Shared<T>& shared);

/// Everything that tells values apart takes part, so that no source can be written whose formats all meet in one place.
template <class... Values>
std::size_t HashOfAll(const Values&... values)
{
    std::size_t hash = 0;
    ((hash = Mixed(hash, HashOf(values))), ...);
    return hash;
}

inline std::size_t HashOf(const std::u16string& text) { return std::hash<std::u16string>()(text); }
inline std::size_t HashOf(const Shading& s) { return HashOfAll(s.fill, s.foreground, s.hundredths); }
inline std::size_t HashOf(const Border& b) { return HashOfAll(b.style, b.width, b.space, b.colour); }
inline std::size_t HashOf(const Field& f) { return HashOfAll(f.instruction, f.switches, f.outer, f.serial); }

inline std::size_t HashOf(const Numbering& n)
{
    return HashOfAll(n.kind, n.start, n.level, n.list, n.indent, n.text, n.font, n.fontCharset, n.hanging, n.align,
                     n.follow);
}

inline std::size_t HashOf(const Borders& borders)
{
    std::size_t hash = 0;
    for (const Border& side : borders.sides)
        hash = Mixed(hash, HashOf(side));
    return hash;
}

template <class T>
std::size_t HashOf(const Shared<T>& shared)
{
    return shared ? HashOf(*shared) + 1 : 0;
}

/// Equal formats have equal hashes; `fields` is the list of the format's fields.
template <class Format, class Fields>
std::size_t HashOfFields(const Format& format, const Fields& fields)
{
    std::size_t hash = 0;
    std::apply([&](const auto&... field) { ((hash = Mixed(hash, HashOf(format.*field.full))), ...); }, fields);
    return hash;
}

}  // namespace quillmarker
