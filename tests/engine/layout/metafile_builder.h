#pragma once

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quillmarker
{

/// Bytes, written little-endian.
class ByteWriter
{
public:
    ByteWriter& U8(std::uint32_t number) { return Number(number, 1); }
    ByteWriter& U16(std::uint32_t number) { return Number(number, 2); }
    ByteWriter& I16(std::int32_t number) { return Number(static_cast<std::uint32_t>(number), 2); }
    ByteWriter& U32(std::uint32_t number) { return Number(number, 4); }
    ByteWriter& I32(std::int32_t number) { return Number(static_cast<std::uint32_t>(number), 4); }
    ByteWriter& F32(float number) { return U32(std::bit_cast<std::uint32_t>(number)); }
    ByteWriter& Bytes(std::string_view bytes)
    {
        m_bytes += bytes;
        return *this;
    }

    /// Zeros up to a multiple of `size`.
    ByteWriter& Fill(std::size_t size)
    {
        m_bytes.resize((m_bytes.size() + size - 1) / size * size);
        return *this;
    }

    const std::string& Written() const { return m_bytes; }

private:
    ByteWriter& Number(std::uint32_t number, int size)
    {
        for (int i = 0; i < size; ++i)
            m_bytes += static_cast<char>(number >> (8 * i) & 0xFF);
        return *this;
    }

    std::string m_bytes;
};

/// A WMF, record by record. Its window is 100 by 100, unless a record says otherwise.
class WmfBuilder
{
public:
    WmfBuilder() { Words(0x020B, {0, 0}).Words(0x020C, {100, 100}); }

    WmfBuilder& Record(std::uint32_t number, const ByteWriter& body)
    {
        ByteWriter padded = body;
        padded.Fill(2);
        m_records.U32(static_cast<std::uint32_t>(padded.Written().size() / 2 + 3)).U16(number).Bytes(padded.Written());
        return *this;
    }

    WmfBuilder& Words(std::uint32_t number, std::initializer_list<int> words)
    {
        ByteWriter body;
        for (const int word : words)
            body.I16(word);
        return Record(number, body);
    }

    /// Made, and selected: `handle` has to be the lowest that is free.
    WmfBuilder& Brush(int handle, std::uint32_t colour)
    {
        return Record(0x02FC, ByteWriter().U16(0).U32(colour).U16(0)).Words(0x012D, {handle});
    }

    WmfBuilder& Pen(int handle, int style, int width, std::uint32_t colour)
    {
        return Record(0x02FA, ByteWriter().U16(static_cast<std::uint32_t>(style)).I16(width).I16(0).U32(colour))
            .Words(0x012D, {handle});
    }

    WmfBuilder& Rectangle(int left, int top, int right, int bottom)
    {
        return Words(0x041B, {bottom, right, top, left});
    }

    std::string Standard() const
    {
        return ByteWriter()
            .U16(1)
            .U16(9)
            .U16(0x300)
            .U32(static_cast<std::uint32_t>(m_records.Written().size() / 2 + 12))
            .U16(16)
            .U32(1000)
            .U16(0)
            .Bytes(m_records.Written())
            .U32(3)
            .U16(0)
            .Written();
    }

    std::string Placeable(int left, int top, int right, int bottom, int inch) const
    {
        return ByteWriter()
            .U32(0x9AC6CDD7)
            .U16(0)
            .I16(left)
            .I16(top)
            .I16(right)
            .I16(bottom)
            .I16(inch)
            .U32(0)
            .U16(0)
            .Bytes(Standard())
            .Written();
    }

private:
    ByteWriter m_records;
};

/// An EMF, record by record, of a device of 100 by 100 pixels, each a millimetre wide; all of it is the picture.
class EmfBuilder
{
public:
    EmfBuilder& Record(std::uint32_t number, const ByteWriter& body)
    {
        ByteWriter padded = body;
        padded.Fill(4);
        m_records.U32(number).U32(static_cast<std::uint32_t>(padded.Written().size() + 8)).Bytes(padded.Written());
        return *this;
    }

    EmfBuilder& Longs(std::uint32_t number, std::initializer_list<int> numbers)
    {
        ByteWriter body;
        for (const int each : numbers)
            body.I32(each);
        return Record(number, body);
    }

    /// Made, and selected.
    EmfBuilder& Brush(int handle, std::uint32_t colour)
    {
        return Longs(39, {handle, 0, static_cast<int>(colour), 0}).Longs(37, {handle});
    }

    EmfBuilder& Pen(int handle, int style, int width, std::uint32_t colour)
    {
        return Longs(38, {handle, style, width, 0, static_cast<int>(colour)}).Longs(37, {handle});
    }

    EmfBuilder& NullPen() { return Record(37, ByteWriter().U32(0x80000008)); }

    EmfBuilder& Rectangle(int left, int top, int right, int bottom) { return Longs(43, {left, top, right, bottom}); }

    /// A record that begins with bounds.
    EmfBuilder& Drawing(std::uint32_t number, const ByteWriter& body)
    {
        return Record(number, ByteWriter().U32(0).U32(0).U32(0).U32(0).Bytes(body.Written()));
    }

    std::string Whole() const
    {
        ByteWriter header;
        header.U32(1).U32(88).I32(0).I32(0).I32(99).I32(99).I32(0).I32(0).I32(10000).I32(10000);
        header.Bytes(" EMF").U32(0x10000).U32(0).U32(0).U16(16).U16(0).U32(0).U32(0).U32(0);
        header.U32(100).U32(100).U32(100).U32(100);
        return header.Bytes(m_records.Written()).U32(14).U32(20).U32(0).U32(16).U32(20).Written();
    }

private:
    ByteWriter m_records;
};

/// A bitmap of 24 bits, its rows given from below, its colours as 0xRRGGBB.
inline std::string DibOf(int width, int height, std::initializer_list<std::uint32_t> pixels)
{
    ByteWriter dib;
    dib.U32(40).I32(width).I32(height).U16(1).U16(24);
    for (int i = 0; i < 6; ++i)
        dib.U32(0);
    int column = 0;
    for (const std::uint32_t pixel : pixels)
    {
        dib.U8(pixel & 0xFF).U8(pixel >> 8 & 0xFF).U8(pixel >> 16 & 0xFF);
        if (++column % width == 0)
            dib.Fill(4);
    }
    return dib.Written();
}

}  // namespace quillmarker
