#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmarker
{

/// What shows the formats of the selection: the check buttons, by their keys, and the two combos.
class FormatBar
{
public:
    FormatBar() = default;
    virtual ~FormatBar() = default;
    FormatBar(const FormatBar&) = delete;
    FormatBar& operator=(const FormatBar&) = delete;

    /// Drawn as neither pressed nor released.
    virtual void SetMixedState(std::string_view key, bool mixed) = 0;
    /// 1 pressed, 0 released.
    virtual void SetValue(std::string_view key, int value) = 0;

    virtual bool ShowsFontNames() const = 0;
    /// Selects the first item that equals `name` without regard to case; without one the combo stays as it is. A mixed
    /// name is blank.
    virtual void SelectFontName(const std::optional<std::u16string>& name) = 0;
    virtual bool ShowsFontSizes() const = 0;
    virtual void ShowFontSize(std::optional<float> points) = 0;
};

}  // namespace quillmarker
