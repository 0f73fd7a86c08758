#pragma once

#include <quillmarker/paragraph_format.h>

#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace quillmarker
{

// A value that differs from the one given, whatever field of a format it is for.
template <class T>
T OtherThan(const T& value)
{
    if constexpr (std::is_same_v<T, bool>)
        return !value;
    else if constexpr (std::is_same_v<T, Twips>)
        return {value.value + 17};
    else if constexpr (std::is_same_v<T, Colour>)
        return value.IsAutomatic() ? Colour::Of(1, 2, 3) : Colour();
    else if constexpr (std::is_same_v<T, Name>)
        return value.Text() + u"x";
    else if constexpr (std::is_same_v<T, std::string>)
        return value + "\\x";
    else if constexpr (std::is_same_v<T, LineSpacing>)
        return {value.rule == LineRule::Exactly ? LineRule::Single : LineRule::Exactly, value.amount + 1};
    else if constexpr (std::is_same_v<T, Field>)
        return {.instruction = value.instruction + u"x", .switches = "", .outer = {}};
    else if constexpr (std::is_same_v<T, std::vector<TabStop>>)
        return {{.position = {static_cast<std::int32_t>(value.size()) + 1}}};
    else if constexpr (std::is_same_v<T, Numbering>)
    {
        Numbering other = value;
        other.text += u"x";
        return other;
    }
    else if constexpr (std::is_same_v<T, Borders>)
    {
        Borders other = value;
        other[BorderSide::Top].width += Twips{1};
        return other;
    }
    else if constexpr (std::is_same_v<T, Shading>)
        return {value.fill, value.foreground, value.hundredths + 1};
    else
        return static_cast<T>(static_cast<int>(value) + 1);
}

template <class T>
Shared<T> OtherThan(const Shared<T>& value)
{
    return value ? Shared<T>() : Shared(OtherThan(T()));
}

// Calls `visit(field)` for each field of a list.
template <class Fields, class Visitor>
void ForEachField(const Fields& fields, Visitor visit)
{
    std::apply([&](const auto&... field) { (visit(field), ...); }, fields);
}

}  // namespace quillmarker
