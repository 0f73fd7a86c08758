#pragma once

#include "engine/rtf/tokenizer.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace quillmarker
{

class Reader;
struct Keyword;

using KeywordAction = void (*)(Reader&, const Keyword&, const Parameter&);

/// Whether a word stands for a character: only such a one is what a preceding \u stands in for.
enum class WordKind : bool { Command, Character };

/// A control word the reader knows, and what it does.
struct Keyword
{
    std::string_view name;
    KeywordAction action;
    WordKind kind = WordKind::Command;
};

/// All of them, ascending by name.
std::span<const Keyword> Keywords();

/// The keyword of that name; none when the reader does not know it.
const Keyword* FindKeyword(std::string_view name);

}  // namespace quillmarker
