#pragma once

#include <quillmarker/export.h>
#include <quillmarker/paragraph_format.h>

#include <array>
#include <cstdint>
#include <map>
#include <string>

namespace quillmarker
{

/// A number in the style of `kind`; empty for bullets and for numbers the style cannot show.
QUILLMARKER_CORE_EXPORT std::u16string NumberText(NumberKind kind, std::int32_t number);

/// Counts numbered paragraphs in the order of the text.
class QUILLMARKER_CORE_EXPORT NumberCounter
{
public:
    /// What stands before the next paragraph; empty when it is not numbered.
    std::u16string Next(const Numbering* numbering);

    /// Counters that are equal say the same of all that follows.
    bool operator==(const NumberCounter&) const = default;

private:
    static constexpr std::size_t kLevels = 9;
    struct Level
    {
        bool isRunning = false;
        std::int32_t number = 0;
        NumberKind kind = NumberKind::Decimal;

        bool operator==(const Level&) const = default;
    };
    using Levels = std::array<Level, kLevels>;

    std::map<std::int32_t, Levels> m_lists;
};

}  // namespace quillmarker
