#include "key_table.h"

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

constexpr KeyRow Moves(QKeySequence::StandardKey standard, Motion motion, Extend extend)
{
    return {.standard = standard, .command = KeyMotion{motion, extend}};
}

constexpr KeyRow Moves(Qt::Key key, int modifiers, Motion motion, Extend extend)
{
    return {.key = key, .modifiers = modifiers, .command = KeyMotion{motion, extend}};
}

constexpr KeyRow Does(QKeySequence::StandardKey standard, KeyAction action)
{
    return {.standard = standard, .command = action};
}

constexpr KeyRow Does(Qt::Key key, int modifiers, KeyAction action)
{
    return {.key = key, .modifiers = modifiers, .command = action};
}

constexpr int kNone = Qt::NoModifier;
constexpr int kShift = Qt::ShiftModifier;
constexpr int kControl = Qt::ControlModifier;
constexpr int kControlShift = kControl | kShift;

constexpr std::array kTable{
    Moves(QKeySequence::MoveToPreviousChar, Motion::CharacterLeft, Extend::No),
    Moves(QKeySequence::MoveToNextChar, Motion::CharacterRight, Extend::No),
    Moves(QKeySequence::MoveToPreviousWord, Motion::WordLeft, Extend::No),
    Moves(QKeySequence::MoveToNextWord, Motion::WordRight, Extend::No),
    Moves(QKeySequence::MoveToPreviousLine, Motion::LineUp, Extend::No),
    Moves(QKeySequence::MoveToNextLine, Motion::LineDown, Extend::No),
    Moves(QKeySequence::MoveToStartOfLine, Motion::LineStart, Extend::No),
    Moves(QKeySequence::MoveToEndOfLine, Motion::LineEnd, Extend::No),
    Moves(QKeySequence::MoveToPreviousPage, Motion::PageUp, Extend::No),
    Moves(QKeySequence::MoveToNextPage, Motion::PageDown, Extend::No),
    Moves(QKeySequence::MoveToStartOfDocument, Motion::DocumentStart, Extend::No),
    Moves(QKeySequence::MoveToEndOfDocument, Motion::DocumentEnd, Extend::No),
    Moves(Qt::Key_Up, kControl, Motion::ParagraphUp, Extend::No),
    Moves(Qt::Key_Down, kControl, Motion::ParagraphDown, Extend::No),

    Moves(QKeySequence::SelectPreviousChar, Motion::CharacterLeft, Extend::Yes),
    Moves(QKeySequence::SelectNextChar, Motion::CharacterRight, Extend::Yes),
    Moves(QKeySequence::SelectPreviousWord, Motion::WordLeft, Extend::Yes),
    Moves(QKeySequence::SelectNextWord, Motion::WordRight, Extend::Yes),
    Moves(QKeySequence::SelectPreviousLine, Motion::LineUp, Extend::Yes),
    Moves(QKeySequence::SelectNextLine, Motion::LineDown, Extend::Yes),
    Moves(QKeySequence::SelectStartOfLine, Motion::LineStart, Extend::Yes),
    Moves(QKeySequence::SelectEndOfLine, Motion::LineEnd, Extend::Yes),
    Moves(QKeySequence::SelectPreviousPage, Motion::PageUp, Extend::Yes),
    Moves(QKeySequence::SelectNextPage, Motion::PageDown, Extend::Yes),
    Moves(QKeySequence::SelectStartOfDocument, Motion::DocumentStart, Extend::Yes),
    Moves(QKeySequence::SelectEndOfDocument, Motion::DocumentEnd, Extend::Yes),
    Moves(Qt::Key_Up, kControlShift, Motion::ParagraphUp, Extend::Yes),
    Moves(Qt::Key_Down, kControlShift, Motion::ParagraphDown, Extend::Yes),

    Does(QKeySequence::Undo, KeyAction::Undo),
    Does(QKeySequence::Redo, KeyAction::Redo),
    Does(QKeySequence::Cut, KeyAction::Cut),
    Does(QKeySequence::Copy, KeyAction::Copy),
    Does(QKeySequence::Paste, KeyAction::Paste),
    Does(QKeySequence::SelectAll, KeyAction::SelectAll),

    Does(Qt::Key_Backspace, kNone, KeyAction::Backspace),
    Does(Qt::Key_Backspace, kShift, KeyAction::Backspace),
    Does(QKeySequence::Delete, KeyAction::Delete),
    Does(QKeySequence::DeleteStartOfWord, KeyAction::BackspaceWord),
    Does(QKeySequence::DeleteEndOfWord, KeyAction::DeleteWord),
    Does(Qt::Key_Return, kNone, KeyAction::NewParagraph),
    Does(Qt::Key_Enter, kNone, KeyAction::NewParagraph),
    Does(Qt::Key_Return, kShift, KeyAction::NewLine),
    Does(Qt::Key_Enter, kShift, KeyAction::NewLine),
    Does(Qt::Key_Return, kControl, KeyAction::NewPage),
    Does(Qt::Key_Enter, kControl, KeyAction::NewPage),
    Does(Qt::Key_Tab, kNone, KeyAction::Tab),
    Does(Qt::Key_Tab, kControl, KeyAction::LeaveForwards),
    Does(Qt::Key_Tab, kControlShift, KeyAction::LeaveBackwards),
    Does(Qt::Key_Backtab, kControlShift, KeyAction::LeaveBackwards),
    Does(Qt::Key_Backtab, kShift, KeyAction::LeaveBackwards),
    Does(Qt::Key_Insert, kNone, KeyAction::ToggleOverwrite),
};

/// Each row names a key in one of the two ways.
constexpr bool EachRowHasOneKey()
{
    return std::ranges::all_of(kTable, [](const KeyRow& row) {
        return (row.standard == QKeySequence::UnknownKey) != (row.key == Qt::Key_unknown);
    });
}
static_assert(EachRowHasOneKey());

bool Matches(const KeyRow& row, const QKeyEvent& event)
{
    if (row.standard != QKeySequence::UnknownKey)
        return event.matches(row.standard);
    const int modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    return event.key() == row.key && modifiers == row.modifiers;
}

}  // namespace

std::span<const KeyRow> KeyTable() { return kTable; }

std::optional<KeyCommand> CommandOf(const QKeyEvent& event)
{
    const auto row = std::ranges::find_if(kTable, [&](const KeyRow& candidate) { return Matches(candidate, event); });
    return row == kTable.end() ? std::nullopt : std::optional(row->command);
}

bool IsEdit(const KeyCommand& command)
{
    const auto* action = std::get_if<KeyAction>(&command);
    if (!action)
        return false;
    switch (*action)
    {
    case KeyAction::LeaveForwards:
    case KeyAction::LeaveBackwards:
    case KeyAction::ToggleOverwrite:
    case KeyAction::Copy:
    case KeyAction::SelectAll:
        return false;
    default:
        return true;
    }
}

bool TypesText(const QKeyEvent& event)
{
    if (event.text().isEmpty())
        return false;
    const QChar first = event.text().front();
    // Characters that join, part or turn text are typed whatever the modifiers say: some keyboards need them.
    if (first.category() == QChar::Other_Format)
        return true;
    // Control with Alt is how some keyboards spell AltGr.
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (modifiers == Qt::ControlModifier || modifiers == Qt::AltModifier || (modifiers & Qt::MetaModifier))
        return false;
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_PrivateUse;
}

}  // namespace quillmarker
