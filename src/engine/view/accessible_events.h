#pragma once

#include <quillmarker/widgets/rich_text_view.h>

namespace quillmarker
{

/// From now on tells screen readers what changes in the view: text put in and taken out, formats, the caret, the
/// selection. Work is done only while one is there.
void FollowForAccessibility(RichTextView& view);

}  // namespace quillmarker
