#pragma once

#include <quillmarker/text_box.h>

namespace quillmarker
{

/// Lets a character format be put on an empty selection: around the change stands a blank that is inserted, selected and
/// deleted again, and whose format is left for what is typed next. The whole is one step of the history, and none if
/// nothing is left of it.
class EmptySelection
{
public:
    /// True before the change, false after it. Calls are not nested.
    void WrapEmptySelection(TextBox& box, bool begin);

private:
    void Begin(TextBox& box);
    void End(TextBox& box);

    Selection m_saved;
};

}  // namespace quillmarker
