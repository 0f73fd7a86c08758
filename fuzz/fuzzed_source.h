#pragma once

#include <quillmarker/rtf.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace quillmarker
{

/// RTF source made of a fuzzer's input. A first byte below four chooses: 1 the source is a string of UTF-16 units,
/// 2 it is a fragment. Any other first byte belongs to the source, so that an RTF file is an input as it is.
struct FuzzedSource
{
    FuzzedSource(const std::uint8_t* data, std::size_t size);

    Document Read() const;
    std::size_t Size() const { return bytes.size(); }

    std::string bytes;
    bool isString = false;
    RtfScope scope = RtfScope::Document;
};

/// Two bytes from 0x80 up make one unit beyond ASCII, surrogates among them; all others stand for themselves.
std::u16string UnitsOf(std::string_view bytes);

}  // namespace quillmarker
