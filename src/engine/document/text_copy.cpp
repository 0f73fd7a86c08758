#include "engine/document/text_copy.h"

#include <algorithm>

namespace quillmarker
{

void AppendText(const Paragraph& paragraph, std::int32_t begin, std::int32_t end, std::u16string& out)
{
    const std::u16string_view text = paragraph.Text();
    const auto length = static_cast<std::int32_t>(text.size());
    if (begin < length)
    {
        const std::size_t start = out.size();
        const auto stop = std::min(end, length);
        out.append(text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(stop - begin)));
        for (const PlacedObject& placed : paragraph.Extras().objects)
        {
            const auto offset = static_cast<std::int32_t>(placed.offset);
            if (offset >= begin && offset < stop)
                out[start + static_cast<std::size_t>(offset - begin)] = kObjectAsText;
        }
    }
    if (end > length)
    {
        const auto from = static_cast<std::size_t>(std::max(begin - length, 0));
        out.append(MarkText(paragraph.Ending().kind).substr(from, static_cast<std::size_t>(end - length) - from));
    }
}

}  // namespace quillmarker
