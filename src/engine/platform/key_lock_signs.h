#pragma once

#include <quillmarker/widgets/platform_services.h>

#include <QKeyEvent>

namespace quillmarker
{

/// What a key that is pressed says of the locks, where the platform does not tell: the lock keys themselves toggle them, a
/// letter's case shows one, the digits of the keypad the other. `known` is what was known before.
KeyLocks LocksAfter(KeyLocks known, const QKeyEvent& press);

/// Whether a key may change the locks. One that types something does not, so that typing costs no question.
bool MayToggleLocks(const QKeyEvent& event);

}  // namespace quillmarker
