#include "empty_selection.h"

#include "engine/box/attempt.h"

namespace quillmarker
{

void EmptySelection::WrapEmptySelection(TextBox& box, bool begin) { begin ? Begin(box) : End(box); }

void EmptySelection::Begin(TextBox& box)
{
    Attempt([&] { m_saved = {box.SelStart(), box.SelLength()}; });
    Attempt([&] { box.BeginStep(); });
    if (m_saved.length != 0)
        return;
    Attempt([&] { box.SetSelText(u" "); });
    Attempt([&] { box.SetSelStart(m_saved.start); });
    Attempt([&] { box.SetSelLength(1); });
}

/// The length goes first: setting the start would drop the format that the blank leaves, were it not where the caret is.
void EmptySelection::End(TextBox& box)
{
    if (m_saved.length == 0)
    {
        Attempt([&] { box.SetSelText(u""); });
        Attempt([&] { box.SetSelLength(m_saved.length); });
        Attempt([&] { box.SetSelStart(m_saved.start); });
    }
    Attempt([&] { box.EndStep(); });
}

}  // namespace quillmarker
