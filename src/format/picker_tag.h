#pragma once

#include <QString>

namespace quillmarker
{

enum class PickerStep { Apply, Leave, Browse };

/// Tells a click of the mouse on a list from one that the list raises while the user moves through it with the keyboard:
/// the tag is "Key" from the key on, and then a click is not applied.
class PickerTag
{
public:
    /// What a `Qt::Key` does. Enter, on the keypad too, clears the tag; Escape leaves it.
    PickerStep KeyDown(int key);
    /// The list was opened, or pressed with the mouse.
    void Clear() { m_isKey = false; }

    bool AppliesClick() const { return !m_isKey; }
    QString Text() const;

private:
    bool m_isKey = false;
};

}  // namespace quillmarker
