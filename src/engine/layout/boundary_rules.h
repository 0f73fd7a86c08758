#pragma once

#include <unicode/ubrk.h>

#include <cstdint>
#include <memory>
#include <string_view>

namespace quillmarker
{

struct CloseRules
{
    void operator()(UBreakIterator* rules) const { ubrk_close(rules); }
};

/// ICU's rules for the boundaries of a kind in a language, over a text. Opening them is slow, so each thread keeps those
/// that were used and lends them out again.
class BoundaryRules
{
public:
    /// The text is only looked at and must outlive the object.
    BoundaryRules(UBreakIteratorType kind, const char* locale, std::u16string_view text);
    ~BoundaryRules();
    BoundaryRules(const BoundaryRules&) = delete;
    BoundaryRules& operator=(const BoundaryRules&) = delete;

    /// Goes on with another text.
    void Restart(std::u16string_view text);

    /// The last boundary up to `offset`, 0 if there is none.
    std::uint32_t LastUpTo(std::uint32_t offset) const;
    /// The first boundary behind `offset`, the text's length if there is none.
    std::uint32_t NextBehind(std::uint32_t offset) const;

private:
    UBreakIteratorType m_kind;
    const char* m_locale;
    std::u16string_view m_text;
    std::unique_ptr<UBreakIterator, CloseRules> m_rules;  // null when ICU has no data: then every place is a boundary
};

}  // namespace quillmarker
