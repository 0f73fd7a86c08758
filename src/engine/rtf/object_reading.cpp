#include "engine/rtf/object_reading.h"

#include "engine/rtf/hex.h"

#include <utility>

namespace quillmarker
{

void HexReading::Append(std::string_view digits)
{
    m_bytes.reserve(m_bytes.size() + digits.size() / 2);
    for (const char digit : digits)
    {
        const int value = HexValue(digit);
        if (value < 0)
            continue;
        if (m_high < 0)
            m_high = value;
        else
            m_bytes.push_back(static_cast<char>(std::exchange(m_high, -1) * 16 + value));
    }
}

std::string HexReading::Take()
{
    m_high = -1;
    m_bytes.shrink_to_fit();
    return std::exchange(m_bytes, {});
}

Numbering OldNumbering::Finish() const
{
    Numbering result = numbering;
    constexpr std::size_t kMaxPart = kMaxNumberText / 2 - 1;
    result.text.assign(before, 0, kMaxPart);
    if (result.kind != NumberKind::Bullet && result.kind != NumberKind::None)
    {
        result.text += static_cast<char16_t>(result.level);
        result.text.append(after, 0, kMaxPart);
    }
    else if (result.text.empty() && result.kind == NumberKind::Bullet)
        result.text.assign(1, u'\u2022');
    return result;
}

}  // namespace quillmarker
