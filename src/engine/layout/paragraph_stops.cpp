#include "paragraph_stops.h"

#include "text_breaks.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

/// The run that holds the character at `offset`, which must exist.
std::size_t RunAt(std::span<const Run> runs, std::int32_t offset)
{
    const auto found = std::upper_bound(runs.begin(), runs.end(), static_cast<std::uint32_t>(offset),
                                        [](std::uint32_t at, const Run& run) { return at < run.end; });
    return static_cast<std::size_t>(found - runs.begin());
}

}  // namespace

bool ParagraphStops::IsHidden(std::int32_t offset) const
{
    return m_document.FormatOf(m_paragraph.FormatAt(static_cast<std::uint32_t>(offset))).hidden;
}

bool ParagraphStops::IsInsideHidden(std::int32_t offset) const
{
    return offset > 0 && offset < Length() && IsHidden(offset - 1) && IsHidden(offset);
}

std::int32_t ParagraphStops::PastHiddenBehind(std::int32_t offset) const
{
    const std::span<const Run> runs = m_paragraph.Runs();
    while (offset < Length() && IsHidden(offset))
        offset = static_cast<std::int32_t>(runs[RunAt(runs, offset)].end);
    return std::min(offset, Length());
}

std::int32_t ParagraphStops::PastHiddenBefore(std::int32_t offset) const
{
    const std::span<const Run> runs = m_paragraph.Runs();
    while (offset > 0 && IsHidden(offset - 1))
    {
        const std::size_t run = RunAt(runs, offset - 1);
        offset = run == 0 ? 0 : static_cast<std::int32_t>(runs[run - 1].end);
    }
    return offset;
}

bool ParagraphStops::IsStop(std::int32_t offset) const
{
    return IsCharacterBreak(m_text, offset) && !IsInsideHidden(offset);
}

std::int32_t ParagraphStops::StopFrom(std::int32_t offset) const
{
    while (offset < Length() && !IsStop(offset))
        offset = IsInsideHidden(offset) ? PastHiddenBehind(offset) : NextCharacterBreak(m_text, offset);
    return std::min(offset, Length());
}

std::int32_t ParagraphStops::StopUpTo(std::int32_t offset) const
{
    while (offset > 0 && !IsStop(offset))
        offset = IsInsideHidden(offset) ? PastHiddenBefore(offset) : PreviousCharacterBreak(m_text, offset);
    return std::max(offset, 0);
}

}  // namespace quillmarker
