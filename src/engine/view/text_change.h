#pragma once

#include <quillmarker/document.h>
#include <quillmarker/position.h>

#include <string>
#include <vector>

namespace quillmarker
{

/// What an edit did to the text, for those who follow the text and not the document. Where neither is anything, only
/// formats changed.
struct TextChange
{
    Position at;  // in the text as the changes before it have left it
    std::u16string removed;
    std::u16string inserted;

    bool operator==(const TextChange&) const = default;
};

struct TextChanges
{
    std::vector<TextChange> changes;  // ascending
    /// Too much differs to tell it piece by piece.
    bool isEverything = false;
};

/// Longer changes are not told piece by piece.
constexpr std::int32_t kMaxTextChange = 64 * 1024;

/// What is to be done to the one text to get the other. The work grows with the paragraphs that differ.
TextChanges TextChangesBetween(const Document& before, const Document& after);

}  // namespace quillmarker
