#include "engine/document/paragraph_builder.h"

#include <algorithm>

namespace quillmarker
{

void ParagraphBuilder::CloseRun(CharFormatId format)
{
    const auto end = static_cast<std::uint32_t>(m_text.size());
    if (!m_runs.empty() && m_runs.back().format == format)
        m_runs.back().end = end;
    else
        m_runs.push_back({end, format});
}

void ParagraphBuilder::Append(std::u16string_view text, CharFormatId format)
{
    if (text.empty())
        return;
    m_text.append(text);
    CloseRun(format);
}

char16_t* ParagraphBuilder::Extend(std::size_t size, CharFormatId format)
{
    const std::size_t old = m_text.size();
    m_text.resize(old + size);
    if (size > 0)
        CloseRun(format);
    return m_text.data() + old;
}

void ParagraphBuilder::Append(Shared<InlineObject> object, CharFormatId format)
{
    m_objects.push_back({static_cast<std::uint32_t>(m_text.size()), std::move(object)});
    Append(kObjectCharacter, format);
}

void ParagraphBuilder::Append(const Paragraph& from, std::uint32_t begin, std::uint32_t end)
{
    const auto text = from.Text();
    end = std::min(end, static_cast<std::uint32_t>(text.size()));
    if (begin >= end)
        return;
    const auto shift = static_cast<std::uint32_t>(m_text.size());
    for (const PlacedObject& placed : from.Extras().objects)
    {
        if (placed.offset >= begin && placed.offset < end)
            m_objects.push_back({placed.offset - begin + shift, placed.object});
    }
    const auto runs = from.Runs();
    for (auto run = std::ranges::upper_bound(runs, begin, {}, &Run::end); begin < end; ++run)
    {
        const std::uint32_t stop = std::min(run->end, end);
        Append(text.substr(begin, stop - begin), run->format);
        begin = stop;
    }
}

ParagraphRef ParagraphBuilder::Finish(const ParagraphMark& mark) { return Finish(mark, {}, {}); }

ParagraphRef ParagraphBuilder::Finish(const ParagraphMark& mark, Shared<TableRow> row, Shared<Section> section)
{
    ParagraphExtras extras{std::move(m_objects), std::move(row), std::move(section)};
    ParagraphRef paragraph = Paragraph::Make(m_text, m_runs, mark, std::move(extras));
    m_text.clear();
    m_runs.clear();
    m_objects.clear();
    return paragraph;
}

ParagraphRef ParagraphBuilder::FinishLike(const Paragraph& like)
{
    return Finish(like.Ending(), like.Extras().row, like.Extras().section);
}

}  // namespace quillmarker
