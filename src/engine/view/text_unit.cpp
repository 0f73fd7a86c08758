#include "text_unit.h"

#include "engine/layout/text_breaks.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace quillmarker
{
namespace
{

struct Offsets
{
    std::int32_t begin = 0;
    std::int32_t end = 0;
};

Offsets CharacterAround(std::u16string_view text, std::int32_t at)
{
    const std::int32_t begin = IsCharacterBreak(text, at) ? at : PreviousCharacterBreak(text, at);
    return {begin, NextCharacterBreak(text, begin)};
}

Offsets WordAround(std::u16string_view text, std::int32_t at)
{
    std::int32_t begin = PreviousWordStart(text, CharacterAround(text, at).end);
    std::int32_t end = NextWordStart(text, begin);
    // Signs that combine with nothing are words only when one comes from before.
    for (; end <= at; end = NextWordStart(text, begin))
        begin = end;
    return {begin, end};
}

/// A sentence that goes further than this in one direction is cut.
constexpr std::int32_t kMaxSentenceSide = 4096;

Offsets SentenceAround(std::u16string_view text, std::int32_t at)
{
    const std::int32_t from = std::max(at - kMaxSentenceSide, 0);
    const std::int32_t to = std::min(at + kMaxSentenceSide, static_cast<std::int32_t>(text.size()));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Sentence, reinterpret_cast<const QChar*>(text.data()) + from,
                               to - from);
    finder.setPosition(at - from);
    const auto begin = finder.isAtBoundary() ? finder.position() : finder.toPreviousBoundary();
    finder.setPosition(at - from);
    const auto end = finder.toNextBoundary();
    return {from + static_cast<std::int32_t>(std::max<qsizetype>(begin, 0)),
            end < 0 ? to : from + static_cast<std::int32_t>(end)};
}

Offsets UnitOf(std::u16string_view text, std::int32_t at, TextUnit unit)
{
    switch (unit)
    {
    case TextUnit::Character:
        return CharacterAround(text, at);
    case TextUnit::Word:
        return WordAround(text, at);
    default:
        return SentenceAround(text, at);
    }
}

}  // namespace

TextRange UnitAround(const Document& document, Position at, TextUnit unit)
{
    const Location place = document.Locate(at);
    const Paragraph& paragraph = document.ParagraphAt(place.paragraph);
    const std::u16string_view text = paragraph.Text();
    const auto length = static_cast<std::int32_t>(text.size());
    const Position start = document.StartOf(place.paragraph);
    const Position end = std::min(start + paragraph.Length(), Position{document.Size()});
    if (unit == TextUnit::Paragraph)
        return {start, end};
    if (place.offset >= length)
        return {start + length, end};
    const Offsets offsets = UnitOf(text, place.offset, unit);
    return {start + offsets.begin, start + offsets.end};
}

}  // namespace quillmarker
