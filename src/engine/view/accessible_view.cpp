#include "accessible_view.h"

#include "accessible_events.h"
#include "text_attributes.h"
#include "text_unit.h"

#include <QPalette>
#include <QPointer>

#include <algorithm>

namespace quillmarker
{
namespace
{

// Offsets that stand for a place instead of a number.
constexpr int kEndOfText = -1;
constexpr int kCaret = -2;

QAccessibleInterface* MakeInterface(const QString& className, QObject* object)
{
    if (className != QLatin1String(RichTextView::staticMetaObject.className()))
        return nullptr;
    auto* view = qobject_cast<RichTextView*>(object);
    return view ? new AccessibleView(*view) : nullptr;
}

QString QStringOf(const std::u16string& text) { return QString::fromStdU16String(text); }

std::u16string_view View16(const QString& text)
{
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

}  // namespace

void MakeAccessible(RichTextView& view)
{
    // Installing it again leaves the one there is.
    QAccessible::installFactory(MakeInterface);
    FollowForAccessibility(view);
}

AccessibleView::AccessibleView(RichTextView& view) : QAccessibleWidget(&view, QAccessible::EditableText) {}

RichTextView& AccessibleView::View() const { return static_cast<RichTextView&>(*widget()); }

Position AccessibleView::At(int offset) const
{
    if (offset == kCaret)
        return {View().CaretOffset()};
    return {offset == kEndOfText ? characterCount() : std::clamp(offset, 0, characterCount())};
}

QAccessible::State AccessibleView::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.selectableText = true;
    state.multiLine = true;
    state.editable = !Box().Locked();
    state.readOnly = Box().Locked();
    return state;
}

QString AccessibleView::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? View().Text() : QAccessibleWidget::text(kind);
}

void AccessibleView::setText(QAccessible::Text kind, const QString& text)
{
    if (kind == QAccessible::Value)
        replaceText(0, characterCount(), text);
    else
        QAccessibleWidget::setText(kind, text);
}

void* AccessibleView::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

void AccessibleView::selection(int index, int* start, int* end) const
{
    const bool isThere = index == 0 && Box().SelLength() > 0;
    *start = isThere ? Box().SelStart() : 0;
    *end = isThere ? Box().SelStart() + Box().SelLength() : 0;
}

int AccessibleView::selectionCount() const { return Box().SelLength() > 0 ? 1 : 0; }

void AccessibleView::addSelection(int start, int end) { setSelection(0, start, end); }

void AccessibleView::removeSelection(int index)
{
    if (index == 0)
        View().SelectFromTo(View().CaretOffset(), View().CaretOffset());
}

void AccessibleView::setSelection(int index, int start, int end)
{
    if (index == 0)
        View().SelectFromTo(At(start).value, At(end).value);
}

int AccessibleView::cursorPosition() const { return View().CaretOffset(); }

void AccessibleView::setCursorPosition(int position)
{
    const int at = At(position).value;
    View().SelectFromTo(at, at);
}

QString AccessibleView::text(int start, int end) const
{
    const Position from = At(start);
    return QStringOf(Box().Value().Text({from, std::max(from, At(end))}));
}

TextRange AccessibleView::UnitAt(Position at, QAccessible::TextBoundaryType boundary) const
{
    const Document& document = Box().Value();
    switch (boundary)
    {
    case QAccessible::CharBoundary:
        return UnitAround(document, at, TextUnit::Character);
    case QAccessible::WordBoundary:
        return UnitAround(document, at, TextUnit::Word);
    case QAccessible::SentenceBoundary:
        return UnitAround(document, at, TextUnit::Sentence);
    case QAccessible::ParagraphBoundary:
        return UnitAround(document, at, TextUnit::Paragraph);
    case QAccessible::LineBoundary:
        return View().LineAround(at.value);
    default:
        return {{0}, {document.Size()}};
    }
}

QString AccessibleView::Answer(TextRange range, int* start, int* end) const
{
    *start = range.begin.value;
    *end = range.end.value;
    return QStringOf(Box().Value().Text(range));
}

QString AccessibleView::textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end) const
{
    return Answer(UnitAt(At(offset), boundary), start, end);
}

QString AccessibleView::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end) const
{
    const Position begin = UnitAt(At(offset), boundary).begin;
    if (begin.value == 0)
        return Answer({begin, begin}, start, end);
    TextRange before = UnitAt(begin - 1, boundary);
    before.end = std::min(before.end, begin);
    return Answer(before, start, end);
}

QString AccessibleView::textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* start, int* end) const
{
    const Position behind = UnitAt(At(offset), boundary).end;
    if (behind.value >= characterCount())
        return Answer({behind, behind}, start, end);
    return Answer(UnitAt(behind, boundary), start, end);
}

int AccessibleView::characterCount() const { return Box().TextLength(); }

QRect AccessibleView::characterRect(int offset) const
{
    QRect rectangle = View().CharacterRectangle(At(offset).value);
    rectangle.moveTopLeft(View().viewport()->mapToGlobal(rectangle.topLeft()));
    return rectangle;
}

int AccessibleView::offsetAtPoint(const QPoint& point) const
{
    return View().CharacterAt(View().viewport()->mapFromGlobal(point));
}

void AccessibleView::scrollToSubstring(int start, int end)
{
    // The start is more important where not all of it can be shown.
    View().EnsureVisible(At(end).value);
    View().EnsureVisible(At(start).value);
}

QString AccessibleView::attributes(int offset, int* start, int* end) const
{
    const Document& document = Box().Value();
    const Position at = At(offset);
    const Location place = document.Locate(at);
    const Paragraph& paragraph = document.ParagraphAt(place.paragraph);
    const Position begin = document.StartOf(place.paragraph);
    const auto length = static_cast<std::uint32_t>(paragraph.Text().size());
    const auto in = static_cast<std::uint32_t>(place.offset);

    TextRange run{begin + static_cast<std::int32_t>(length), begin + paragraph.Length()};
    if (in < length)
    {
        const auto runs = paragraph.Runs();
        const auto found = std::ranges::upper_bound(runs, in, {}, &Run::end);
        const std::uint32_t from = found == runs.begin() ? 0 : (found - 1)->end;
        run = {begin + static_cast<std::int32_t>(from), begin + static_cast<std::int32_t>(found->end)};
    }
    *start = run.begin.value;
    *end = std::min(run.end.value, document.Size());
    return TextAttributes(document.FormatOf(paragraph.FormatAt(in)), document.FormatOf(paragraph.Ending().format),
                          View().palette().color(QPalette::Text));
}

void AccessibleView::deleteText(int start, int end)
{
    if (At(start) < At(end))
        replaceText(start, end, {});
}

void AccessibleView::insertText(int offset, const QString& text) { replaceText(offset, offset, text); }

void AccessibleView::replaceText(int start, int end, const QString& text)
{
    // This object goes with the view.
    RichTextView& view = View();
    const QPointer<RichTextView> alive(&view);
    setSelection(0, start, end);
    if (!alive)
        return;
    // Not a part of what the user types meanwhile.
    view.Box().BeginStep();
    if (text.isEmpty() && view.Box().SelLength() > 0)
        view.Box().TypeDelete();
    else
        view.Box().PasteText(View16(text));
    if (alive)
        view.Box().EndStep();
}

}  // namespace quillmarker
