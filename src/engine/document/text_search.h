#pragma once

#include "engine/document/case_folding.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmarker
{

enum class MatchCase : bool { No, Yes };

/// A text to search for, prepared once and used for any number of searches.
class Needle
{
public:
    Needle(std::u16string_view text, MatchCase matchCase);

    std::size_t Length() const { return m_text.size(); }

    /// Whether `hay` holds the needle at `at`; the needle must fit behind `at`.
    bool Matches(std::u16string_view hay, std::size_t at) const;

    /// The units a match can begin with, and those it can end with.
    const CaseVariants& First() const { return m_first; }
    const CaseVariants& Last() const { return m_last; }

private:
    std::u16string m_text;  // folded unless case matters
    MatchCase m_matchCase;
    CaseVariants m_first;
    CaseVariants m_last;
};

/// The first position at or after `from` where `needle` stands in `hay`; npos when there is none, or the needle is
/// empty.
std::size_t FindFirst(std::u16string_view hay, const Needle& needle, std::size_t from = 0);

/// The last position from which `needle` ends at or before `endLimit`; npos when there is none, or the needle is empty.
std::size_t FindLast(std::u16string_view hay, const Needle& needle, std::size_t endLimit = std::u16string_view::npos);

}  // namespace quillmarker
