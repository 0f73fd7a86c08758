#include "view_state.h"

#include <QInputMethodEvent>

#include <algorithm>

namespace quillmarker
{
namespace
{

/// A long paragraph is told only around the caret; more than any input method asks for.
constexpr std::int32_t kSurroundingUnits = 4'096;

/// The stretch of the caret's paragraph that an input method hears of.
TextRange SurroundingsOf(const Document& document, Position caret)
{
    const Location at = document.Locate(caret);
    const Position start = document.StartOf(at.paragraph);
    const Position end = start + static_cast<std::int32_t>(document.ParagraphAt(at.paragraph).Text().size());
    return {std::max(start, caret - kSurroundingUnits), std::min(end, caret + kSurroundingUnits)};
}

QString TextOf(const Document& document, TextRange range) { return QString::fromStdU16String(document.Text(range)); }

}  // namespace

void RichTextView::State::TakeInput(QInputMethodEvent& event)
{
    if (!MayEdit())
    {
        event.ignore();
        return DropPreEdit();
    }
    event.accept();
    mustReveal = true;
    const bool wasEmpty = preEdit.IsEmpty();
    if (!wasEmpty)
        preEdit.Clear();
    isStale = true;
    if (!TakeCommit(event) || !TakeSelection(event))
        return;
    // What is being written takes the selection's place, as far as it may.
    if (!event.preeditString().isEmpty() && track.HasSelection())
    {
        const QPointer<RichTextView> alive(&view);
        const bool isGone = box.TypeDelete();
        if (!alive || !isGone)
            return;
    }
    preEdit.Take(event);
    isStale = true;
    RestartCaret();
    ScheduleRefresh();
}

bool RichTextView::State::TakeCommit(const QInputMethodEvent& event)
{
    const QPointer<RichTextView> alive(&view);
    QString text = event.commitString();
    bool swallow = false;
    if (!text.isEmpty())
        Q_EMIT view.KeyPress(text, swallow);
    if (!alive || swallow)
        return alive;
    if (event.replacementLength() > 0)
    {
        const Position from = track.Caret().position + event.replacementStart();
        box.TypeOver({from, from + event.replacementLength()}, text.toStdU16String());
    }
    else if (!text.isEmpty())
        TypeText(text);
    return alive;
}

bool RichTextView::State::TakeSelection(const QInputMethodEvent& event)
{
    for (const QInputMethodEvent::Attribute& attribute : event.attributes())
    {
        if (attribute.type != QInputMethodEvent::Selection)
            continue;
        // It counts in what it was told of the text around the caret.
        const Position begin = SurroundingsOf(Value(), track.Caret().position).begin;
        const Position end{box.TextLength()};
        const Position from = std::clamp(begin + attribute.start, Position{0}, end);
        const Position to = std::clamp(begin + attribute.start + attribute.length, Position{0}, end);
        if (!SelectFromTo(from, {to}))
            return false;
    }
    return true;
}

QVariant RichTextView::State::InputMethodValue(Qt::InputMethodQuery query)
{
    const TextRange around = SurroundingsOf(Value(), track.Caret().position);
    const auto inside = [&](Position at) { return std::clamp(at, around.begin, around.end) - around.begin; };
    const QRect viewport = view.viewport()->geometry();
    switch (query)
    {
    case Qt::ImEnabled:
        return view.isEnabled() && MayEdit();
    case Qt::ImReadOnly:
        return box.Locked();
    case Qt::ImCursorRectangle:
        return CaretRectangle(ShownCaret()).translated(viewport.topLeft());
    case Qt::ImAnchorRectangle:
        return CaretRectangle({ToShown(track.Anchor())}).translated(viewport.topLeft());
    case Qt::ImInputItemClipRectangle:
        return viewport;
    case Qt::ImCursorPosition:
        return inside(track.Caret().position);
    case Qt::ImAnchorPosition:
        return inside(track.Anchor());
    case Qt::ImAbsolutePosition:
        return track.Caret().position.value;
    case Qt::ImSurroundingText:
        return TextOf(Value(), around);
    case Qt::ImTextBeforeCursor:
        return TextOf(Value(), {around.begin, std::min(track.Caret().position, around.end)});
    case Qt::ImTextAfterCursor:
        return TextOf(Value(), {std::min(track.Caret().position, around.end), around.end});
    case Qt::ImCurrentSelection:
        return TextOf(Value(), track.Range());
    case Qt::ImMaximumTextLength:
        return box.MaxLength() > 0 ? QVariant(box.MaxLength()) : QVariant();
    case Qt::ImHints:
        return static_cast<int>(view.inputMethodHints() | Qt::ImhMultiLine);
    case Qt::ImFont:
    {
        QFont font = view.Font();
        font.setFamily(view.SelFontName().isValid() ? view.SelFontName().toString() : font.family());
        if (const QVariant size = view.SelFontSize(); size.isValid())
            font.setPointSizeF(size.toDouble() * zoom / 100);
        return font;
    }
    default:
        return {};
    }
}

void RichTextView::inputMethodEvent(QInputMethodEvent* event) { m_state->TakeInput(*event); }

QVariant RichTextView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const QVariant value = m_state->InputMethodValue(query);
    return value.isValid() ? value : QAbstractScrollArea::inputMethodQuery(query);
}

}  // namespace quillmarker
