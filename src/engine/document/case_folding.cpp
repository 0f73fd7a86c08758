#include "engine/document/case_folding.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillmarker
{

namespace
{

// The distance to the folded unit, in pages of 256 units. Nearly all pages hold nothing but zeros and share the first
// one, so the table stays small enough for the cache.
class FoldingTable
{
public:
    FoldingTable()
    {
        m_pages.emplace_back();
        for (unsigned page = 0; page < 256; ++page)
            AddPage(page);
        std::sort(m_unitsByFolded.begin(), m_unitsByFolded.end());
        m_unitsByFolded.erase(std::unique(m_unitsByFolded.begin(), m_unitsByFolded.end()), m_unitsByFolded.end());
    }

    char16_t Folded(char16_t unit) const
    {
        return static_cast<char16_t>(unit + m_pages[m_pageOf[unit >> 8]][unit & 0xFF]);
    }

    CaseVariants Variants(char16_t unit) const
    {
        CaseVariants variants;
        const char16_t folded = Folded(unit);
        auto form = std::lower_bound(m_unitsByFolded.begin(), m_unitsByFolded.end(), Pair{folded, u'\0'});
        for (; form != m_unitsByFolded.end() && form->first == folded; ++form)
            variants.units.at(static_cast<std::size_t>(variants.count++)) = form->second;
        if (variants.count == 0)
            variants.units[static_cast<std::size_t>(variants.count++)] = unit;
        return variants;
    }

private:
    using Pair = std::pair<char16_t, char16_t>;  // folded unit, a unit that folds to it

    void AddPage(unsigned page)
    {
        std::array<std::uint16_t, 256> distances{};
        for (unsigned low = 0; low < 256; ++low)
        {
            const unsigned unit = page << 8 | low;
            const auto folded = static_cast<unsigned>(u_foldCase(static_cast<UChar32>(unit), U_FOLD_CASE_DEFAULT));
            if (folded == unit || folded > 0xFFFF)
                continue;
            distances[low] = static_cast<std::uint16_t>(folded - unit);
            m_unitsByFolded.emplace_back(static_cast<char16_t>(folded), static_cast<char16_t>(unit));
            m_unitsByFolded.emplace_back(static_cast<char16_t>(folded), static_cast<char16_t>(folded));
        }
        if (distances == m_pages.front())
            return;
        m_pageOf[page] = static_cast<std::uint8_t>(m_pages.size());
        m_pages.push_back(distances);
    }

    std::array<std::uint8_t, 256> m_pageOf{};
    std::vector<std::array<std::uint16_t, 256>> m_pages;
    std::vector<Pair> m_unitsByFolded;  // only of units with more than one form
};

const FoldingTable& Table()
{
    static const FoldingTable table;
    return table;
}

}  // namespace

char16_t Fold(char16_t unit)
{
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit;
    return Table().Folded(unit);
}

std::u16string Folded(std::u16string_view text)
{
    std::u16string folded(text);
    for (char16_t& unit : folded)
        unit = Fold(unit);
    return folded;
}

CaseVariants VariantsOf(char16_t unit) { return Table().Variants(unit); }

}  // namespace quillmarker
