#include "text_moving.h"

#include "engine/document/edit.h"

namespace quillmarker
{

bool MoveText(TextBox& box, TextRange source, Position target)
{
    if (target >= source.begin && target <= source.end)
        return false;
    const Document before = box.Value();
    const Selection selected{box.SelStart(), box.SelLength()};
    const Document moved = Slice(before, source);
    box.BeginStep();
    bool isDone = box.TypeOver(source, u"");
    if (isDone)
    {
        const std::int32_t taken = before.Size() - box.TextLength();
        const std::int32_t begin = target.value - (target > source.begin ? taken : 0);
        box.Select({begin, 0});
        isDone = box.PasteFragment(moved);
        if (isDone)
            box.Select({begin, box.SelStart() - begin});
    }
    // Protected text lets nothing in: then nothing has happened.
    if (!isDone)
        box.SetValue(before, selected);
    box.EndStep();
    return isDone;
}

}  // namespace quillmarker
