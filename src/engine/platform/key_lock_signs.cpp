#include "key_lock_signs.h"

namespace quillmarker
{
namespace
{

constexpr Qt::KeyboardModifiers kShortcutModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool IsShifted(const QKeyEvent& press) { return press.modifiers().testFlag(Qt::ShiftModifier); }

/// Empty for what is not a letter of two cases.
std::optional<bool> CapsByLetter(const QKeyEvent& press)
{
    const QString text = press.text();
    const bool isLetter = text.size() == 1 && text.toUpper().size() == 1 && text.toLower() != text.toUpper();
    if (!isLetter || (press.modifiers() & kShortcutModifiers))
        return std::nullopt;
    return (text == text.toUpper()) != IsShifted(press);
}

/// Empty for what is not a key of the keypad that has both meanings. Shift turns the meaning round on some systems.
std::optional<bool> NumByKeypad(const QKeyEvent& press)
{
    if (!press.modifiers().testFlag(Qt::KeypadModifier) || IsShifted(press))
        return std::nullopt;
    if (press.key() >= Qt::Key_0 && press.key() <= Qt::Key_9)
        return true;
    switch (press.key())
    {
    case Qt::Key_Insert:
    case Qt::Key_Delete:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_Clear:
        return false;
    default:
        return std::nullopt;
    }
}

}  // namespace

KeyLocks LocksAfter(KeyLocks known, const QKeyEvent& press)
{
    if (press.key() == Qt::Key_CapsLock || press.key() == Qt::Key_NumLock)
    {
        bool& lock = press.key() == Qt::Key_CapsLock ? known.isCapsLocked : known.isNumLocked;
        lock = lock != !press.isAutoRepeat();
        return known;
    }
    return {CapsByLetter(press).value_or(known.isCapsLocked), NumByKeypad(press).value_or(known.isNumLocked)};
}

bool MayToggleLocks(const QKeyEvent& event) { return event.text().isEmpty() && !event.isAutoRepeat(); }

}  // namespace quillmarker
