#pragma once

#include "canvas.h"
#include "header.h"

#include <string_view>

namespace quillmarker
{
struct MetafileHint;
}

namespace quillmarker::metafile
{

void PlayWmf(Canvas& canvas, std::string_view bytes, const WmfHeader& header, const MetafileHint& hint);

enum class EmfOutcome : std::uint8_t { Played, OnlyUnknownComments };

/// The second outcome: nothing was painted, and what the file draws it says in comments of a later format.
EmfOutcome PlayEmf(Canvas& canvas, std::string_view bytes, const EmfHeader& header);

}  // namespace quillmarker::metafile
