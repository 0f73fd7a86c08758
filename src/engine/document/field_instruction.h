#pragma once

#include <quillmarker/char_format.h>

#include <string>

namespace quillmarker
{

/// The text that stands for a field whose source gives no result, and its font when the instruction names one. Empty
/// when only a word processor could compute it.
struct MissingResult
{
    std::u16string text;
    std::u16string font;
};

MissingResult ResultOf(const Field& field);

}  // namespace quillmarker
