#include "view_state.h"

#include "clipboard_formats.h"
#include "text_moving.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QScrollBar>

#include <algorithm>

namespace quillmarker
{
namespace
{

/// Near an edge a drag scrolls.
constexpr int kDragMargin = 16;

int DragStep(int at, int length)
{
    if (at < kDragMargin)
        return at - kDragMargin;
    return std::max(at - (length - kDragMargin), 0);
}

}  // namespace

void RichTextView::State::StartDrag()
{
    std::unique_ptr<QMimeData> data = MimeDataOfSelection(box, copyFilter);
    if (!data)
        return;
    // What must not be deleted is copied.
    const bool mayMove = MayEdit() && box.SelProtected() == false;
    const Qt::DropActions actions = mayMove ? Qt::CopyAction | Qt::MoveAction : Qt::DropActions(Qt::CopyAction);
    const QPointer<RichTextView> alive(&view);
    auto* drag = new QDrag(&view);
    drag->setMimeData(data.release());
    isOwnDrag = true;
    const Qt::DropAction done = drag->exec(actions, mayMove ? Qt::MoveAction : Qt::CopyAction);
    if (!alive)
        return;
    isOwnDrag = false;
    HideDropCaret();
    const bool wentElsewhere = drag->target() != &view && drag->target() != view.viewport();
    if (done == Qt::MoveAction && wentElsewhere)
        box.TypeDelete();
}

bool RichTextView::State::TakesDrop(const QDropEvent& event) const
{
    return MayEdit() && event.mimeData() && CanInsertMimeData(*event.mimeData());
}

void RichTextView::State::ShowDropCaret(const QPoint& point)
{
    const int down = DragStep(point.y(), view.viewport()->height());
    const int right = DragStep(point.x(), view.viewport()->width());
    if (down != 0)
        view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + down);
    if (right != 0)
        view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->value() + right);
    HideDropCaret();
    dropCaret = HitAt(point).caret;
    view.viewport()->update(CaretRectangle(*dropCaret));
}

void RichTextView::State::HideDropCaret()
{
    if (dropCaret)
        view.viewport()->update(CaretRectangle(*dropCaret));
    dropCaret.reset();
}

bool RichTextView::State::Drop(const QDropEvent& event)
{
    const CaretPosition caret = HitAt(event.position().toPoint()).caret;
    const Position target = FromShown(caret.position);
    mustReveal = true;
    ScheduleRefresh();
    if (event.source() == &view && event.dropAction() == Qt::MoveAction)
        return MoveText(box, track.Range(), target);
    const Selection before = BoxSelection();
    box.BeginStep();
    SelectFromTo(target, {target, caret.side});
    const bool isDone = InsertMimeData(box, *event.mimeData());
    if (isDone)
        SelectFromTo(target, {{box.SelStart()}});
    else if (box.SelStart() == target.value)
        box.Select(before);
    box.EndStep();
    return isDone;
}

void RichTextView::dragEnterEvent(QDragEnterEvent* event)
{
    if (m_state->TakesDrop(*event))
        event->acceptProposedAction();
    else
        event->ignore();
}

void RichTextView::dragMoveEvent(QDragMoveEvent* event)
{
    if (!m_state->TakesDrop(*event))
        return event->ignore();
    m_state->ShowDropCaret(event->position().toPoint());
    event->acceptProposedAction();
}

void RichTextView::dragLeaveEvent(QDragLeaveEvent* /*event*/) { m_state->HideDropCaret(); }

void RichTextView::dropEvent(QDropEvent* event)
{
    m_state->HideDropCaret();
    if (!m_state->TakesDrop(*event))
        return event->ignore();
    event->acceptProposedAction();
    m_state->FinishPreEdit();
    if (!m_state->Drop(*event))
        event->setDropAction(Qt::IgnoreAction);
    setFocus(Qt::OtherFocusReason);
}

}  // namespace quillmarker
