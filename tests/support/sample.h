#pragma once

#include <quillmarker/text_box.h>

#include <string>
#include <string_view>

namespace quillmarker
{

// A box in one line of text. `^` is where the selection begins and `|` the caret, which alone is an empty selection;
// without one the caret stands at the end. A line feed ends a paragraph, `<cell/>` a table cell, `<row/>` a row,
// `<pic/>` is a picture; `<b>…</b>` bold, `<i>` italic, `<u>` underlined, `<s>` struck out, `<h>` hidden, `<p>`
// protected. Nothing else is formatted. A mark has the format that holds where it stands. A backslash takes the
// special meaning from the next character.

/// The document that a sample stands for, in the format of a new box.
Document SampleDocument(std::string_view sample);

/// A box that holds a sample, without history; nothing was raised.
class SampleBox : public TextBox
{
public:
    explicit SampleBox(std::string_view sample);
};

/// The sample that gives this box. Formats without a tag are not shown.
std::string Dump(const TextBox& box);

/// The same without `^` and `|`.
std::string DumpSample(const Document& document);

/// The picture of `<pic/>`.
InlineObject SamplePicture();

}  // namespace quillmarker
