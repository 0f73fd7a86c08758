#pragma once

#include <quillmarker/paragraph.h>

#include <cstdint>
#include <string>

namespace quillmarker
{

/// What an object is in the text that hosts read.
constexpr char16_t kObjectAsText = u' ';

/// The units of a mark in the text.
constexpr std::u16string_view MarkText(Mark mark) { return mark == Mark::Cell ? u"\t" : u"\r\n"; }

/// Appends the units `begin` to `end` of a paragraph, its mark included, as they stand in the text.
void AppendText(const Paragraph&, std::int32_t begin, std::int32_t end, std::u16string& out);

}  // namespace quillmarker
