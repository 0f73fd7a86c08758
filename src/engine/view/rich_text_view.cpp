#include <quillmarker/widgets/rich_text_view.h>

#include "accessible_view.h"
#include "view_state.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QScroller>

namespace quillmarker
{
namespace
{

/// Views share what they learned about fonts, as long as there is one of them.
std::shared_ptr<FontHost> SharedFonts()
{
    static std::weak_ptr<FontHost> kept;
    std::shared_ptr<FontHost> fonts = kept.lock();
    if (!fonts)
        fonts = SystemFonts();
    kept = fonts;
    return fonts;
}

}  // namespace

RichTextView::State::State(RichTextView& owner) : view(owner), fonts(SharedFonts()), flow(*fonts)
{
    box.SetBackColor(Colour());
    box.Change = [this] { OnChange(); };
    box.SelChange = [this] { OnSelChange(); };
    isStale = true;
}

RichTextView::RichTextView(QWidget* parent) : QAbstractScrollArea(parent), m_state(std::make_unique<State>(*this))
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setAttribute(Qt::WA_KeyCompression);
    setAcceptDrops(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setAcceptDrops(true);
    viewport()->setMouseTracking(true);
    viewport()->setCursor(Qt::IBeamCursor);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
    MakeAccessible(*this);
}

RichTextView::~RichTextView()
{
    m_state->box.Change = {};
    m_state->box.SelChange = {};
}

TextBox& RichTextView::Box() { return m_state->box; }

const TextBox& RichTextView::Box() const { return m_state->box; }

void RichTextView::State::OnChange()
{
    isStale = true;
    if (track.Follow(BoxSelection()))
        mustReveal = !staysPut;
    else
        track.ForgetLine();
    // The host edits while an input method writes: that would go on in another text. Its own edits come without.
    const QPointer<RichTextView> alive(&view);
    DropPreEdit();
    if (!alive)
        return;
    ScheduleRefresh();
    Q_EMIT view.Change();
}

void RichTextView::State::OnSelChange()
{
    if (track.Follow(BoxSelection()))
    {
        mustReveal = !staysPut;
        // An input method writes where the caret was.
        const QPointer<RichTextView> alive(&view);
        DropPreEdit();
        if (!alive)
            return;
    }
    ScheduleRefresh();
    Q_EMIT view.SelChange();
}

bool RichTextView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride)
    {
        auto* key = static_cast<QKeyEvent*>(event);
        const std::optional<KeyCommand> command = CommandOf(*key);
        const bool isOurs = command ? m_state->MayEdit() || !IsEdit(*command) : TypesText(*key) && m_state->MayEdit();
        key->setAccepted(isOurs);
        return isOurs || QAbstractScrollArea::event(event);
    }
    return QAbstractScrollArea::event(event);
}

bool RichTextView::viewportEvent(QEvent* event) { return QAbstractScrollArea::viewportEvent(event); }

/// Tab is a character here, or no key of ours; Ctrl+Tab goes to the next widget.
bool RichTextView::focusNextPrevChild(bool /*next*/) { return false; }

void RichTextView::keyPressEvent(QKeyEvent* event) { event->setAccepted(m_state->TakesKey(*event)); }

void RichTextView::keyReleaseEvent(QKeyEvent* event)
{
    bool swallow = false;
    Q_EMIT KeyUp(event, swallow);
    event->setAccepted(swallow);
}

void RichTextView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    m_state->ScheduleRefresh();
}

void RichTextView::showEvent(QShowEvent* event)
{
    QAbstractScrollArea::showEvent(event);
    m_state->ScheduleRefresh();
}

void RichTextView::scrollContentsBy(int dx, int dy)
{
    State& state = *m_state;
    // What a refresh scrolls, it paints.
    if (state.isRefreshing && dx != 0)
        state.Update(viewport()->rect());
    if (!state.isRefreshing)
    {
        viewport()->scroll(dx, dy);
        state.shown.Scroll(dy);
        state.shownCaret.translate(dx, dy);
        state.ScheduleRefresh();
        updateMicroFocus();
    }
    if (dx != 0)
        state.RaiseHScroll();
}

void RichTextView::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    switch (event->type())
    {
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::EnabledChange:
    case QEvent::ActivationChange:
        m_state->RefreshAll();
        break;
    default:
        break;
    }
}

void RichTextView::timerEvent(QTimerEvent* event)
{
    State& state = *m_state;
    if (event->timerId() == state.refreshTimer.timerId())
    {
        state.refreshTimer.stop();
        if (isVisible())
            state.Refresh();
    }
    else if (event->timerId() == state.scrolledTimer.timerId())
    {
        state.scrolledTimer.stop();
        Q_EMIT HScroll();
    }
    else if (event->timerId() == state.autoscroll.timerId())
        state.Autoscroll();
    else if (event->timerId() == state.dropScroll.timerId())
        state.ShowDropCaret(state.dropAt);
    else if (event->timerId() == state.tripleClick.timerId())
        state.tripleClick.stop();
    else if (!state.blink.Takes(*event))
        QAbstractScrollArea::timerEvent(event);
    else if (!state.IsPaintingLocked())
        viewport()->update(state.shownCaret);
}

void RichTextView::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    m_state->RestartCaret();
    m_state->RefreshAll();
}

void RichTextView::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    m_state->blink.Stop();
    m_state->RefreshAll();
}

QSize RichTextView::sizeHint() const { return {480, 360}; }

}  // namespace quillmarker
