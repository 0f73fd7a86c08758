#include "empty_selection.h"

#include "engine/box/attempt.h"

namespace quillmarker
{
namespace
{

template <class Step>
void Try(const EmptySelection::BoxFinder& find, Step step)
{
    Attempt([&] {
        if (TextBox* box = find())
            step(*box);
    });
}

}  // namespace

void EmptySelection::WrapEmptySelection(const BoxFinder& box, bool begin) { begin ? Begin(box) : End(box); }

void EmptySelection::WrapEmptySelection(TextBox& box, bool begin)
{
    WrapEmptySelection([&box] { return &box; }, begin);
}

void EmptySelection::Begin(const BoxFinder& find)
{
    Try(find, [&](const TextBox& box) { m_saved = {box.SelStart(), box.SelLength()}; });
    Try(find, [](TextBox& box) { box.BeginStep(); });
    if (m_saved.length != 0)
        return;
    Try(find, [](TextBox& box) { box.SetSelText(u" "); });
    Try(find, [&](TextBox& box) { box.SetSelStart(m_saved.start); });
    Try(find, [](TextBox& box) { box.SetSelLength(1); });
}

/// The length goes first: setting the start would drop the format that the blank leaves, were it not where the caret is.
void EmptySelection::End(const BoxFinder& find)
{
    if (m_saved.length == 0)
    {
        Try(find, [](TextBox& box) { box.SetSelText(u""); });
        Try(find, [&](TextBox& box) { box.SetSelLength(m_saved.length); });
        Try(find, [&](TextBox& box) { box.SetSelStart(m_saved.start); });
    }
    Try(find, [](TextBox& box) { box.EndStep(); });
}

}  // namespace quillmarker
