#pragma once

#include <quillmarker/widgets/platform_services.h>

namespace quillmarker
{

/// Rewrites what the text has just put on the clipboard, so that hidden field markers do not travel with it: at most rich
/// text and plain text are left there. A clipboard without rich text is left as it is.
void CleanClipboard(ClipboardService& clipboard, PendingEventService& pendingEvents);

}  // namespace quillmarker
