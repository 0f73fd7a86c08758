#include "fuzzed_source.h"

namespace quillmarker
{

FuzzedSource::FuzzedSource(const std::uint8_t* data, std::size_t size) : bytes(data, data + size)
{
    constexpr unsigned char kChoices = 4;
    if (bytes.empty() || static_cast<unsigned char>(bytes[0]) >= kChoices)
        return;
    isString = (bytes[0] & 1) != 0;
    scope = (bytes[0] & 2) != 0 ? RtfScope::Fragment : RtfScope::Document;
    bytes.erase(0, 1);
    bytes.shrink_to_fit();
}

Document FuzzedSource::Read() const
{
    RtfReading options;
    options.scope = scope;
    return isString ? ReadRtf(std::u16string_view(UnitsOf(bytes)), options) : ReadRtf(std::string_view(bytes), options);
}

std::u16string UnitsOf(std::string_view bytes)
{
    std::u16string units;
    for (std::size_t i = 0; i < bytes.size(); ++i)
    {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte < 0x80 || i + 1 == bytes.size())
        {
            units += static_cast<char16_t>(byte);
            continue;
        }
        ++i;
        units += static_cast<char16_t>(byte << 8 | static_cast<unsigned char>(bytes[i]));
    }
    return units;
}

}  // namespace quillmarker
