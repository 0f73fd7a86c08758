#pragma once

#include "font_choice.h"

#include <quillmarker/widgets/platform_services.h>

namespace quillmarker
{

inline constexpr int kFontHelpContext = 12'897;

/// What the chooser needs of the machine; all of it outlives the call.
struct FontServices
{
    FontDialogService& fontDialog;
    MessageBoxService& messageBoxes;
    HelpService& help;
};

/// Runs the chooser on `rec`. True when the user pressed OK, and then `rec` is what was chosen; false on Cancel and when
/// the chooser fails.
/// In either case the character set is put back to `defaultCharset` unless it is that of Symbol, and a message says so.
/// `owner`, over which both are shown, may be deleted meanwhile.
bool ChooseFontDialog(FontChoice& rec, const FontServices& services, QWidget* owner, int dotsPerInch,
                      int defaultCharset);

}  // namespace quillmarker
