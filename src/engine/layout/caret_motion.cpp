#include "caret_motion.h"

#include <algorithm>
#include <array>

namespace quillmarker
{
namespace
{

bool IsRightToLeft(const DocumentFlow& flow, Position at)
{
    const Document& document = flow.Value();
    const Paragraph& paragraph = document.ParagraphAt(document.Locate(at).paragraph);
    return document.FormatOf(paragraph.Ending().format).rightToLeft;
}

using Step = Position (*)(const Document&, Position);

template <Step kStep>
MovedCaret Stepped(DocumentFlow& flow, CaretPosition caret, const MotionContext&)
{
    const Position next = kStep(flow.Value(), caret.position);
    // Where there is no place to go, the caret stays on its side of the line's end.
    return {next == caret.position ? caret : CaretPosition{next, LineSide::After}, {}};
}

/// `kStep` in a paragraph from left to right, `kMirrored` in one from right to left.
template <Step kStep, Step kMirrored>
MovedCaret SteppedSideways(DocumentFlow& flow, CaretPosition caret, const MotionContext& context)
{
    return IsRightToLeft(flow, caret.position) ? Stepped<kMirrored>(flow, caret, context)
                                               : Stepped<kStep>(flow, caret, context);
}

/// The line of the caret; of the nearest place where a caret may stand if it stands in what takes no room.
FlowLine ShownLine(DocumentFlow& flow, CaretPosition& caret)
{
    const FlowLine line = flow.LineOf(caret);
    if (flow.LineAt(line).height > 0)
        return line;
    caret = {CaretStop(flow.Value(), caret.position), LineSide::After};
    return flow.LineOf(caret);
}

Fine ColumnOf(DocumentFlow& flow, CaretPosition caret, const MotionContext& context)
{
    return context.column ? *context.column : flow.BoxOf(caret).x;
}

using Neighbour = std::optional<FlowLine> (DocumentFlow::*)(FlowLine);

template <Neighbour kNeighbour>
MovedCaret MovedToLine(DocumentFlow& flow, CaretPosition caret, const MotionContext& context)
{
    const Fine column = ColumnOf(flow, caret, context);
    const auto line = (flow.*kNeighbour)(ShownLine(flow, caret));
    return {line ? flow.NearestIn(*line, column) : caret, column};
}

/// To the last line that begins less than a page away, but always one line on. Only what lies between is laid out.
template <Neighbour kNeighbour>
MovedCaret MovedByPage(DocumentFlow& flow, CaretPosition caret, const MotionContext& context)
{
    const Fine column = ColumnOf(flow, caret, context);
    const FlowLine from = ShownLine(flow, caret);
    FlowLine line = from;
    while (const auto next = (flow.*kNeighbour)(line))
    {
        const Fine distance = flow.TopOf(*next) - flow.TopOf(from);
        if (line != from && std::max(distance, -distance) >= context.pageHeight)
            break;
        line = *next;
    }
    return {line == from ? caret : flow.NearestIn(line, column), column};
}

template <CaretPosition (DocumentFlow::*kEdge)(FlowLine)>
MovedCaret MovedToEdge(DocumentFlow& flow, CaretPosition caret, const MotionContext&)
{
    const FlowLine line = ShownLine(flow, caret);
    const bool isShown = flow.LineAt(line).height > 0;  // not in a document of hidden text alone
    return {isShown ? (flow.*kEdge)(line) : caret, {}};
}

template <bool kIsEnd>
MovedCaret MovedToDocument(DocumentFlow& flow, CaretPosition, const MotionContext&)
{
    const Document& document = flow.Value();
    return {{CaretStop(document, {kIsEnd ? document.Size() : 0}), LineSide::After}, {}};
}

struct MotionRow
{
    Motion motion;
    MovedCaret (*move)(DocumentFlow&, CaretPosition, const MotionContext&);
};

constexpr std::array<MotionRow, kMotions> kMotionTable = {{
    {Motion::CharacterLeft, &SteppedSideways<&PreviousCharacter, &NextCharacter>},
    {Motion::CharacterRight, &SteppedSideways<&NextCharacter, &PreviousCharacter>},
    {Motion::PreviousCharacter, &Stepped<&PreviousCharacter>},
    {Motion::NextCharacter, &Stepped<&NextCharacter>},
    {Motion::WordLeft, &SteppedSideways<&PreviousWord, &NextWord>},
    {Motion::WordRight, &SteppedSideways<&NextWord, &PreviousWord>},
    {Motion::PreviousWord, &Stepped<&PreviousWord>},
    {Motion::NextWord, &Stepped<&NextWord>},
    {Motion::LineUp, &MovedToLine<&DocumentFlow::LineAbove>},
    {Motion::LineDown, &MovedToLine<&DocumentFlow::LineBelow>},
    {Motion::LineStart, &MovedToEdge<&DocumentFlow::StartOf>},
    {Motion::LineEnd, &MovedToEdge<&DocumentFlow::EndOf>},
    {Motion::ParagraphUp, &Stepped<&PreviousParagraph>},
    {Motion::ParagraphDown, &Stepped<&NextParagraph>},
    {Motion::PageUp, &MovedByPage<&DocumentFlow::LineAbove>},
    {Motion::PageDown, &MovedByPage<&DocumentFlow::LineBelow>},
    {Motion::DocumentStart, &MovedToDocument<false>},
    {Motion::DocumentEnd, &MovedToDocument<true>},
}};

constexpr bool IsInOrder()
{
    for (std::size_t i = 0; i < kMotionTable.size(); ++i)
        if (kMotionTable[i].motion != static_cast<Motion>(i))
            return false;
    return true;
}
static_assert(IsInOrder());

}  // namespace

MovedCaret Moved(DocumentFlow& flow, CaretPosition caret, Motion motion, const MotionContext& context)
{
    return kMotionTable[static_cast<std::size_t>(motion)].move(flow, caret, context);
}

}  // namespace quillmarker
