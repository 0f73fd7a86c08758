#pragma once

#include <quillmarker/inline_object.h>
#include <quillmarker/paragraph_format.h>

#include <string>
#include <string_view>

namespace quillmarker
{

/// Bytes written as hexadecimal digits; anything that is no digit is passed over.
class HexReading
{
public:
    void Append(std::string_view digits);
    void AppendBinary(std::string_view bytes) { m_bytes.append(bytes); }
    std::string Take();

private:
    std::string m_bytes;
    int m_high = -1;
};

/// A picture whose group is open.
struct PictureReading
{
    InlinePicture picture;
    HexReading bytes;
};

/// An object whose group is open.
struct ObjectReading
{
    EmbeddedObject object;
    HexReading data;
};

/// The bullet or number of a paragraph as old files state it, in a \pn group.
struct OldNumbering
{
    Numbering numbering;
    std::u16string before;
    std::u16string after;
    std::int32_t font = -1;
    bool continues = false;  // \pnlvlcont: the paragraph has no number of its own

    Numbering Finish() const;
};

}  // namespace quillmarker
