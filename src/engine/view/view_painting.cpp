#include "view_state.h"

#include "engine/layout/display_list.h"

#include <QPaintEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <variant>
#include <vector>

namespace quillmarker
{
namespace
{

/// A block caret and a caret to be dropped at are seen through.
constexpr int kSeeThrough = 110;

Colour ToColour(const QColor& colour) { return Colour::Of(colour.red(), colour.green(), colour.blue()); }

/// Selected text is in one colour, whatever its own; so that it is seen on the highlight.
DisplayList InOneColour(DisplayList list, Colour colour)
{
    for (DisplayItem& item : list.items)
    {
        if (auto* glyphs = std::get_if<GlyphRun>(&item))
            glyphs->colour = colour;
        else if (auto* line = std::get_if<TextLine>(&item))
            line->colour = colour;
    }
    return list;
}

/// Pictures of a selection are tinted: the highlight behind them is not seen.
void TintPictures(QPainter& painter, const DisplayList& list, QPointF origin, qreal scale, const QColor& highlight)
{
    QColor tint = highlight;
    tint.setAlpha(kSeeThrough);
    for (const DisplayItem& item : list.items)
    {
        if (const auto* picture = std::get_if<PlacedPicture>(&item))
            painter.fillRect(QRectF(origin + picture->rectangle.topLeft() * scale, picture->rectangle.size() * scale),
                             tint);
    }
}

/// The lines of a paragraph that reach into a stretch.
std::pair<std::uint32_t, std::uint32_t> LinesBetween(const ParagraphLayout& layout, Fine top, Fine bottom)
{
    const auto lines = layout.Lines();
    // A frame that goes on to a neighbour fills the space to it.
    const auto reachesDownTo = [&](const Line& line) {
        return layout.Context().joinsBelow && &line == &lines.back() ? layout.Height() + line.height / 2
                                                                     : line.Bottom() + line.height / 2;
    };
    const auto reachesUpTo = [&](const Line& line) {
        return layout.Context().joinsAbove && &line == &lines.front() ? -line.height / 2 : line.top - line.height / 2;
    };
    const auto first = std::ranges::find_if(lines, [&](const Line& line) { return reachesDownTo(line) >= top; });
    const auto last = std::find_if(first, lines.end(), [&](const Line& line) { return reachesUpTo(line) > bottom; });
    return {static_cast<std::uint32_t>(first - lines.begin()), static_cast<std::uint32_t>(last - lines.begin())};
}

/// How readable one colour is on another: by how much their brightness differs.
int Contrast(const QColor& a, const QColor& b) { return std::abs(qGray(a.rgb()) - qGray(b.rgb())); }

constexpr int kReadable = 80;

}  // namespace

QPalette::ColorGroup RichTextView::State::ColourGroup() const
{
    if (!view.isEnabled())
        return QPalette::Disabled;
    return view.hasFocus() && view.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
}

/// Automatic colours are the palette's; on a background that the host has chosen, text that could not be read there
/// is black or white.
GroundColours RichTextView::State::Ground() const
{
    const QPalette palette = view.palette();
    GroundColours ground{.text = palette.color(ColourGroup(), QPalette::Text),
                         .background = palette.color(ColourGroup(), QPalette::Base)};
    if (const Colour back = box.BackColor(); !back.IsAutomatic())
    {
        ground.background = QColor(back.Red(), back.Green(), back.Blue());
        if (Contrast(ground.text, ground.background) < kReadable)
            ground.text = qGray(ground.background.rgb()) < 128 ? Qt::white : Qt::black;
    }
    return ground;
}

void RichTextView::State::Paint(QPainter& painter, const QRegion& region)
{
    const GroundColours ground = Ground();
    for (const QRect& rectangle : region)
        painter.fillRect(rectangle, ground.background);
    PaintText(painter, region, ground);
    painter.setClipRegion(region);
    PaintCaret(painter, ground);
}

/// First all that lies behind the text, then the selection, then the text; so that no line covers a letter of another.
void RichTextView::State::PaintText(QPainter& painter, const QRegion& region, const GroundColours& ground)
{
    struct Part
    {
        DisplayList background;
        DisplayList list;
        QPointF origin;
    };
    const qreal scale = Scale().pixelsPerTwip;
    const QRect bounds = region.boundingRect();
    const Fine top = Scale().Lengths(bounds.top() + Offset().y());
    const Fine bottom = Scale().Lengths(bounds.bottom() + 1 + Offset().y());
    std::vector<Part> parts;
    QRegion selected;
    painter.setClipRegion(region);
    const std::int32_t above = std::max(flow.ParagraphAt(top) - 1, 0);
    for (std::int32_t i = above; i < flow.Value().ParagraphCount(); ++i)
    {
        const ParagraphLayout& layout = flow.LayoutOf(i);
        const Fine paragraphTop = flow.TopOf(i);
        // One paragraph more at either end: its letters may reach in here.
        const Fine room = layout.Context().joinsAbove ? 0 : layout.Lines()[0].top;
        if (paragraphTop + room - layout.Lines()[0].height > bottom)
            break;
        const auto [first, last] = LinesBetween(layout, top - paragraphTop, bottom - paragraphTop);
        if (first == last)
            continue;
        const QPointF origin(Origin().x(), PixelTop(paragraphTop));
        parts.push_back({{}, {}, origin});
        layout.DrawBackground(parts.back().background, {}, first, last);
        quillmarker::Paint(painter, parts.back().background, origin, scale, ground);
        selected += SelectedRegion(i, first, last);
        layout.DrawText(parts.back().list, {}, first, last);
    }

    const QColor highlight = view.palette().color(ColourGroup(), QPalette::Highlight);
    const QColor highlightedText = view.palette().color(ColourGroup(), QPalette::HighlightedText);
    for (const QRect& rectangle : selected)
        painter.fillRect(rectangle, highlight);
    painter.setClipRegion(region.subtracted(selected));
    for (const Part& part : parts)
        quillmarker::Paint(painter, part.list, part.origin, scale, ground, &part.background);
    const QRegion selectedHere = region.intersected(selected);
    if (selectedHere.isEmpty())
        return;
    painter.setClipRegion(selectedHere);
    for (Part& part : parts)
    {
        part.list = InOneColour(std::move(part.list), ToColour(highlightedText));
        quillmarker::Paint(painter, part.list, part.origin, scale, ground);
        TintPictures(painter, part.list, part.origin, scale, highlight);
    }
}

/// What is selected of some lines of a paragraph, as it stands in the viewport.
QRegion RichTextView::State::SelectedRegion(std::int32_t paragraph, std::uint32_t first, std::uint32_t last)
{
    QRegion region;
    if (!track.HasSelection())
        return region;
    const ParagraphLayout& layout = flow.LayoutOf(paragraph);
    const Position start = flow.Value().StartOf(paragraph);
    // The text's length stands for the mark, whatever that counts.
    const auto units = static_cast<std::int32_t>(layout.Source().Text().size());
    const std::int32_t end = paragraph + 1 < flow.Value().ParagraphCount() ? units + 1 : units;
    const auto from = static_cast<std::uint32_t>(std::clamp(ToShown(track.Range().begin) - start, 0, end));
    const auto to = static_cast<std::uint32_t>(std::clamp(ToShown(track.Range().end) - start, 0, end));
    const Fine top = flow.TopOf(paragraph);
    for (std::uint32_t i = first; from < to && i < last; ++i)
    {
        const Line& line = layout.Lines()[i];
        const int lineTop = PixelTop(top + line.top);
        const int height = PixelTop(top + line.Bottom()) - lineTop;
        for (const LineSpan& span : layout.SpansOf(i, from, to))
        {
            const int left = static_cast<int>(std::floor(Origin().x() + Scale().Pixels(span.left)));
            const int right = static_cast<int>(std::ceil(Origin().x() + Scale().Pixels(span.right)));
            region += QRect(left, lineTop, right - left, height);
        }
    }
    return region;
}

void RichTextView::State::PaintCaret(QPainter& painter, const GroundColours& ground)
{
    if (dropCaret)
        painter.fillRect(CaretRectangle(*dropCaret), ground.text);
    if (!blink.IsSeen() || !preEdit.ShowsCaret() || isOwnDrag)
        return;
    const QRect caret = CaretRectangle(ShownCaret());
    if (overwrites && !track.HasSelection() && preEdit.IsEmpty())
    {
        QRect block = CharacterRectangle(ShownCaret().position);
        block.setWidth(std::max(block.width(), caret.height() / 3));
        QColor colour = ground.text;
        colour.setAlpha(kSeeThrough);
        painter.fillRect(block, colour);
        return;
    }
    painter.fillRect(caret, ground.text);
    // A flag says that what is typed here runs from right to left.
    if (flow.BoxOf(ShownCaret()).rightToLeft)
        painter.fillRect(QRect(caret.left() - 3, caret.top(), 3, 2), ground.text);
}

void RichTextView::paintEvent(QPaintEvent* event)
{
    {
        const QScopedValueRollback painting(m_state->beingPainted, event->region());
        m_state->Refresh();
    }
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    m_state->Paint(painter, event->region());
}

}  // namespace quillmarker
