#include "view_state.h"

#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace quillmarker
{
namespace
{

/// What is laid out may show more of what is only estimated, and so on; lines are never so many times higher.
constexpr int kMaxRounds = 16;

/// A step of a scroll bar's arrow: a line of text.
constexpr int kStepTwips = 240;

int AtMostInt(qreal pixels) { return static_cast<int>(std::clamp(pixels, 0.0, 2e9)); }

}  // namespace

/// Scrolls without moving what is painted: what differs is painted anew.
void RichTextView::State::PlaceAt(int top)
{
    const QScopedValueRollback placing(isRefreshing, true);
    view.verticalScrollBar()->setValue(top);
}

void RichTextView::State::FitScrollBars()
{
    const QSize page = view.viewport()->size();
    const int step = std::max(static_cast<int>(kStepTwips * Scale().pixelsPerTwip), 1);
    const auto fit = [&](QScrollBar& bar, qreal length, int pageLength) {
        bar.setPageStep(pageLength);
        bar.setSingleStep(step);
        bar.setRange(0, AtMostInt(std::ceil(length) - pageLength));
    };
    const QScopedValueRollback placing(isRefreshing, true);
    fit(*view.verticalScrollBar(), Scale().Pixels(flow.Height()), page.height());
    // The width that is set, and what reaches beyond it; a line that just fits needs no bar.
    const Fine widest = std::max(flow.Extent(), ToFine(Twips{box.RightMargin()}));
    const bool fits = widest <= ToFine(flow.Width()) && box.RightMargin() <= 0;
    const qreal width = Scale().Pixels(widest + ToFine(kViewInset + kViewInset));
    fit(*view.horizontalScrollBar(), fits ? 0 : width, page.width());
}

/// Makes what is seen exact; the paragraph at the top stays where it stands.
void RichTextView::State::Settle()
{
    for (int round = 0; round < kMaxRounds; ++round)
    {
        const int before = view.verticalScrollBar()->value();
        const Fine top = Scale().Lengths(before);
        const Fine bottom = Scale().Lengths(before + view.viewport()->height()) + kFinePerTwip;
        const std::int32_t paragraph = flow.ParagraphAt(top);
        const int stands = PixelTop(flow.TopOf(paragraph));
        const Fine height = flow.Height();
        flow.Settle(top, bottom, top);
        const QSize page = view.viewport()->size();
        FitScrollBars();
        PlaceAt(Scale().WholePixels(flow.TopOf(paragraph)) - stands);
        // A scroll bar that appears makes the lines narrower.
        if (page != view.viewport()->size())
            Flow();
        else if (height == flow.Height() && before == view.verticalScrollBar()->value())
            return;
    }
}

void RichTextView::State::Reveal(CaretPosition caret)
{
    QScrollBar& vertical = *view.verticalScrollBar();
    for (int round = 0; round < kMaxRounds; ++round)
    {
        const CaretBox place = Flow().BoxOf(caret);
        FitScrollBars();
        const int top = Scale().WholePixels(place.top);
        const int bottom = Scale().WholePixels(place.top + place.height);
        const int before = vertical.value();
        const int page = view.viewport()->height();
        if (top < before)
            vertical.setValue(top);
        else if (bottom > before + page)
            vertical.setValue(std::min(bottom - page, top));
        if (vertical.value() == before)
            break;
        Settle();
    }
    QScrollBar& horizontal = *view.horizontalScrollBar();
    const QRect place = CaretRectangle(caret);
    const int margin = std::min(view.viewport()->width() / 8, 40);
    const int inset = static_cast<int>(kViewInset.value * Scale().pixelsPerTwip);
    if (place.left() < 0)
        horizontal.setValue(horizontal.value() + place.left() - margin - inset);
    else if (place.right() >= view.viewport()->width())
        horizontal.setValue(horizontal.value() + place.right() - view.viewport()->width() + margin);
}

/// Lines of another width: the line at the top stays there, as far as it is still a line; a caret in sight stays in it.
void RichTextView::State::TakeWidth(Twips width)
{
    const int before = view.verticalScrollBar()->value();
    const FlowHit first = before > 0 ? flow.HitAt(0, Scale().Lengths(before)) : FlowHit();
    const int stands = before > 0 ? PixelTop(flow.TopOf(flow.LineOf(first.caret))) : 0;
    flow.SetWidth(width);
    if (before > 0)
    {
        const Fine top = flow.TopOf(flow.LineOf(first.caret));
        FitScrollBars();
        PlaceAt(Scale().WholePixels(top) - stands);
    }
    const bool wasInSight =
        shownCaretAt == ShownCaret() && shownCaret.bottom() > 0 && shownCaret.top() < view.viewport()->height();
    mustReveal = mustReveal || (view.hasFocus() && wasInSight);
    RefreshAll();
}

void RichTextView::State::SetZoom(int percent)
{
    const int wanted = std::clamp(percent, kMinZoom, kMaxZoom);
    if (wanted == zoom)
        return;
    const FlowHit first = HitAt({0, 0});
    const bool isScrolled = view.verticalScrollBar()->value() > 0;
    zoom = wanted;
    Flow();
    FitScrollBars();
    if (isScrolled)
        PlaceAt(Scale().WholePixels(flow.TopOf(flow.LineOf(first.caret))));
    RefreshAll();
    Q_EMIT view.ZoomChanged(zoom);
}

}  // namespace quillmarker
