#pragma once

#include "header.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillmarker::metafile
{

/// The EMF that a WMF was made from, which its comments may carry in pieces: it says more than the WMF. Empty when there is
/// none or not all of it.
std::optional<std::string> EmbeddedEmf(std::string_view bytes, const WmfHeader& header);

}  // namespace quillmarker::metafile
