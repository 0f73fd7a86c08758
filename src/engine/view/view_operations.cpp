#include "view_state.h"

#include "clipboard_formats.h"
#include "paint_lock.h"

#include "engine/box/attempt.h"

#include <tuple>
#include <utility>

namespace quillmarker
{

void RichTextView::Cut()
{
    if (Locked())
        return;
    std::unique_ptr<QMimeData> copied = MimeDataOfSelection(m_state->box, m_state->copyFilter);
    if (!copied)
        return;
    const QPointer<RichTextView> alive(this);
    const std::shared_ptr<ClipboardService> clipboard = m_state->clipboard;
    m_state->mustReveal = true;
    m_state->box.BeginStep();
    // What may not be deleted is not cut: the clipboard stays as it was.
    const bool isDeleted = m_state->box.TypeDelete();
    bool isKept = false;
    Attempt([&] {
        if (isDeleted)
            clipboard->SetContent(std::move(copied));
        isKept = true;
    });
    if (!alive)
        return;
    m_state->box.EndStep();
    // What the clipboard did not take is not lost.
    if (!isKept)
        m_state->box.Undo();
}

void RichTextView::Copy()
{
    if (std::unique_ptr<QMimeData> copied = MimeDataOfSelection(m_state->box, m_state->copyFilter))
        m_state->clipboard->SetContent(std::move(copied));
}

bool RichTextView::CanPaste() const
{
    bool canPaste = false;
    Attempt([&] {
        const QMimeData* copied = m_state->clipboard->Content();
        canPaste = !Locked() && copied && CanInsertMimeData(*copied);
    });
    return canPaste;
}

void RichTextView::Paste()
{
    if (!CanPaste())
        return;
    m_state->mustReveal = true;
    // A slot that deletes the view leaves the clipboard until all is in.
    const std::shared_ptr<ClipboardService> clipboard = m_state->clipboard;
    if (const QMimeData* copied = clipboard->Content())
        InsertMimeData(m_state->box, *copied);
}

void RichTextView::Clear()
{
    if (Locked() || !m_state->track.HasSelection())
        return;
    const QPointer<RichTextView> alive(this);
    m_state->mustReveal = true;
    m_state->box.BeginStep();
    m_state->box.TypeDelete();
    if (alive)
        m_state->box.EndStep();
}

void RichTextView::Undo()
{
    if (Locked())
        return;
    m_state->mustReveal = true;
    m_state->box.Undo();
}

void RichTextView::Redo()
{
    if (Locked())
        return;
    m_state->mustReveal = true;
    m_state->box.Redo();
}

void RichTextView::SelectAll()
{
    // Everything cannot be scrolled to.
    const ViewFlag staying(*this, m_state->staysPut, true);
    std::ignore = m_state->SelectFromTo({0}, {{m_state->box.TextLength()}});
}

int RichTextView::Zoom() const { return m_state->zoom; }

void RichTextView::SetZoom(int percent) { m_state->SetZoom(percent); }

bool RichTextView::AutoVerbMenu() const { return m_state->hasVerbMenu; }

void RichTextView::SetAutoVerbMenu(bool on) { m_state->hasVerbMenu = on; }

bool RichTextView::Overwrites() const { return m_state->overwrites; }

void RichTextView::SetOverwrites(bool on)
{
    if (on == m_state->overwrites)
        return;
    m_state->overwrites = on;
    m_state->ScheduleRefresh();
    m_state->RestartCaret();
}

void RichTextView::SetClipboard(std::shared_ptr<ClipboardService> clipboard)
{
    m_state->clipboard = clipboard ? std::move(clipboard) : MakeQtClipboard();
}

/// Laid out before it is painted: a scroll bar that turns up in the middle would have it painted twice.
bool RichTextView::LockPainting()
{
    return PaintLock::OfTheProcess().Lock(*this, [this] {
        if (isVisible())
            m_state->Refresh();
    });
}

void RichTextView::UnlockPainting()
{
    if (PaintLock::OfTheProcess().Holds(*this))
        PaintLock::OfTheProcess().Unlock();
}

void RichTextView::SetCopyFilter(std::function<std::u16string(std::u16string)> filter)
{
    m_state->copyFilter = std::move(filter);
}

int RichTextView::CaretOffset() const { return m_state->track.Caret().position.value; }

int RichTextView::AnchorOffset() const { return m_state->track.Anchor().value; }

void RichTextView::SelectFromTo(int anchor, int caret)
{
    const int end = m_state->box.TextLength();
    std::ignore = m_state->SelectFromTo({std::clamp(anchor, 0, end)}, {{std::clamp(caret, 0, end)}});
}

QRect RichTextView::CaretRectangle() const { return m_state->CaretRectangle(m_state->ShownCaret()); }

QRect RichTextView::CharacterRectangle(int position) const
{
    return m_state->CharacterRectangle(m_state->ToShown({std::clamp(position, 0, m_state->box.TextLength())}));
}

int RichTextView::PositionAt(const QPoint& point) const
{
    return m_state->FromShown(m_state->HitAt(point).caret.position).value;
}

int RichTextView::CharacterAt(const QPoint& point) const
{
    const FlowHit hit = m_state->HitAt(point);
    return hit.isInside ? m_state->FromShown(hit.character).value : -1;
}

TextRange RichTextView::LineAround(int position) const
{
    DocumentFlow& flow = m_state->Flow();
    const CaretPosition caret = position == CaretOffset()
                                    ? m_state->ShownCaret()
                                    : CaretPosition{m_state->ToShown({std::clamp(position, 0, Box().TextLength())})};
    const FlowLine line = flow.LineOf(caret);
    const Position start = flow.Value().StartOf(line.paragraph);
    const Line& place = flow.LineAt(line);
    const bool isLast = place.ending == LineEnd::Mark;
    const Position end =
        isLast ? flow.Value().StartOf(line.paragraph + 1) : start + static_cast<std::int32_t>(place.end);
    return {m_state->FromShown(start + static_cast<std::int32_t>(place.begin)), m_state->FromShown(end)};
}

QString RichTextView::LinkAt(const QPoint& point) const { return m_state->LinkAt(point); }

void RichTextView::EnsureVisible(int position)
{
    const ViewFlag holding(*this, m_state->holdsHScroll, true);
    m_state->Flow();
    m_state->Reveal({m_state->ToShown({std::clamp(position, 0, m_state->box.TextLength())})});
    m_state->ScheduleRefresh();
}

qreal RichTextView::PixelsPerTwip() const { return m_state->Scale().pixelsPerTwip; }

}  // namespace quillmarker
