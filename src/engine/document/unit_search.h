#pragma once

#include <quillmarker/document.h>

#include <optional>
#include <string_view>

namespace quillmarker
{

/// Units of UTF-16: those that are listed, or all others.
class UnitSet
{
public:
    enum class Holds : bool { Listed, Others };

    UnitSet(std::u16string_view listed, Holds holds) : m_listed(listed), m_holds(holds) {}

    bool Contains(char16_t unit) const { return (m_listed.find(unit) != m_listed.npos) == (m_holds == Holds::Listed); }

private:
    std::u16string_view m_listed;
    Holds m_holds;
};

// The text is scanned where it lies, without a copy. Positions and units are those of Document::Text().

/// The position of the first unit of the set at or behind `from`; empty when there is none.
std::optional<Position> FirstOf(const UnitSet& set, const Document& document, Position from);

/// The position behind the last unit of the set before `end`; empty when there is none.
std::optional<Position> BehindLastOf(const UnitSet& set, const Document& document, Position end);

}  // namespace quillmarker
