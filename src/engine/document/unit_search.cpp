#include "engine/document/unit_search.h"

#include "engine/document/text_copy.h"

#include <algorithm>
#include <cstddef>

namespace quillmarker
{
namespace
{

/// A unit of a paragraph or of its mark.
char16_t UnitAt(const Paragraph& paragraph, std::int32_t offset)
{
    const std::u16string_view text = paragraph.Text();
    const auto index = static_cast<std::size_t>(offset);
    if (index >= text.size())
        return MarkText(paragraph.Ending().kind)[index - text.size()];
    const bool isObject = text[index] == kObjectCharacter && paragraph.ObjectAt(static_cast<std::uint32_t>(offset));
    return isObject ? kObjectAsText : text[index];
}

}  // namespace

std::optional<Position> FirstOf(const UnitSet& set, const Document& document, Position from)
{
    const Location first = document.Locate(from);
    std::int32_t offset = first.offset;
    Position start = document.StartOf(first.paragraph);
    std::optional<Position> found;
    document.Visit(first.paragraph, [&](const Paragraph& paragraph) {
        const std::int32_t end = std::min(paragraph.Length(), document.Size() - start.value);
        while (offset < end && !set.Contains(UnitAt(paragraph, offset)))
            ++offset;
        if (offset < end)
            found = start + offset;
        start = start + paragraph.Length();
        offset = 0;
        return !found;
    });
    return found;
}

std::optional<Position> BehindLastOf(const UnitSet& set, const Document& document, Position end)
{
    const Location last = document.Locate(end);
    std::int32_t offset = last.offset;
    Position start = document.StartOf(last.paragraph);
    for (std::int32_t index = last.paragraph; index >= 0; --index)
    {
        const Paragraph& paragraph = document.ParagraphAt(index);
        if (index < last.paragraph)
        {
            offset = paragraph.Length();
            start = start - offset;
        }
        while (offset > 0 && !set.Contains(UnitAt(paragraph, offset - 1)))
            --offset;
        if (offset > 0)
            return start + offset;
    }
    return std::nullopt;
}

}  // namespace quillmarker
