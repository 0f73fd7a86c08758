#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillmarker
{

/// A number behind a control word. One that is not given has the value 0; one beyond 32 bits is the nearest that fits.
struct Parameter
{
    std::int32_t value = 0;
    std::string_view digits;  // as written, with the sign; empty when there is none

    bool IsGiven() const { return !digits.empty(); }
    std::int32_t Or(std::int32_t other) const { return IsGiven() ? value : other; }
};

enum class TokenKind : std::uint8_t {
    End,
    Open,
    Close,
    Text,    // a stretch of plain bytes
    Byte,    // \'xx
    Word,    // a control word
    Symbol,  // a backslash and one character that is no letter
    Binary,  // \bin and its bytes
};

struct Token
{
    TokenKind kind = TokenKind::End;
    bool isAscii = true;    // of a text: no byte above 0x7F
    std::string_view text;  // of a text its bytes, of a word its name, of \bin the data
    Parameter parameter;
    unsigned char byte = 0;  // of \'xx its value, of a symbol its character
};

/// Whether counts in the source are of bytes (a file) or of characters that are held here as UTF-8 (a string).
enum class SourceKind : bool { Bytes, Utf8 };

/// Cuts RTF source into tokens. It never fails: what breaks the syntax is read as text or as the end. Line ends and
/// control characters outside of control words are no part of the text and do not appear.
class Tokenizer
{
public:
    explicit Tokenizer(std::string_view source, SourceKind kind = SourceKind::Bytes) : m_source(source), m_kind(kind) {}

    Token Next();

    /// After an open brace was read: moves behind the brace that closes its group.
    void SkipGroup();

    /// Whether the source goes on with `text`.
    bool IsAt(std::string_view text) const { return m_source.substr(m_at).starts_with(text); }

    /// When a group comes next (line ends and blanks may stand before it): moves behind it.
    bool SkipNextGroup();

    std::size_t Offset() const { return m_at; }
    void MoveTo(std::size_t offset) { m_at = offset; }

private:
    Token TextToken();
    Token AfterBackslash();
    Token WordToken();
    Token Binary(const Parameter& count);
    Parameter ReadParameter();

    std::string_view m_source;
    SourceKind m_kind;
    std::size_t m_at = 0;
};

}  // namespace quillmarker
