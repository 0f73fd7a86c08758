#pragma once

#include <Qt>

#include <cstdint>
#include <optional>

namespace quillmarker
{

/// What the control does with a key instead of the text. Cut, paste and undo are offered by the toolbar and to the host
/// only, where the control's own commands run.
enum class KeyPolicy : std::uint8_t { Swallow, Copy, ToggleBold, ToggleItalic, ToggleUnderline };

/// Empty for a key that the text gets. Modifiers are compared for equality, the keypad's apart: Ctrl+Shift+B is none.
std::optional<KeyPolicy> PolicyOf(int key, Qt::KeyboardModifiers modifiers);

/// Whether the release of this key ends a copy.
bool EndsCopy(int key, Qt::KeyboardModifiers modifiers);

}  // namespace quillmarker
