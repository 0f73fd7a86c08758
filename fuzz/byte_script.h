#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillmarker
{

/// A fuzzer's input read as numbers and texts. Behind its end everything is 0 and empty.
class ByteScript
{
public:
    ByteScript(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    bool IsAtEnd() const { return m_at == m_size; }
    unsigned Byte() { return IsAtEnd() ? 0U : m_data[m_at++]; }
    unsigned Below(unsigned limit) { return Byte() % limit; }

    /// A position in or near a text of `size` units; negative ones and huge ones too.
    std::int32_t Position(std::int32_t size);

    /// A text of a small alphabet that holds line ends, separators, surrogates, case pairs; now and then a long one.
    std::u16string Text();

    /// A few of the bytes as they are.
    std::string Bytes();

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_at = 0;
};

}  // namespace quillmarker
