#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace quillmarker
{

enum class ButtonStyle : std::uint8_t {
    Default,      // is pressed and springs back
    Check,        // stays pressed; its Value is 1, or 0
    ButtonGroup,  // one of them at a time is pressed
    Separator,
    Placeholder,  // an empty slot of a fixed width, over which a combo is laid
};

/// A button of the toolbar. Texts are what a user sees; the keys are a contract with hosts.
struct ToolbarButton
{
    std::string_view key;
    ButtonStyle style = ButtonStyle::Separator;
    const char* tooltip = "";
    const char* description = "";
    std::string_view imageKey;
    int width = 0;  // of a placeholder, in twips

    constexpr bool IsCheckable() const { return style == ButtonStyle::Check || style == ButtonStyle::ButtonGroup; }
};

/// Where the texts are translated.
inline constexpr const char* kToolbarContext = "FormatToolbar";

// From left to right. The wording is the product's: mixed capitals, the British forms, keys that differ from their images.
inline constexpr std::array<ToolbarButton, 40> kToolbarButtons = {{
    {"cFont", ButtonStyle::Placeholder, "Font Dropdown", "Font Name", "", 2295},
    {"cSize", ButtonStyle::Placeholder, "Size Dropdown", "Font Size (Points)", "", 735},
    {},
    {"new", ButtonStyle::Default, "New Document", "", "new"},
    {"open", ButtonStyle::Default, "Open document", "", "open"},
    {"save", ButtonStyle::Default, "Save document", "", "save"},
    {},
    {"print", ButtonStyle::Default, "Print document", "", "print"},
    {"preview", ButtonStyle::Default, "Print preview", "", "preview"},
    {},
    {"cut", ButtonStyle::Default, "Cut to clipboard", "", "cut"},
    {"copy", ButtonStyle::Default, "Copy to clipboard", "", "copy"},
    {"paste", ButtonStyle::Default, "Paste from clipboard", "", "paste"},
    {"delete", ButtonStyle::Default, "Delete selection", "", "delete"},
    {},
    {"undo", ButtonStyle::Default, "Undo typing", "", "undo"},
    {"redo", ButtonStyle::Default, "Redo typing", "", "redo"},
    {},
    {"font", ButtonStyle::Default, "Font PopUp", "", "font"},
    {"size", ButtonStyle::Default, "Size Popup", "", "size"},
    {"colour", ButtonStyle::Default, "Colour Popup", "Font Colour", "colour"},
    {},
    {"bold", ButtonStyle::Check, "Bold text", "Bold", "bold"},
    {"italic", ButtonStyle::Check, "Italic text", "Italic", "italic"},
    {"uline", ButtonStyle::Check, "Underline text", "Underline", "underline"},
    {"strike", ButtonStyle::Check, "Strikeout text", "Strikeout", "strike"},
    {},
    {"sub", ButtonStyle::Check, "Subscript", "Subscript", "subscript"},
    {"super", ButtonStyle::Check, "Superscript", "Superscript", "superscript"},
    {},
    {"left", ButtonStyle::ButtonGroup, "Left align", "Align Left", "left"},
    {"centre", ButtonStyle::ButtonGroup, "Centre align", "Align Centre", "centre"},
    {"right", ButtonStyle::ButtonGroup, "Right align", "Align Right", "right"},
    {},
    {"bullet", ButtonStyle::Check, "bulleted text", "Bullets", "bullets"},
    {},
    {"search", ButtonStyle::Default, "Search and replace", "Find and Replace", "search"},
    {"spell", ButtonStyle::Default, "Spell check", "", "spell"},
    {},
    {"help", ButtonStyle::Default, "help", "", "help"},
}};

/// The row with a key; null when there is none.
constexpr const ToolbarButton* FindToolbarButton(std::string_view key)
{
    const auto* found = std::ranges::find(kToolbarButtons, key, &ToolbarButton::key);
    return key.empty() || found == kToolbarButtons.end() ? nullptr : found;
}

/// Whether a button opens a list or the palette.
constexpr bool IsPopupKey(std::string_view key) { return key == "font" || key == "size" || key == "colour"; }

static_assert(std::ranges::count(kToolbarButtons, ButtonStyle::Separator, &ToolbarButton::style) == 11);
static_assert(std::ranges::all_of(kToolbarButtons, [](const ToolbarButton& button) {
    return button.key.empty() ? button.style == ButtonStyle::Separator : FindToolbarButton(button.key) == &button;
}));

}  // namespace quillmarker
