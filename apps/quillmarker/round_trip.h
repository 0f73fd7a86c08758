#pragma once

#include <quillmarker/document.h>

#include <functional>
#include <string>
#include <string_view>

namespace quillmarker::tool
{

/// Makes RTF of a document.
using Writer = std::function<std::string(const Document&)>;

/// Reads RTF, writes it, reads that and writes it again. Empty when the second document equals the first and the
/// second bytes the first bytes; else what differs, in a few lines.
std::string RoundTripDifference(std::string_view bytes, const Writer& write);

/// The first line in which two texts differ, of each, together with the line that it is indented below; "(nothing)"
/// stands for the end of one.
std::string FirstDifference(std::string_view before, std::string_view after);

}  // namespace quillmarker::tool
