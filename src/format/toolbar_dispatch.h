#pragma once

#include "format/format_commands.h"

#include <string_view>

namespace quillmarker
{

/// Runs what a click on the button with `key` does, upper or lower case: an editor's command, a format put on the selection
/// (`value` is the button's after the click: 1 pressed, 0 released), or nothing. Then tells the host of the click, whatever
/// the key, and brings the buttons in line with the selection: one whose format could not be put springs back.
void ButtonClick(FormatCommands& commands, std::string_view key, int value);

}  // namespace quillmarker
