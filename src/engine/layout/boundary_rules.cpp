#include "boundary_rules.h"

#include <unicode/utf16.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace quillmarker
{
namespace
{

using OwnedRules = std::unique_ptr<UBreakIterator, CloseRules>;
using RulesKey = std::pair<UBreakIteratorType, std::string>;

std::map<RulesKey, std::vector<OwnedRules>>& KeptRules()
{
    thread_local std::map<RulesKey, std::vector<OwnedRules>> kept;
    return kept;
}

OwnedRules Borrowed(UBreakIteratorType kind, const char* locale)
{
    std::vector<OwnedRules>& kept = KeptRules()[{kind, locale}];
    if (kept.empty())
    {
        UErrorCode error = U_ZERO_ERROR;
        OwnedRules opened(ubrk_open(kind, locale, nullptr, 0, &error));
        return U_SUCCESS(error) ? std::move(opened) : nullptr;
    }
    OwnedRules rules = std::move(kept.back());
    kept.pop_back();
    return rules;
}

}  // namespace

BoundaryRules::BoundaryRules(UBreakIteratorType kind, const char* locale, std::u16string_view text)
    : m_kind(kind), m_locale(locale), m_rules(Borrowed(kind, locale))
{
    Restart(text);
}

void BoundaryRules::Restart(std::u16string_view text)
{
    m_text = text;
    UErrorCode error = U_ZERO_ERROR;
    if (m_rules)
        ubrk_setText(m_rules.get(), text.data(), static_cast<std::int32_t>(text.size()), &error);
    if (U_FAILURE(error))
        m_rules.reset();
}

BoundaryRules::~BoundaryRules()
{
    if (!m_rules)
        return;
    UErrorCode error = U_ZERO_ERROR;
    ubrk_setText(m_rules.get(), u"", 0, &error);  // the text may be gone before the rules are used again
    KeptRules()[{m_kind, m_locale}].push_back(std::move(m_rules));
}

std::uint32_t BoundaryRules::LastUpTo(std::uint32_t offset) const
{
    if (!m_rules || offset >= m_text.size())
        return std::min(offset, static_cast<std::uint32_t>(m_text.size()));
    // The next place to look back from; ICU looks back from a pair's start when told its middle.
    const bool isPair = U16_IS_LEAD(m_text[offset]) && offset + 1 < m_text.size() && U16_IS_TRAIL(m_text[offset + 1]);
    const std::int32_t found = ubrk_preceding(m_rules.get(), static_cast<std::int32_t>(offset) + (isPair ? 2 : 1));
    return found == UBRK_DONE ? 0 : static_cast<std::uint32_t>(found);
}

std::uint32_t BoundaryRules::NextBehind(std::uint32_t offset) const
{
    const auto size = static_cast<std::uint32_t>(m_text.size());
    if (!m_rules || offset >= size)
        return std::min(offset + 1, size);
    const std::int32_t found = ubrk_following(m_rules.get(), static_cast<std::int32_t>(offset));
    return found == UBRK_DONE ? size : static_cast<std::uint32_t>(found);
}

}  // namespace quillmarker
