#pragma once

#include <algorithm>
#include <array>
#include <string_view>

class QIcon;
class QPalette;

namespace quillmarker
{

/// The keys of the images that buttons name, in their order. Each is a drawing of 16 x 16 units, `images/<key>.svg`.
inline constexpr std::array<std::string_view, 31> kToolMaps = {
    "new",     "open",   "save",      "cut",     "copy",      "paste",   "delete",      "undo",
    "redo",    "font",   "size",      "colour",  "print",     "bold",    "italic",      "underline",
    "left",    "centre", "right",     "justify", "spell",     "search",  "help",        "picture",
    "preview", "strike", "separator", "combo",   "subscript", "bullets", "superscript",
};

static_assert(
    [] {
        auto keys = kToolMaps;
        std::sort(keys.begin(), keys.end());
        return !keys.front().empty() && std::adjacent_find(keys.begin(), keys.end()) == keys.end();
    }(),
    "each image has a key of its own");

/// The image of that key in the colours of a palette: the ink is that of the text on buttons, the accents are made for
/// dark or for light buttons, all of it is grey where the icon is disabled. It is drawn anew for every size, at exactly
/// the device pixels asked for, and keeps its shape in the middle of a size that is no square. `QIcon::name()` is the key.
/// The icon keeps the colours it was made with: whoever shows it asks again when the palette changes.
/// An unknown key, or one in other letters, gives a null icon.
QIcon ToolIcon(std::string_view imageKey, const QPalette& palette);

}  // namespace quillmarker
