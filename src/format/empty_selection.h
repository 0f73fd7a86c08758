#pragma once

#include <quillmarker/text_box.h>

#include <functional>

namespace quillmarker
{

/// Lets a character format be put on an empty selection: around the change stands a blank that is inserted, selected and
/// deleted again, and whose format is left for what is typed next. The whole is one step of the history, and none if
/// nothing is left of it.
class EmptySelection
{
public:
    /// Where the text is; null when it is gone: handlers of the host run in the middle of a bracket and may delete it.
    using BoxFinder = std::function<TextBox*()>;

    /// True before the change, false after it. Calls are not nested.
    void WrapEmptySelection(const BoxFinder& box, bool begin);
    /// For a box that outlives the call.
    void WrapEmptySelection(TextBox& box, bool begin);

private:
    void Begin(const BoxFinder& box);
    void End(const BoxFinder& box);

    Selection m_saved;
};

}  // namespace quillmarker
