#pragma once

#include "document_flow.h"
#include "text_steps.h"

#include <quillmarker/pages/export.h>

#include <cstdint>
#include <optional>

namespace quillmarker
{

/// Where a key moves the caret. Left and Right follow the screen: in a paragraph from right to left, Left is forwards.
enum class Motion : std::uint8_t {
    CharacterLeft,
    CharacterRight,
    PreviousCharacter,
    NextCharacter,
    WordLeft,
    WordRight,
    PreviousWord,
    NextWord,
    LineUp,
    LineDown,
    LineStart,
    LineEnd,
    ParagraphUp,
    ParagraphDown,
    PageUp,
    PageDown,
    DocumentStart,
    DocumentEnd,
};

constexpr std::size_t kMotions = 18;

/// What a motion needs beside the caret.
struct MotionContext
{
    /// Of the view, for PageUp and PageDown.
    Fine pageHeight = 0;
    /// The column that the last LineUp, LineDown, PageUp or PageDown kept; none after anything else.
    std::optional<Fine> column;
};

struct MovedCaret
{
    CaretPosition caret;
    /// To be given to the next motion.
    std::optional<Fine> column;

    bool operator==(const MovedCaret&) const = default;
};

/// The caret behind the motion; where it was, if it cannot go there.
QUILLMARKER_PAGES_EXPORT MovedCaret Moved(DocumentFlow& flow, CaretPosition caret, Motion motion,
                                          const MotionContext& context = {});

}  // namespace quillmarker
