#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace quillmarker
{

class LineRules;

/// Where a line may end, by the rules of Unicode (UAX #14), with dictionaries for the scripts that have no spaces.
/// Plain words between blanks are found without asking the full rules; both ways give the same answer. Behind a tab and
/// behind a break character a line may always begin, and so it may at the text's end.
class LineBreaks
{
public:
    enum class Means : bool { FastWherePossible, RulesOnly };

    /// The text is only looked at and must outlive the object.
    LineBreaks(std::u16string_view text, std::uint16_t language, Means means = Means::FastWherePossible);
    ~LineBreaks();
    LineBreaks(const LineBreaks&) = delete;
    LineBreaks& operator=(const LineBreaks&) = delete;

    /// The last place behind `after` and up to `offset` before which a new line may begin; `after` if there is none.
    std::uint32_t LastUpTo(std::uint32_t offset, std::uint32_t after);

    /// The first place behind `offset` before which a new line may begin; the text's length if there is none.
    std::uint32_t NextBehind(std::uint32_t offset);

    /// The last boundary of a user-perceived character behind `after` and up to `offset`; if there is none, the first one behind
    /// `after`. For a word that is longer than a line.
    std::uint32_t LastCharacterUpTo(std::uint32_t offset, std::uint32_t after) const;

private:
    LineRules& Rules();

    std::u16string_view m_text;
    std::uint16_t m_language;  // a Windows language identifier
    Means m_means;
    std::unique_ptr<LineRules> m_rules;  // opened when they are first needed
};

}  // namespace quillmarker
