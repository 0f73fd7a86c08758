#include <quillmarker/widgets/platform_services.h>

#include "clipboard.h"

namespace quillmarker
{

PlatformServices QtServices()
{
    return {
        .printers = MakeQtPrinters(BuiltInPrinter::Offered),
        .messageBoxes = MakeQtMessageBoxes(),
        .fontFamilies = MakeQtFontFamilies(),
        .screen = MakeQtScreen(),
        .keyLocks = MakeQtKeyLocks(),
        .pendingEvents = MakeQtPendingEvents(),
        .clipboard = MakeQtClipboard(),
        .fontDialog = MakeQtFontDialog(),
        .help = MakeQtHelp(),
    };
}

}  // namespace quillmarker
