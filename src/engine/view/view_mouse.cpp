#include "view_state.h"

#include "clipboard_formats.h"

#include <QApplication>
#include <QClipboard>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <tuple>
#include <utility>

namespace quillmarker
{
namespace
{

/// A finger scrolls where a mouse selects.
bool IsFinger(const QMouseEvent& event)
{
    return event.device() && event.device()->type() == QInputDevice::DeviceType::TouchScreen;
}

constexpr int kAutoscrollMilliseconds = 40;

/// How far a point lies outside of a stretch from 0 to `length`; negative before it.
int Outside(int at, int length) { return at < 0 ? at : std::max(at - length + 1, 0); }

}  // namespace

bool RichTextView::State::IsOnSelection(const QPoint& point)
{
    if (!track.HasSelection())
        return false;
    const FlowHit hit = HitAt(point);
    const Position at = FromShown(hit.character);
    return hit.isInside && at >= track.Range().begin && at < track.Range().end;
}

void RichTextView::State::SelectByMouse(const QPoint& point, SelectionUnit unit)
{
    const DraggedSelection selection = mouseSelection.Begin(Value(), HitAt(point), unit);
    gesture = MouseGesture::Selecting;
    std::ignore = SelectFromTo(selection.anchor, selection.caret);
}

void RichTextView::State::ExtendByMouse(const QPoint& point)
{
    const DraggedSelection selection = mouseSelection.To(Value(), HitAt(point));
    if (selection != DraggedSelection{track.Anchor(), track.Caret()})
        std::ignore = SelectFromTo(selection.anchor, selection.caret);
}

void RichTextView::State::PressLeft(const QMouseEvent& event)
{
    const QPoint point = event.position().toPoint();
    const bool isTriple =
        tripleClick.isActive() && (point - pressedAt).manhattanLength() < QApplication::startDragDistance();
    tripleClick.stop();
    pressedAt = point;
    if (isTriple)
        return SelectByMouse(point, SelectionUnit::Paragraph);
    if (event.modifiers() & Qt::ShiftModifier)
    {
        mouseSelection.BeginFrom(track.Anchor());
        gesture = MouseGesture::Selecting;
        return ExtendByMouse(point);
    }
    if (event.modifiers() & Qt::ControlModifier)
    {
        pressedLink = LinkAt(point);
        if (!pressedLink.isEmpty())
        {
            gesture = MouseGesture::OnLink;
            return;
        }
    }
    if (IsOnSelection(point))
        gesture = MouseGesture::MayDrag;
    else
        SelectByMouse(point, SelectionUnit::Character);
}

/// What is selected elsewhere is put where the middle button was pressed, where the window system knows of that.
void RichTextView::State::PressMiddle(const QMouseEvent& event)
{
    QClipboard& board = *QGuiApplication::clipboard();
    if (!board.supportsSelection() || !MayEdit())
        return;
    const QMimeData* data = board.mimeData(QClipboard::Selection);
    if (!data || !CanInsertMimeData(*data))
        return;
    const CaretPosition caret = HitAt(event.position().toPoint()).caret;
    if (!SelectFromTo(caret.position, caret))
        return;
    // A slot may have put something else there.
    data = board.mimeData(QClipboard::Selection);
    mustReveal = true;
    if (data)
        InsertMimeData(box, *data);
}

void RichTextView::State::OfferPrimarySelection()
{
    QClipboard& board = *QGuiApplication::clipboard();
    if (!board.supportsSelection() || !track.HasSelection())
        return;
    if (std::unique_ptr<QMimeData> data = MimeDataOfSelection(box, copyFilter))
        board.setMimeData(data.release(), QClipboard::Selection);
}

void RichTextView::State::MoveMouse(const QMouseEvent& event)
{
    const QPoint point = event.position().toPoint();
    if (!(event.buttons() & Qt::LeftButton))
        return ShowCursorFor(point, event.modifiers());
    const bool isFar = (point - pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (gesture == MouseGesture::MayDrag && isFar)
    {
        gesture = MouseGesture::None;
        return StartDrag();
    }
    if (gesture != MouseGesture::Selecting)
        return;
    mouseAt = point;
    if (view.viewport()->rect().contains(point))
        autoscroll.stop();
    else if (!autoscroll.isActive())
        autoscroll.start(kAutoscrollMilliseconds, &view);
    // A point outside is reached by scrolling; the caret stays where it can be seen.
    const QRect inside = view.viewport()->rect();
    const ViewFlag staying(view, staysPut, true);
    ExtendByMouse(
        {std::clamp(point.x(), inside.left(), inside.right()), std::clamp(point.y(), inside.top(), inside.bottom())});
}

bool RichTextView::State::ReleaseLeft(const QMouseEvent& event)
{
    autoscroll.stop();
    const QPoint point = event.position().toPoint();
    switch (std::exchange(gesture, MouseGesture::None))
    {
    case MouseGesture::MayDrag:
    {
        // A click on the selection that was no drag.
        const CaretPosition caret = HitAt(point).caret;
        return SelectFromTo(FromShown(caret.position), {FromShown(caret.position), caret.side});
    }
    case MouseGesture::OnLink:
        if (LinkAt(point) != pressedLink)
            break;
        // The slot may have no view left to name the link.
        Q_EMIT view.LinkActivated(QString(pressedLink));
        return false;
    case MouseGesture::Selecting:
        OfferPrimarySelection();
        break;
    case MouseGesture::None:
        break;
    }
    return true;
}

/// The further outside the mouse is, the faster the text comes.
void RichTextView::State::Autoscroll()
{
    const QPoint point = mouseAt;
    const QSize size = view.viewport()->size();
    const int down = Outside(point.y(), size.height());
    const int right = Outside(point.x(), size.width());
    if (gesture != MouseGesture::Selecting || (down == 0 && right == 0))
        return autoscroll.stop();
    const ViewFlag holding(view, holdsHScroll, true);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + down);
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->value() + right);
    const ViewFlag staying(view, staysPut, true);
    ExtendByMouse({std::clamp(point.x(), 0, size.width() - 1), std::clamp(point.y(), 0, size.height() - 1)});
}

void RichTextView::State::ShowCursorFor(const QPoint& point, Qt::KeyboardModifiers modifiers)
{
    Qt::CursorShape shape = Qt::IBeamCursor;
    if (modifiers.testFlag(Qt::ControlModifier) && !LinkAt(point).isEmpty())
        shape = Qt::PointingHandCursor;
    else if (IsOnSelection(point))
        shape = Qt::ArrowCursor;
    if (view.viewport()->cursor().shape() != shape)
        view.viewport()->setCursor(shape);
}

/// A finger that stayed where it was presses there; one that moved has scrolled. False when that was all, or the view is
/// gone.
bool RichTextView::State::Tap(const QMouseEvent& event)
{
    const QPointer<RichTextView> alive(&view);
    const QPoint moved = event.position().toPoint() - fingerAt;
    if (moved.manhattanLength() >= QApplication::startDragDistance())
        return false;
    PressLeft(event);
    return alive;
}

void RichTextView::mousePressEvent(QMouseEvent* event)
{
    const QPointer<RichTextView> alive(this);
    bool swallow = false;
    Q_EMIT MouseDown(event, swallow);
    event->accept();
    if (swallow || !alive || !m_state->FinishPreEdit())
        return;
    m_state->isPressed = event->button() == Qt::LeftButton;
    if (IsFinger(*event))
        m_state->fingerAt = event->position().toPoint();
    else if (event->button() == Qt::LeftButton)
        m_state->PressLeft(*event);
    else if (event->button() == Qt::MiddleButton)
        m_state->PressMiddle(*event);
}

void RichTextView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointer<RichTextView> alive(this);
    bool swallow = false;
    Q_EMIT MouseMove(event, swallow);
    if (!swallow && alive && !IsFinger(*event))
        m_state->MoveMouse(*event);
}

void RichTextView::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<RichTextView> alive(this);
    bool swallow = false;
    Q_EMIT MouseUp(event, swallow);
    event->accept();
    if (!alive)
        return;
    if (event->button() != Qt::LeftButton)
        return;
    // Whoever swallows the release still ends what the press began.
    const bool isClick = std::exchange(m_state->isPressed, false);
    if (swallow)
    {
        m_state->autoscroll.stop();
        m_state->gesture = MouseGesture::None;
        return;
    }
    if (IsFinger(*event) && !m_state->Tap(*event))
        return;
    if (m_state->ReleaseLeft(*event) && isClick && viewport()->rect().contains(event->position().toPoint()))
        Q_EMIT Click();
}

void RichTextView::mouseDoubleClickEvent(QMouseEvent* event)
{
    // Other buttons know no double click.
    if (event->button() != Qt::LeftButton)
        return mousePressEvent(event);
    event->accept();
    if (!m_state->FinishPreEdit())
        return;
    m_state->pressedAt = event->position().toPoint();
    m_state->tripleClick.start(QApplication::doubleClickInterval(), this);
    const QPointer<RichTextView> alive(this);
    m_state->SelectByMouse(m_state->pressedAt, SelectionUnit::Word);
    if (alive)
        Q_EMIT DblClick();
}

void RichTextView::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers() & Qt::ControlModifier)
    {
        // Fine wheels send parts of a step.
        m_state->wheelRest += event->angleDelta().y();
        const int steps = m_state->wheelRest / QWheelEvent::DefaultDeltasPerStep;
        m_state->wheelRest -= steps * QWheelEvent::DefaultDeltasPerStep;
        event->accept();
        SetZoom(Zoom() + steps * 10);
        return;
    }
    // A scroll bar is not done with the event when it has moved.
    const ViewFlag holding(*this, m_state->holdsHScroll, true);
    if (event->pixelDelta().isNull())
        return QAbstractScrollArea::wheelEvent(event);
    verticalScrollBar()->setValue(verticalScrollBar()->value() - event->pixelDelta().y());
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - event->pixelDelta().x());
    event->accept();
}

}  // namespace quillmarker
