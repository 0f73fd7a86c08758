#pragma once

#include <quillmarker/char_format.h>
#include <quillmarker/paragraph_format.h>

#include <cstdint>
#include <optional>
#include <string>

namespace quillmarker
{

enum class StyleKind : std::uint8_t { Paragraph, Character, Other };

/// What a style sheet says of a style, kept for saving: formats of text and paragraphs state all they have themselves.
/// What is as in a default-constructed format, its font and size included, is not stated.
struct StyleDefinition
{
    CharFormat chars;
    ParagraphFormat paragraph;
    std::optional<Name> basedOn;  // an empty name is the normal style
    std::optional<Name> next;
    std::string kept;
};

}  // namespace quillmarker
