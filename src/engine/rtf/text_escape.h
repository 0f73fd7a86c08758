#pragma once

#include <string>
#include <string_view>

namespace quillmarker
{

/// Appends text as 7-bit RTF source. Characters beyond ASCII are written \uN with a fallback of one byte, and a
/// backslash as \'5c, so that nothing in the text looks like a control word.
void AppendEscaped(std::u16string_view text, std::string& out);

/// The same for a name in a table, where a semicolon would end it.
void AppendEscapedName(std::u16string_view text, std::string& out);

/// Appends bytes as hexadecimal digits in lines.
void AppendHex(std::string_view bytes, std::string& out);

/// Appends "\word" or "\wordN".
void AppendWord(std::string& out, std::string_view word);
void AppendWord(std::string& out, std::string_view word, long long parameter);

}  // namespace quillmarker
