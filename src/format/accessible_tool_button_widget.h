#pragma once

namespace quillmarker
{

class ToolButton;

/// Makes a button known to screen readers: its texts, whether it is pressed, and that it is neither where the selection
/// is mixed.
void MakeAccessible(ToolButton& button);

}  // namespace quillmarker
