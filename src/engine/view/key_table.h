#pragma once

#include "caret_track.h"

#include "engine/layout/caret_motion.h"

#include <QKeyEvent>

#include <optional>
#include <span>
#include <variant>

namespace quillmarker
{

/// What a key does beside moving the caret and typing its text.
enum class KeyAction : std::uint8_t {
    Backspace,
    Delete,
    BackspaceWord,
    DeleteWord,
    NewParagraph,
    NewLine,
    NewPage,
    Tab,
    LeaveForwards,
    LeaveBackwards,
    ToggleOverwrite,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    SelectAll,
};

struct KeyMotion
{
    Motion motion{};
    Extend extend{};
};

using KeyCommand = std::variant<KeyMotion, KeyAction>;

/// A row of the table of keys: a standard key of the platform where there is one, else a key and its modifiers.
struct KeyRow
{
    QKeySequence::StandardKey standard = QKeySequence::UnknownKey;
    Qt::Key key = Qt::Key_unknown;
    int modifiers = 0;
    KeyCommand command;
};

std::span<const KeyRow> KeyTable();

std::optional<KeyCommand> CommandOf(const QKeyEvent& event);

/// Whether the command changes the document.
bool IsEdit(const KeyCommand& command);

/// Whether the event's text is to be typed.
bool TypesText(const QKeyEvent& event);

}  // namespace quillmarker
