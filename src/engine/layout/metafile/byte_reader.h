#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillmarker::metafile
{

/// Reads little-endian numbers. What lies beyond the end reads as zero and leaves the reader failed for good, so that a
/// record is read first and believed afterwards.
class ByteReader
{
public:
    explicit ByteReader(std::string_view bytes) : m_bytes(bytes) {}

    std::uint8_t U8() { return static_cast<std::uint8_t>(Number(1)); }
    std::uint16_t U16() { return static_cast<std::uint16_t>(Number(2)); }
    std::uint32_t U32() { return Number(4); }
    std::int16_t I16() { return static_cast<std::int16_t>(U16()); }
    std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
    float F32() { return std::bit_cast<float>(U32()); }

    void Skip(std::size_t count) { Bytes(count); }

    /// Failed, and nothing moves, when `place` lies beyond the end.
    void MoveTo(std::size_t place)
    {
        if (place > m_bytes.size())
            m_hasFailed = true;
        else
            m_at = place;
    }

    /// All of the `count` bytes, or none.
    std::string_view Bytes(std::size_t count)
    {
        if (count > Left())
        {
            m_hasFailed = true;
            m_at = m_bytes.size();
            return {};
        }
        const std::string_view found = m_bytes.substr(m_at, count);
        m_at += count;
        return found;
    }

    std::size_t At() const { return m_at; }
    std::size_t Left() const { return m_bytes.size() - m_at; }
    std::string_view All() const { return m_bytes; }
    bool HasFailed() const { return m_hasFailed; }

private:
    std::uint32_t Number(std::size_t size)
    {
        std::uint32_t number = 0;
        int shift = 0;
        for (const char byte : Bytes(size))
        {
            number |= static_cast<std::uint32_t>(static_cast<unsigned char>(byte)) << shift;
            shift += 8;
        }
        return number;
    }

    std::string_view m_bytes;
    std::size_t m_at = 0;
    bool m_hasFailed = false;
};

}  // namespace quillmarker::metafile
