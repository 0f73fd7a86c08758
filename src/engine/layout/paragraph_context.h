#pragma once

#include "number_index.h"
#include "paragraph_layout.h"

#include <quillmarker/document.h>

namespace quillmarker
{

/// The context of a document's paragraph for lines of a width: its number and what its neighbours mean for it.
ParagraphContext ContextOf(const Document& document, std::int32_t paragraph, Twips width, NumberIndex& numbers);

}  // namespace quillmarker
