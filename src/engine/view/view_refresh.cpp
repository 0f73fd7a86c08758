#include "view_state.h"

#include <QScopedValueRollback>

namespace quillmarker
{

bool RichTextView::State::IsPaintingLocked() const { return !view.viewport()->updatesEnabled(); }

void RichTextView::State::ScheduleRefresh()
{
    // A lock that is let go paints the view, and painting refreshes it first.
    if (refreshTimer.isActive() || (isRefreshing && !isStale) || IsPaintingLocked())
        return;
    refreshTimer.start(0, &view);
}

void RichTextView::State::Refresh()
{
    if (isRefreshing || IsPaintingLocked())
        return;
    const QScopedValueRollback refreshing(isRefreshing, true);
    Flow();
    Settle();
    if (std::exchange(mustReveal, false))
        Reveal(ShownCaret());
    ShownLines now = LinesNow();
    Update(now.DifferenceFrom(shown, view.viewport()->width()));
    shown = std::move(now);
    RefreshCaret();
}

void RichTextView::State::Update(const QRegion& region)
{
    if (const QRegion rest = region.subtracted(beingPainted); !rest.isEmpty())
        view.viewport()->update(rest);
}

void RichTextView::State::RefreshAll()
{
    shown.Clear();
    if (IsPaintingLocked())
        return;
    Update(view.viewport()->rect());
    ScheduleRefresh();
}

/// The lines that meet the viewport, as they stand now.
ShownLines RichTextView::State::LinesNow()
{
    ShownLines lines;
    const int bottom = view.viewport()->height();
    const TextRange selected{ToShown(track.Range().begin), ToShown(track.Range().end)};
    const Document& document = flow.Value();
    std::int32_t paragraph = flow.ParagraphAt(Scale().Lengths(Offset().y()));
    for (; paragraph < document.ParagraphCount(); ++paragraph)
    {
        const Fine top = flow.TopOf(paragraph);
        if (PixelTop(top) > bottom)
            break;
        const ParagraphLayout& layout = flow.LayoutOf(paragraph);
        const Position start = document.StartOf(paragraph);
        const std::int32_t length = layout.Source().Length();
        const auto from = static_cast<std::uint32_t>(std::clamp(selected.begin - start, 0, length));
        const auto to = static_cast<std::uint32_t>(std::clamp(selected.end - start, 0, length));
        const auto count = static_cast<std::uint32_t>(layout.Lines().size());
        for (std::uint32_t i = 0; i < count; ++i)
        {
            const Line& line = layout.Lines()[i];
            ShownLine entry;
            entry.top = PixelTop(i == 0 ? top : top + line.top);
            entry.bottom = PixelTop(top + (i + 1 == count ? layout.Height() : line.Bottom()));
            if (entry.bottom < 0)
                continue;
            if (entry.top > bottom)
                break;
            const std::uint32_t end = i + 1 == count ? static_cast<std::uint32_t>(length) : line.end;
            if (const auto begin = std::clamp(from, line.begin, end), behind = std::clamp(to, line.begin, end);
                begin < behind)
            {
                entry.selectedFrom = begin - line.begin;
                entry.selectedTo = behind - line.begin;
            }
            entry.look = LookOf(layout, i);
            lines.Add(entry);
        }
    }
    return lines;
}

void RichTextView::State::RefreshCaret()
{
    const QRect caret = overwrites ? CaretRectangle(ShownCaret()).united(CharacterRectangle(ShownCaret().position))
                                   : CaretRectangle(ShownCaret());
    // The flag of a caret in text from right to left reaches out of it.
    const QRect reach = caret.adjusted(-4, 0, 4, 0);
    shownCaretAt = ShownCaret();
    if (reach == shownCaret)
        return;
    Update(shownCaret);
    Update(reach);
    shownCaret = reach;
    view.updateMicroFocus();
}

/// A host hears of it when the view is at rest: it may ask for anything, edit, and delete the view.
void RichTextView::State::RaiseHScroll()
{
    if (!isRefreshing && !holdsHScroll)
    {
        Q_EMIT view.HScroll();
        return;
    }
    if (!scrolledTimer.isActive())
        scrolledTimer.start(0, &view);
}

void RichTextView::State::RevealCaret()
{
    mustReveal = true;
    ScheduleRefresh();
}

void RichTextView::State::RestartCaret()
{
    if (!view.hasFocus())
        return;
    blink.Restart(view);
    if (!IsPaintingLocked())
        view.viewport()->update(shownCaret);
}

}  // namespace quillmarker
