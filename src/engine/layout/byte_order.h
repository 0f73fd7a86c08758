#pragma once

#include <QtEndian>

#include <cstddef>
#include <string_view>

namespace quillmarker
{

/// The number that stands at an offset of bytes; 0 where they end before it does.
template <class Number>
Number LittleEndianAt(std::string_view bytes, std::size_t at)
{
    return at <= bytes.size() && bytes.size() - at >= sizeof(Number) ? qFromLittleEndian<Number>(bytes.data() + at) : 0;
}

template <class Number>
Number BigEndianAt(std::string_view bytes, std::size_t at)
{
    return at <= bytes.size() && bytes.size() - at >= sizeof(Number) ? qFromBigEndian<Number>(bytes.data() + at) : 0;
}

}  // namespace quillmarker
