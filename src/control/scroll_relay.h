#pragma once

#include <quillmarker/widgets/rich_text_view.h>

namespace quillmarker
{

/// Turns every horizontal scroll of the text into a key release that is posted to `relay`, so that whoever watches that
/// widget hears of it after the scroll has taken effect. The relay is one for the process: of two editors the later one's
/// hears of both. Hosts have come to rely on it.
void HookEngineWindow(RichTextView& engine, QWidget& relay);

}  // namespace quillmarker
