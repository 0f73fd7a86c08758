#include "height_estimate.h"

#include "picture_image.h"

#include <algorithm>
#include <limits>

namespace quillmarker
{
namespace
{

constexpr Fine kMostHeight = static_cast<Fine>(kMaxPictureTwips) * kFinePerTwip;

/// The height that a picture asks for; its bytes are not looked at.
Fine HeightOf(const InlinePicture& picture)
{
    constexpr Fine kTwipsPerPixel = 15;
    constexpr Fine kMostGoal = std::numeric_limits<std::int32_t>::max();
    constexpr Fine kMostPercent = 10'000;
    const Fine wanted = picture.goalHeight.value > 0 ? picture.goalHeight.value : picture.height * kTwipsPerPixel;
    const Fine goal = std::clamp<Fine>(wanted, 0, kMostGoal);
    const Fine percent = picture.scaleY > 0 ? std::min<Fine>(picture.scaleY, kMostPercent) : 100;
    const Fine scaled = goal * percent / 100;
    return std::clamp<Fine>((scaled - picture.cropTop.value - picture.cropBottom.value) * kFinePerTwip, 0, kMostHeight);
}

Fine HeightOf(const InlineObject& object)
{
    if (const auto* picture = std::get_if<InlinePicture>(&object))
        return HeightOf(*picture);
    if (const auto* embedded = std::get_if<EmbeddedObject>(&object))
        return std::clamp<Fine>(ToFine(embedded->height), 0, kMostHeight);
    return 0;
}

Fine TallestObject(const Paragraph& paragraph)
{
    Fine tallest = 0;
    if (paragraph.HasExtras())
        for (const PlacedObject& placed : paragraph.Extras().objects)
            tallest = std::max(tallest, HeightOf(*placed.object));
    return tallest;
}

Fine LineHeight(const LineSpacing& spacing, Fine natural)
{
    constexpr Fine kWholeLine = 240;
    const Fine amount = spacing.amount;
    switch (spacing.rule)
    {
    case LineRule::Single:
        break;
    case LineRule::AtLeast:
        return std::max(natural, amount * kFinePerTwip);
    case LineRule::Exactly:
        return amount * kFinePerTwip;
    case LineRule::Multiple:
        return natural * amount / kWholeLine;
    }
    return natural;
}

}  // namespace

const HeightEstimate::Letters& HeightEstimate::LettersOf(CharFormatId format)
{
    if (m_last && format == m_lastFormat)
        return *m_last;
    const auto [at, isNew] = m_letters.try_emplace(format);
    Letters& letters = at->second;
    if (isNew)
    {
        // As the usual fonts have it: half an em a character, and a line gap.
        const CharFormat& full = m_document.FormatOf(format);
        const Fine size = ToFine(full.size);
        const Fine percent = full.widthPercent == 0 ? 100 : full.widthPercent;
        letters = {.isHidden = full.hidden,
                   .advance = std::max<Fine>(size / 2 * percent / 100 + ToFine(full.spacing), 0),
                   .height = size * 23 / 20};
    }
    m_lastFormat = format;
    m_last = &letters;
    return letters;
}

bool HeightEstimate::TakesNoRoom(const Paragraph& paragraph)
{
    const ParagraphMark& mark = paragraph.Ending();
    if (mark.kind != Mark::Row && (!LettersOf(mark.charFormat).isHidden || m_document.FormatOf(mark.format).numbering))
        return false;
    return std::all_of(paragraph.Runs().begin(), paragraph.Runs().end(),
                       [&](const Run& run) { return LettersOf(run.format).isHidden; });
}

ParagraphHeight HeightEstimate::Of(const Paragraph& paragraph)
{
    if (TakesNoRoom(paragraph))
        return {0, false};
    const ParagraphFormat& format = m_document.FormatOf(paragraph.Ending().format);
    const Letters& letters = LettersOf(paragraph.FormatAt(0));
    const Fine room = ToFine(m_width - format.leftIndent - format.rightIndent);
    const Fine length = letters.advance * static_cast<Fine>(paragraph.Text().size());
    const Fine lines = m_width.value <= 0 ? 1 : std::max<Fine>(length / std::max(room, ToFine(Points(10))) + 1, 1);
    const Fine height = LineHeight(format.lineSpacing, letters.height) * lines + TallestObject(paragraph) +
                        std::max<Fine>(ToFine(format.spaceBefore), 0) + std::max<Fine>(ToFine(format.spaceAfter), 0);
    return {std::max(height, kFinePerTwip), true};
}

std::vector<ParagraphHeight> HeightEstimate::Of(std::int32_t first, std::int32_t count)
{
    std::vector<ParagraphHeight> heights;
    heights.reserve(static_cast<std::size_t>(count));
    if (count > 0)
        m_document.Visit(first, [&](const Paragraph& paragraph) {
            heights.push_back(Of(paragraph));
            return static_cast<std::int32_t>(heights.size()) < count;
        });
    return heights;
}

}  // namespace quillmarker
