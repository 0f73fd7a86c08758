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
    Selection saved;
    Try(find, [&](const TextBox& box) { saved = {box.SelStart(), box.SelLength()}; });
    m_saved.push_back(saved);
    Try(find, [](TextBox& box) { box.BeginStep(); });
    if (saved.length != 0)
        return;
    Try(find, [](TextBox& box) { box.SetSelText(u" "); });
    Try(find, [&](TextBox& box) { box.SetSelStart(saved.start); });
    Try(find, [](TextBox& box) { box.SetSelLength(1); });
}

/// The length goes first: setting the start would drop the format that the blank leaves, were it not where the caret is.
void EmptySelection::End(const BoxFinder& find)
{
    if (m_saved.empty())
        return;
    const Selection saved = m_saved.back();
    m_saved.pop_back();
    if (saved.length == 0)
    {
        Try(find, [](TextBox& box) { box.SetSelText(u""); });
        Try(find, [&](TextBox& box) { box.SetSelLength(saved.length); });
        Try(find, [&](TextBox& box) { box.SetSelStart(saved.start); });
    }
    Try(find, [](TextBox& box) { box.EndStep(); });
}

}  // namespace quillmarker
