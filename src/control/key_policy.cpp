#include "key_policy.h"

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

struct KeyRow
{
    int key;
    Qt::KeyboardModifier modifier;
    KeyPolicy policy;
};

constexpr std::array kKeys = {
    KeyRow{Qt::Key_V, Qt::ControlModifier, KeyPolicy::Swallow},
    KeyRow{Qt::Key_Insert, Qt::ShiftModifier, KeyPolicy::Swallow},
    KeyRow{Qt::Key_C, Qt::ControlModifier, KeyPolicy::Copy},
    KeyRow{Qt::Key_Insert, Qt::ControlModifier, KeyPolicy::Copy},
    KeyRow{Qt::Key_Z, Qt::ControlModifier, KeyPolicy::Swallow},
    KeyRow{Qt::Key_X, Qt::ControlModifier, KeyPolicy::Swallow},
    KeyRow{Qt::Key_B, Qt::ControlModifier, KeyPolicy::ToggleBold},
    KeyRow{Qt::Key_I, Qt::ControlModifier, KeyPolicy::ToggleItalic},
    KeyRow{Qt::Key_U, Qt::ControlModifier, KeyPolicy::ToggleUnderline},
};

}  // namespace

std::optional<KeyPolicy> PolicyOf(int key, Qt::KeyboardModifiers modifiers)
{
    const Qt::KeyboardModifiers held = modifiers & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    const auto* row = std::ranges::find_if(kKeys, [&](const KeyRow& r) { return r.key == key && held == r.modifier; });
    return row == kKeys.end() ? std::nullopt : std::optional(row->policy);
}

bool EndsCopy(int key, Qt::KeyboardModifiers modifiers) { return PolicyOf(key, modifiers) == KeyPolicy::Copy; }

}  // namespace quillmarker
