#pragma once

#include "boundary_rules.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillmarker
{

/// The line boundaries of a text by ICU's rules, found from near by: ICU itself looks back to the start of a text when
/// it is asked about a far place, so it is given the text from a certain boundary on and goes forward from there.
class LineRules
{
public:
    LineRules(std::u16string_view text, const char* locale) : m_text(text), m_rules(UBRK_LINE, locale, text) {}

    /// The last boundary up to `offset`, 0 if there is none.
    std::uint32_t LastUpTo(std::uint32_t offset);
    /// The first boundary behind `offset`, the text's length if there is none.
    std::uint32_t NextBehind(std::uint32_t offset);

private:
    void Reach(std::uint32_t offset);

    std::u16string_view m_text;
    BoundaryRules m_rules;               // over the text from the first known boundary on
    std::vector<std::uint32_t> m_known;  // ascending, none left out between the first and the last
};

}  // namespace quillmarker
