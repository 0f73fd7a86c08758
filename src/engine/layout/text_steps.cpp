#include "text_steps.h"

#include "paragraph_stops.h"
#include "text_breaks.h"

#include "engine/document/utf.h"

#include <algorithm>
#include <optional>

namespace quillmarker
{
namespace
{

/// A place in a paragraph; never inside its mark.
struct Spot
{
    std::int32_t paragraph = 0;
    std::int32_t offset = 0;
};

Spot SpotAt(const Document& document, Position at)
{
    const Location location = document.Locate(at);
    const auto length = static_cast<std::int32_t>(document.ParagraphAt(location.paragraph).Text().size());
    return {location.paragraph, std::min(location.offset, length)};
}

Position PositionOf(const Document& document, Spot spot) { return document.StartOf(spot.paragraph) + spot.offset; }

ParagraphStops StopsOf(const Document& document, std::int32_t paragraph)
{
    return {document, document.ParagraphAt(paragraph)};
}

/// The nearest paragraph below or above that is shown.
std::optional<std::int32_t> ShownBelow(const Document& document, std::int32_t paragraph)
{
    std::int32_t below = paragraph + 1;
    document.Visit(below, [&](const Paragraph& next) {
        const bool isShown = TakesRoom(document, next);
        below += isShown ? 0 : 1;
        return !isShown;
    });
    return below < document.ParagraphCount() ? std::optional(below) : std::nullopt;
}

std::optional<std::int32_t> ShownAbove(const Document& document, std::int32_t paragraph)
{
    for (std::int32_t above = paragraph - 1; above >= 0; --above)
    {
        if (TakesRoom(document, document.ParagraphAt(above)))
            return above;
    }
    return {};
}

Position EndOf(const Document& document, std::int32_t paragraph)
{
    return document.StartOf(paragraph) + StopsOf(document, paragraph).Length();
}

/// The places from which a step leaves the paragraph: nothing that is shown stands between them and its end.
bool IsAtEnd(const ParagraphStops& stops, std::int32_t offset)
{
    return stops.PastHiddenBehind(offset) >= stops.Length();
}

bool IsAtStart(const ParagraphStops& stops, std::int32_t offset) { return stops.PastHiddenBefore(offset) <= 0; }

/// A step to the next stop that `within(text, offset)` suggests, or into the paragraph below.
template <class Within>
Position SteppedOn(const Document& document, Position at, Within within)
{
    const Spot spot = SpotAt(document, at);
    const ParagraphStops stops = StopsOf(document, spot.paragraph);
    if (TakesRoom(document, document.ParagraphAt(spot.paragraph)) && !IsAtEnd(stops, spot.offset))
    {
        const std::int32_t shown = stops.PastHiddenBehind(spot.offset);
        return PositionOf(document, {spot.paragraph, stops.StopFrom(within(stops.Text(), shown))});
    }
    const auto below = ShownBelow(document, spot.paragraph);
    return below ? document.StartOf(*below) : at;
}

template <class Within>
Position SteppedBack(const Document& document, Position at, Within within)
{
    const Spot spot = SpotAt(document, at);
    const ParagraphStops stops = StopsOf(document, spot.paragraph);
    if (TakesRoom(document, document.ParagraphAt(spot.paragraph)) && !IsAtStart(stops, spot.offset))
    {
        const std::int32_t shown = stops.PastHiddenBefore(spot.offset);
        return PositionOf(document, {spot.paragraph, stops.StopUpTo(within(stops.Text(), shown))});
    }
    const auto above = ShownAbove(document, spot.paragraph);
    return above ? EndOf(document, *above) : at;
}

/// Whether what stands between the ends of two paragraphs may go, so that they become one. The later mark stays: a
/// paragraph that is not empty is not drawn into a cell.
bool MayJoin(const Document& document, std::int32_t first, std::int32_t last)
{
    const Paragraph& upper = document.ParagraphAt(first);
    const bool isSameDepth = upper.Ending().tableDepth == document.ParagraphAt(last).Ending().tableDepth;
    bool areBreaks = true;
    std::int32_t left = last - first;
    document.Visit(first, [&](const Paragraph& paragraph) {
        areBreaks = areBreaks && paragraph.Ending().kind == Mark::Break;
        return --left > 0;
    });
    return areBreaks && (isSameDepth || upper.Text().empty());
}

/// What stands between the texts of two paragraphs.
TextRange JoinBetween(const Document& document, std::int32_t first, std::int32_t last, Position at)
{
    if (!MayJoin(document, first, last))
        return {at, at};
    return {EndOf(document, first), document.StartOf(last)};
}

std::int32_t CodePointBefore(std::u16string_view text, std::int32_t offset)
{
    const auto at = static_cast<std::size_t>(offset);
    const bool isPair = at > 1 && IsLowSurrogate(text[at - 1]) && IsHighSurrogate(text[at - 2]);
    return offset - (isPair ? 2 : 1);
}

using Within = std::int32_t (*)(std::u16string_view, std::int32_t);

TextRange DeletedBefore(const Document& document, Position at, Within within)
{
    const Spot spot = SpotAt(document, at);
    const ParagraphStops stops = StopsOf(document, spot.paragraph);
    const std::int32_t end = stops.PastHiddenBefore(spot.offset);
    if (end > 0)
        return {PositionOf(document, {spot.paragraph, within(stops.Text(), end)}),
                PositionOf(document, {spot.paragraph, end})};
    const auto above = ShownAbove(document, spot.paragraph);
    return above ? JoinBetween(document, *above, spot.paragraph, at) : TextRange{at, at};
}

TextRange DeletedBehind(const Document& document, Position at, Within within)
{
    const Spot spot = SpotAt(document, at);
    const ParagraphStops stops = StopsOf(document, spot.paragraph);
    const std::int32_t begin = stops.PastHiddenBehind(spot.offset);
    if (begin < stops.Length())
        return {PositionOf(document, {spot.paragraph, begin}),
                PositionOf(document, {spot.paragraph, within(stops.Text(), begin)})};
    const auto below = ShownBelow(document, spot.paragraph);
    return below ? JoinBetween(document, spot.paragraph, *below, at) : TextRange{at, at};
}

/// The character a click at `offset` means: at a line's end the one before it.
std::int32_t ClickedCharacter(std::u16string_view text, std::int32_t offset)
{
    const bool isAtLineEnd = offset == static_cast<std::int32_t>(text.size()) || IsBreakCharacter(text, offset);
    return isAtLineEnd ? PreviousCharacterBreak(text, offset) : offset;
}

}  // namespace

bool TakesRoom(const Document& document, const Paragraph& paragraph)
{
    const ParagraphMark& mark = paragraph.Ending();
    if (mark.kind != Mark::Row && !document.FormatOf(mark.charFormat).hidden)
        return true;
    return std::any_of(paragraph.Runs().begin(), paragraph.Runs().end(),
                       [&](const Run& run) { return !document.FormatOf(run.format).hidden; });
}

Position NextCharacter(const Document& document, Position at) { return SteppedOn(document, at, &NextCharacterBreak); }

Position PreviousCharacter(const Document& document, Position at)
{
    return SteppedBack(document, at, &PreviousCharacterBreak);
}

Position NextWord(const Document& document, Position at) { return SteppedOn(document, at, &NextWordStart); }

Position PreviousWord(const Document& document, Position at) { return SteppedBack(document, at, &PreviousWordStart); }

Position NextParagraph(const Document& document, Position at)
{
    const auto below = ShownBelow(document, SpotAt(document, at).paragraph);
    return below ? document.StartOf(*below) : CaretStop(document, {document.Size()});
}

Position PreviousParagraph(const Document& document, Position at)
{
    const Spot spot = SpotAt(document, at);
    const bool isShown = TakesRoom(document, document.ParagraphAt(spot.paragraph));
    if (isShown && spot.offset > 0)
        return document.StartOf(spot.paragraph);
    const auto above = ShownAbove(document, spot.paragraph);
    return above ? document.StartOf(*above) : at;
}

Position CaretStop(const Document& document, Position at)
{
    const Spot spot = SpotAt(document, at);
    if (TakesRoom(document, document.ParagraphAt(spot.paragraph)))
        return PositionOf(document, {spot.paragraph, StopsOf(document, spot.paragraph).StopUpTo(spot.offset)});
    if (const auto above = ShownAbove(document, spot.paragraph))
        return EndOf(document, *above);
    const auto below = ShownBelow(document, spot.paragraph);
    return document.StartOf(below.value_or(spot.paragraph));
}

TextRange WordAt(const Document& document, Position at)
{
    const Spot spot = SpotAt(document, at);
    const std::u16string_view text = document.ParagraphAt(spot.paragraph).Text();
    const std::int32_t character = ClickedCharacter(text, spot.offset);
    const Position start = document.StartOf(spot.paragraph);
    if (text.empty() || IsBreakCharacter(text, character))
        return {start + spot.offset, start + spot.offset};
    const std::int32_t begin = PreviousWordStart(text, WordEnd(text, character));
    return {start + begin, start + NextWordStart(text, begin)};
}

TextRange ParagraphAt(const Document& document, Position at)
{
    const std::int32_t paragraph = SpotAt(document, at).paragraph;
    const Position end = EndOf(document, paragraph);
    const bool takesMark = document.ParagraphAt(paragraph).Ending().kind == Mark::Break;
    return {document.StartOf(paragraph), takesMark ? document.StartOf(paragraph + 1) : end};
}

TextRange DeletedBy(const Document& document, Position at, Deletion deletion)
{
    switch (deletion)
    {
    case Deletion::CharacterBefore:
        return DeletedBefore(document, at, &CodePointBefore);
    case Deletion::CharacterBehind:
        return DeletedBehind(document, at, &NextCharacterBreak);
    case Deletion::WordBefore:
        return DeletedBefore(document, at, &PreviousWordStart);
    case Deletion::WordBehind:
        return DeletedBehind(document, at, &NextWordStart);
    }
    return {at, at};
}

}  // namespace quillmarker
