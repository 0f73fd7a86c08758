#pragma once

#include <quillmarker/text_box.h>

#include <functional>
#include <vector>

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

    /// True before the change, false after it. A handler in the middle of a bracket may open and close one of its own.
    void WrapEmptySelection(const BoxFinder& box, bool begin);
    /// For a box that outlives the call.
    void WrapEmptySelection(TextBox& box, bool begin);

private:
    void Begin(const BoxFinder& find);
    void End(const BoxFinder& find);

    std::vector<Selection> m_saved;  // of the brackets that are open
};

}  // namespace quillmarker
