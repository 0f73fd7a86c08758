#include "text_moving.h"

#include "engine/document/edit.h"

namespace quillmarker
{
namespace
{

/// Puts a fragment at a position and selects it there.
bool PutAt(TextBox& box, std::int32_t begin, const Document& fragment, const BoxLife& isThere)
{
    box.Select({begin, 0});
    if (!isThere() || !box.PasteFragment(fragment) || !isThere())
        return false;
    box.Select({begin, box.SelStart() - begin});
    return isThere();
}

}  // namespace

bool MoveText(TextBox& box, TextRange source, Position target, const BoxLife& isThere)
{
    if (target >= source.begin && target <= source.end)
        return false;
    const Document before = box.Value();
    const Selection selected{box.SelStart(), box.SelLength()};
    const Document moved = Slice(before, source);
    box.BeginStep();
    bool isDone = box.TypeOver(source, u"");
    if (isDone && isThere())
    {
        const std::int32_t taken = before.Size() - box.TextLength();
        isDone = PutAt(box, target.value - (target > source.begin ? taken : 0), moved, isThere);
    }
    // Protected text lets nothing in: then nothing has happened.
    if (!isDone && isThere())
        box.SetValue(before, selected);
    if (isThere())
        box.EndStep();
    return isDone;
}

bool DeleteMoved(TextBox& box, const Document& dragged, TextRange source, const BoxLife& isThere)
{
    if (!box.Value().IsSameAs(dragged))
        return false;
    box.BeginStep();
    const bool isDone = box.TypeOver(source, u"");
    if (isThere())
        box.EndStep();
    return isDone;
}

}  // namespace quillmarker
