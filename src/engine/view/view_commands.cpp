#include "view_state.h"

#include "engine/layout/caret_motion.h"
#include "engine/layout/text_steps.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QTextBoundaryFinder>

#include <tuple>

namespace quillmarker
{

namespace
{

/// What a character typed at a position replaces: the one that is seen there. A line's end is not typed over.
TextRange OverwrittenAt(const Document& document, Position caret)
{
    const TextRange seen = DeletedBy(document, caret, Deletion::CharacterBehind);
    const Location at = document.Locate(seen.begin);
    const std::u16string_view paragraph = document.ParagraphAt(at.paragraph).Text();
    const auto offset = static_cast<std::size_t>(at.offset);
    const bool isCharacter = !seen.IsEmpty() && offset < paragraph.size() && paragraph[offset] >= u' ';
    return isCharacter ? seen : TextRange{caret, caret};
}

}  // namespace

bool RichTextView::State::FinishPreEdit()
{
    const QPointer<RichTextView> alive(&view);
    if (!preEdit.IsEmpty())
        QGuiApplication::inputMethod()->commit();
    // An input method that has nothing to say leaves what it began.
    if (alive)
        DropPreEdit();
    return alive;
}

void RichTextView::State::DropPreEdit()
{
    if (preEdit.IsEmpty())
        return;
    preEdit.Clear();
    isStale = true;
    ScheduleRefresh();
    // It may say something more.
    QGuiApplication::inputMethod()->reset();
}

bool RichTextView::State::SelectFromTo(Position anchor, CaretPosition caret, std::optional<Fine> column)
{
    const QPointer<RichTextView> alive(&view);
    // An input method writes where the caret was.
    DropPreEdit();
    if (!alive)
        return false;
    track.SelectFromTo(anchor, caret);
    track.Put(caret, Extend::Yes, column);
    box.Select(track.Selected());
    if (!alive)
        return false;
    // The box moves positions out of line ends.
    track.Follow(BoxSelection());
    mustReveal = !staysPut;
    RestartCaret();
    ScheduleRefresh();
    return true;
}

void RichTextView::State::Run(const KeyCommand& command)
{
    if (FinishPreEdit())
        std::visit([this](const auto& what) { Run(what); }, command);
}

void RichTextView::State::Run(KeyMotion key)
{
    const MotionContext context{.pageHeight = Scale().Lengths(view.viewport()->height()), .column = track.Column()};
    const MovedCaret moved = Moved(Flow(), track.Caret(), key.motion, context);
    const bool isStep = key.motion == Motion::CharacterLeft || key.motion == Motion::CharacterRight;
    if (key.extend == Extend::No && isStep && track.HasSelection())
    {
        // A step out of a selection goes to that end of it.
        const bool isForward = moved.caret.position > track.Caret().position ||
                               (moved.caret.position == track.Caret().position && key.motion == Motion::CharacterRight);
        const Position end = isForward ? track.Range().end : track.Range().begin;
        std::ignore = SelectFromTo(end, {end});
        return;
    }
    const Position anchor = key.extend == Extend::Yes ? track.Anchor() : moved.caret.position;
    std::ignore = SelectFromTo(anchor, moved.caret, moved.column);
}

void RichTextView::State::Run(KeyAction action)
{
    switch (action)
    {
    case KeyAction::Backspace:
        return DeleteBeside(Deletion::CharacterBefore);
    case KeyAction::Delete:
        return DeleteBeside(Deletion::CharacterBehind);
    case KeyAction::BackspaceWord:
        return DeleteBeside(Deletion::WordBefore);
    case KeyAction::DeleteWord:
        return DeleteBeside(Deletion::WordBehind);
    case KeyAction::NewParagraph:
        return TypeText(QStringLiteral("\r\n"));
    case KeyAction::NewLine:
        return TypeText(QString(QChar(kLineBreak)));
    case KeyAction::NewPage:
        return TypeText(QString(QChar(kPageBreak)));
    case KeyAction::Tab:
        return TypeText(QStringLiteral("\t"));
    case KeyAction::LeaveForwards:
        view.QAbstractScrollArea::focusNextPrevChild(true);
        return;
    case KeyAction::LeaveBackwards:
        view.QAbstractScrollArea::focusNextPrevChild(false);
        return;
    case KeyAction::ToggleOverwrite:
        return view.SetOverwrites(!overwrites);
    case KeyAction::Undo:
        return view.Undo();
    case KeyAction::Redo:
        return view.Redo();
    case KeyAction::Cut:
        return view.Cut();
    case KeyAction::Copy:
        return view.Copy();
    case KeyAction::Paste:
        return view.Paste();
    case KeyAction::SelectAll:
        return view.SelectAll();
    }
}

void RichTextView::State::TypeText(const QString& text)
{
    const std::u16string units = text.toStdU16String();
    mustReveal = true;
    RestartCaret();
    ScheduleRefresh();
    const bool isLineEnd = units == u"\r\n";
    if (!overwrites || track.HasSelection() || isLineEnd)
        box.Type(units);
    else
        TypeOverCharacters(text);
}

/// Each character takes the place of one.
void RichTextView::State::TypeOverCharacters(const QString& text)
{
    const QPointer<RichTextView> alive(&view);
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    for (int from = 0; from < text.size();)
    {
        const auto next = static_cast<int>(characters.toNextBoundary());
        const int end = next > from ? next : static_cast<int>(text.size());
        const std::u16string units = text.mid(from, end - from).toStdU16String();
        const bool isTyped = box.TypeOver(OverwrittenAt(Value(), track.Caret().position), units);
        if (!alive || !isTyped)
            return;
        from = end;
    }
}

void RichTextView::State::DeleteBeside(Deletion deletion)
{
    mustReveal = true;
    RestartCaret();
    ScheduleRefresh();
    if (track.HasSelection())
        box.TypeDelete();
    else if (const TextRange range = DeletedBy(Value(), track.Caret().position, deletion); !range.IsEmpty())
        box.TypeOver(range, u"");
}

/// Asks the host, then acts. False when the key means nothing here.
bool RichTextView::State::TakesKey(QKeyEvent& event)
{
    const QPointer<RichTextView> alive(&view);
    bool swallow = false;
    Q_EMIT view.KeyDown(&event, swallow);
    if (swallow || !alive)
        return true;
    const std::optional<KeyCommand> command = CommandOf(event);
    QString text = event.text();
    if (!text.isEmpty())
    {
        Q_EMIT view.KeyPress(text, swallow);
        if (swallow || !alive || text.isEmpty())
            return true;
    }
    const bool isEdit = command ? IsEdit(*command) : TypesText(event);
    // Somebody else may know what to do with it: a dialog's button, the next widget.
    if (isEdit && !MayEdit())
        return false;
    if (command)
    {
        Run(*command);
        return true;
    }
    if (!isEdit)
        return false;
    if (FinishPreEdit())
        TypeText(text);
    return true;
}

}  // namespace quillmarker
