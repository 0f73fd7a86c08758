#pragma once

#include <quillmarker/export.h>

#include <string>

namespace quillmarker
{

/// Takes every hidden field marker out of `text`: "/h/" in either case, a key, and a closing "/" that lies fewer than
/// 21 characters after the marker's start. Where what was before and what was behind a marker make a new one, that
/// goes too.
QUILLMARKER_CORE_EXPORT void StripMarkers(std::u16string& text);

}  // namespace quillmarker
