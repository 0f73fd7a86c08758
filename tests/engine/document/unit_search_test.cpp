#include "engine/document/unit_search.h"

#include "support/random_document.h"
#include "support/sample.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmarker
{
namespace
{

TEST(UnitSearch, SeesMarksAndObjectsAsTheTextHasThem)
{
    const Document document = SampleDocument("a\nb<cell/>c<cell/><row/>d");
    ASSERT_EQ(document.Text(), u"a\r\nb\tc\t\r\nd");
    const UnitSet breaks(u"\r\n\t", UnitSet::Holds::Listed);
    EXPECT_EQ(FirstOf(breaks, document, {0}), Position{1});
    EXPECT_EQ(FirstOf(breaks, document, {2}), Position{2});
    EXPECT_EQ(FirstOf(breaks, document, {3}), Position{4});
    EXPECT_EQ(FirstOf(breaks, document, {9}), std::nullopt);
    EXPECT_EQ(BehindLastOf(breaks, document, {10}), Position{9});
    EXPECT_EQ(BehindLastOf(breaks, document, {8}), Position{8});
    EXPECT_EQ(BehindLastOf(breaks, document, {1}), std::nullopt);
}

TEST(UnitSearch, FindsWhatAWalkOverTheTextFinds)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round)
    {
        const Document document = RandomDocument(random, u"ab ", 1 + Below(random, 6));
        const std::u16string text = document.Text();
        const std::u16string listed = RandomText(random, u"ab \t\r\n\uFFFC", Below(random, 4));
        for (const auto holds : {UnitSet::Holds::Listed, UnitSet::Holds::Others})
        {
            const UnitSet set(listed, holds);
            for (std::size_t at = 0; at <= text.size(); ++at)
            {
                std::size_t first = at;
                while (first < text.size() && !set.Contains(text[first]))
                    ++first;
                std::size_t behind = at;
                while (behind > 0 && !set.Contains(text[behind - 1]))
                    --behind;
                const Position place{static_cast<std::int32_t>(at)};
                const auto end = static_cast<std::int32_t>(text.size());
                ASSERT_EQ(FirstOf(set, document, place).value_or(Position{end}).value, first) << Dump(document) << at;
                ASSERT_EQ(BehindLastOf(set, document, place).value_or(Position{0}).value, behind)
                    << Dump(document) << at;
            }
        }
    }
}

}  // namespace
}  // namespace quillmarker
