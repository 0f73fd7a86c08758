#include "view_state.h"

#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace quillmarker
{
namespace
{

/// Lines are never narrower, however narrow the view is.
constexpr Twips kMinLineWidth{240};

}  // namespace

ViewScale RichTextView::State::Scale() const { return ViewScale::Of(view.logicalDpiY(), zoom); }

Twips RichTextView::State::LineWidth() const
{
    if (box.RightMargin() > 0)
        return {box.RightMargin()};
    const auto width = static_cast<std::int32_t>(view.viewport()->width() / Scale().pixelsPerTwip);
    return {std::max(width - 2 * kViewInset.value, kMinLineWidth.value)};
}

DocumentFlow& RichTextView::State::Flow()
{
    if (std::exchange(isStale, false))
    {
        const Document next = preEdit.Shown(box);
        const bool isFamily = next.FormatsPointer() == flow.Value().FormatsPointer();
        flow.SetDocument(next);
        // Numbers of formats mean something else now.
        if (!isFamily)
            RefreshAll();
    }
    if (const Twips width = LineWidth(); width != flow.Width())
        TakeWidth(width);
    return flow;
}

QPoint RichTextView::State::Offset() const
{
    return {view.horizontalScrollBar()->value(), view.verticalScrollBar()->value()};
}

QPointF RichTextView::State::Origin() const
{
    return QPointF(kViewInset.value * Scale().pixelsPerTwip, 0) - QPointF(Offset());
}

int RichTextView::State::PixelTop(Fine y) const { return Scale().WholePixels(y) - Offset().y(); }

FlowHit RichTextView::State::HitAt(const QPoint& point)
{
    const QPointF at = point - Origin();
    return Flow().HitAt(Scale().Lengths(at.x()), Scale().Lengths(at.y()));
}

CaretPosition RichTextView::State::ShownCaret() const
{
    return {track.Caret().position + preEdit.CaretOffset(), preEdit.IsEmpty() ? track.Caret().side : LineSide::Before};
}

Position RichTextView::State::FromShown(Position position) const
{
    return preEdit.FromShown(position, track.Caret().position);
}

Position RichTextView::State::ToShown(Position position) const
{
    return preEdit.ToShown(position, track.Caret().position);
}

QRect RichTextView::State::CaretRectangle(CaretPosition caret)
{
    const CaretBox place = Flow().BoxOf(caret);
    const int width = std::max(view.style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, &view), 1);
    const int left = static_cast<int>(std::floor(Origin().x() + Scale().Pixels(place.x)));
    const int top = PixelTop(place.top);
    return {left, top, width, std::max(PixelTop(place.top + place.height) - top, 1)};
}

QRect RichTextView::State::CharacterRectangle(Position position)
{
    DocumentFlow& shownFlow = Flow();
    const FlowLine line = shownFlow.LineOf({position});
    const Location at = shownFlow.Value().Locate(position);
    const ParagraphLayout& layout = shownFlow.LayoutOf(line.paragraph);
    const auto offset = static_cast<std::uint32_t>(at.offset);
    const QRect caret = CaretRectangle(CaretPosition{position});
    const auto units = static_cast<std::uint32_t>(layout.Source().Text().size());
    if (offset >= units)
        return {caret.left(), caret.top(), 0, caret.height()};
    const Position next = NextCharacter(shownFlow.Value(), position);
    const auto end = std::min(offset + static_cast<std::uint32_t>(std::max(next - position, 1)), units);
    QRectF span(caret.left(), caret.top(), 0, caret.height());
    for (const LineSpan& stretch : layout.SpansOf(line.line, offset, end))
    {
        const qreal left = Origin().x() + Scale().Pixels(stretch.left);
        span = QRectF(left, caret.top(), Scale().Pixels(stretch.right - stretch.left), caret.height());
    }
    return span.toAlignedRect();
}

const CharFormat* RichTextView::State::FormatUnder(const FlowHit& hit) const
{
    if (!hit.isInside)
        return nullptr;
    const Document& document = flow.Value();
    const Location at = document.Locate(hit.character);
    const Paragraph& paragraph = document.ParagraphAt(at.paragraph);
    const auto offset = static_cast<std::uint32_t>(at.offset);
    return offset < paragraph.Text().size() ? &document.FormatOf(paragraph.FormatAt(offset)) : nullptr;
}

QString RichTextView::State::LinkAt(const QPoint& point)
{
    const CharFormat* format = FormatUnder(HitAt(point));
    if (!format)
        return {};
    // A field in a link's result still leads where the link leads.
    for (const Field* field = format->field ? &*format->field : nullptr; field;
         field = field->outer ? &*field->outer : nullptr)
    {
        if (const std::u16string target = LinkTarget(*field); !target.empty())
            return QString::fromStdU16String(target);
    }
    return {};
}

}  // namespace quillmarker
