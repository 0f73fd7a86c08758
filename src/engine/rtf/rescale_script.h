#pragma once

#include <quillmarker/export.h>

#include <string>
#include <string_view>

namespace quillmarker
{

/// Reduces raised or lowered text after a change of size. For each `keyword` (a control word with its backslash: \dn
/// or \up) the nearest size before it, \fsN, becomes 70 % of N, and the keyword's number becomes N x `factor` / 20,
/// rounded down. Case is ignored.
///
/// Where the reduced size has fewer digits than N, the keyword's number is looked for as many characters further on.
/// A keyword without a size before it stays as it is.
QUILLMARKER_CORE_EXPORT void RescaleScriptRTF(std::u16string& rtf, std::u16string_view keyword, int factor);

}  // namespace quillmarker
