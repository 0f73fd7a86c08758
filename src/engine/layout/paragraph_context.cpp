#include "paragraph_context.h"

namespace quillmarker
{
namespace
{

bool HasBorders(const ParagraphFormat& format) { return static_cast<bool>(format.borders); }

/// Whether two paragraphs, one below the other, share one frame.
bool ShareBorders(const ParagraphFormat& a, const ParagraphFormat& b)
{
    return a.borders == b.borders && a.leftIndent == b.leftIndent && a.rightIndent == b.rightIndent;
}

}  // namespace

ParagraphContext ContextOf(const Document& document, std::int32_t paragraph, Twips width, NumberIndex& numbers)
{
    const Paragraph& source = document.ParagraphAt(paragraph);
    const ParagraphFormat& format = document.FormatOf(source.Ending().format);
    ParagraphContext context{.width = width, .defaultTab = document.Properties().defaultTab};
    if (format.numbering)
        context.number = numbers.NumberOf(document, paragraph);
    if (!HasBorders(format) && !format.contextualSpacing)
        return context;

    const auto formatOf = [&](std::int32_t neighbour) -> const ParagraphFormat* {
        if (neighbour < 0 || neighbour >= document.ParagraphCount())
            return nullptr;
        const ParagraphMark& mark = document.ParagraphAt(neighbour).Ending();
        return mark.tableDepth == source.Ending().tableDepth ? &document.FormatOf(mark.format) : nullptr;
    };
    const ParagraphFormat* above = formatOf(paragraph - 1);
    const ParagraphFormat* below = formatOf(paragraph + 1);
    context.joinsAbove = above && HasBorders(format) && ShareBorders(format, *above);
    context.joinsBelow = below && HasBorders(format) && ShareBorders(format, *below);
    context.dropsSpaceBefore = above && format.contextualSpacing && above->style == format.style;
    context.dropsSpaceAfter = below && format.contextualSpacing && below->style == format.style;
    return context;
}

}  // namespace quillmarker
