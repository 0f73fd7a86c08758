#include "view_state.h"

#include "clipboard_formats.h"
#include "text_moving.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QScrollBar>

#include <algorithm>
#include <tuple>

namespace quillmarker
{
namespace
{

/// Near an edge a drag scrolls.
constexpr int kDragMargin = 16;
constexpr int kDropScrollMilliseconds = 40;

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
    const Document dragged = box.Value();
    const TextRange source = track.Range();
    auto* drag = new QDrag(&view);
    drag->setMimeData(data.release());
    isOwnDrag = true;
    const Qt::DropAction done = drag->exec(actions, mayMove ? Qt::MoveAction : Qt::CopyAction);
    if (!alive)
        return;
    isOwnDrag = false;
    StopDropping();
    const bool wentElsewhere = drag->target() != &view && drag->target() != view.viewport();
    if (done == Qt::MoveAction && wentElsewhere)
        DeleteMoved(box, dragged, source, [&] { return !alive.isNull(); });
}

bool RichTextView::State::TakesDrop(const QDropEvent& event) const
{
    return MayEdit() && event.mimeData() && CanInsertMimeData(*event.mimeData());
}

void RichTextView::State::ShowDropCaret(const QPoint& point)
{
    const int down = DragStep(point.y(), view.viewport()->height());
    const int right = DragStep(point.x(), view.viewport()->width());
    dropAt = point;
    // It goes on while the mouse rests there.
    if (down == 0 && right == 0)
        dropScroll.stop();
    else if (!dropScroll.isActive())
        dropScroll.start(kDropScrollMilliseconds, &view);
    const ViewFlag holding(view, holdsHScroll, true);
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

void RichTextView::State::StopDropping()
{
    dropScroll.stop();
    HideDropCaret();
}

bool RichTextView::State::Drop(const QDropEvent& event)
{
    const CaretPosition caret = HitAt(event.position().toPoint()).caret;
    const Position target = FromShown(caret.position);
    const QPointer<RichTextView> alive(&view);
    const auto isThere = [&] { return !alive.isNull(); };
    mustReveal = true;
    ScheduleRefresh();
    if (event.source() == &view && event.dropAction() == Qt::MoveAction)
        return MoveText(box, track.Range(), target, isThere);
    const Selection before = BoxSelection();
    box.BeginStep();
    if (!SelectFromTo(target, {target, caret.side}))
        return false;
    const bool isDone = InsertMimeData(box, *event.mimeData());
    if (isDone && isThere())
        std::ignore = SelectFromTo(target, {{box.SelStart()}});
    else if (isThere() && box.SelStart() == target.value)
        box.Select(before);
    if (isThere())
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

void RichTextView::dragLeaveEvent(QDragLeaveEvent* /*event*/) { m_state->StopDropping(); }

void RichTextView::dropEvent(QDropEvent* event)
{
    m_state->StopDropping();
    if (!m_state->TakesDrop(*event))
        return event->ignore();
    event->acceptProposedAction();
    const QPointer<RichTextView> alive(this);
    if (!m_state->FinishPreEdit() || !m_state->Drop(*event))
        event->setDropAction(Qt::IgnoreAction);
    if (alive)
        setFocus(Qt::OtherFocusReason);
}

}  // namespace quillmarker
