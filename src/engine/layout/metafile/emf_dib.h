#pragma once

#include "byte_reader.h"
#include "dib.h"

namespace quillmarker::metafile
{

/// The part of a record, by a place that counts from its start, and a size; empty when it is not inside.
inline std::string_view PartOf(const ByteReader& record, std::uint32_t place, std::uint32_t size)
{
    ByteReader whole(record.All());
    whole.MoveTo(place);
    const std::string_view part = whole.Bytes(size);
    return whole.HasFailed() ? std::string_view() : part;
}

/// Reads where the header and the pixels of a bitmap are.
inline Dib ReadDibPlaces(ByteReader& record, ColourUse use)
{
    const std::uint32_t headerPlace = record.U32();
    const std::uint32_t headerSize = record.U32();
    const std::uint32_t pixelPlace = record.U32();
    const std::uint32_t pixelSize = record.U32();
    return {PartOf(record, headerPlace, headerSize), PartOf(record, pixelPlace, pixelSize), use};
}

}  // namespace quillmarker::metafile
