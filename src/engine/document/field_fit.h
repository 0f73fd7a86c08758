#pragma once

#include <quillmarker/document.h>

namespace quillmarker
{

/// A fragment that is about to take the place of `range`, with the numbers of its fields changed so that they fit there:
/// a part of a field that is put back is that field again, and a field put beside an equal one is another.
Document WithFieldsFitted(const Document& document, TextRange range, const Document& fragment);

}  // namespace quillmarker
