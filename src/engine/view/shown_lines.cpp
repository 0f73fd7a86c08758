#include "shown_lines.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace quillmarker
{
namespace
{

/// Letters reach out of their line: accents above, tails below, and lines at an exact distance even further.
constexpr int OverhangOf(const ShownLine& line) { return 2 + (line.bottom - line.top) / 4; }

class Mix
{
public:
    template <class... Values>
    void Add(Values... values)
    {
        (AddOne(static_cast<std::uint64_t>(values)), ...);
    }
    void Add(std::u16string_view text) { AddOne(std::hash<std::u16string_view>()(text)); }
    std::uint64_t Value() const { return m_value; }

private:
    void AddOne(std::uint64_t value)
    {
        m_value ^= value + 0x9E37'79B9'7F4A'7C15 + (m_value << 6) + (m_value >> 2);
        m_value *= 0xFF51'AFD7'ED55'8CCD;
        m_value ^= m_value >> 33;
    }

    std::uint64_t m_value = 0x2545'F491'4F6C'DD1D;
};

}  // namespace

void ShownLines::Scroll(int pixels)
{
    for (ShownLine& line : m_lines)
    {
        line.top += pixels;
        line.bottom += pixels;
    }
}

QRegion ShownLines::DifferenceFrom(const ShownLines& before, int width) const
{
    QRegion region;
    const auto addLine = [&](const ShownLine& line) {
        const int overhang = OverhangOf(line);
        region += QRect(0, line.top - overhang, width, line.bottom - line.top + 2 * overhang);
    };
    auto now = m_lines.begin();
    auto then = before.m_lines.begin();
    while (now != m_lines.end() || then != before.m_lines.end())
    {
        if (then == before.m_lines.end() || (now != m_lines.end() && now->top < then->top))
            addLine(*now++);
        else if (now == m_lines.end() || then->top < now->top)
            addLine(*then++);
        else
        {
            if (*now != *then)
            {
                addLine(*now);
                addLine(*then);
            }
            ++now;
            ++then;
        }
    }
    return region;
}

std::uint64_t LookOf(const ParagraphLayout& layout, std::uint32_t index)
{
    const Line& line = layout.Lines()[index];
    const Paragraph& paragraph = layout.Source();
    const ParagraphMark& mark = paragraph.Ending();
    Mix mix;
    mix.Add(paragraph.Text().substr(line.begin, line.end - line.begin));
    for (const Run& run : paragraph.Runs())
    {
        if (run.end > line.begin)
            mix.Add(run.end - line.begin, run.format);
        if (run.end >= line.end)
            break;
    }
    for (const PlacedObject& object : paragraph.Extras().objects)
    {
        if (object.offset >= line.begin && object.offset < line.end)
            mix.Add(reinterpret_cast<std::uintptr_t>(&*object.object));
    }
    const bool isFirst = index == 0;
    const bool isLast = index + 1 == layout.Lines().size();
    mix.Add(mark.format, mark.kind, mark.tableDepth, line.ending, isFirst, isLast);
    if (isLast)
        mix.Add(mark.charFormat);
    if (isFirst)
        mix.Add(std::u16string_view(layout.Context().number));
    mix.Add(layout.Context().joinsAbove, layout.Context().joinsBelow);
    mix.Add(line.left, line.width, line.height, line.baseline, line.textTop, line.textHeight);
    return mix.Value();
}

}  // namespace quillmarker
