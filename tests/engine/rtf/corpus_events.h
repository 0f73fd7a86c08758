#pragma once

#include <string>
#include <string_view>

namespace quillmarker
{

/// The text of the document that a recording of RTF events (groups, commands, characters, as XML) describes, in UTF-8
/// with breaks as CR LF. What belongs to tables, headers, instructions and starred groups is left out.
std::string TextOfEvents(std::string_view xml);

}  // namespace quillmarker
