#include "flow_sample.h"

#include "engine/layout/layout_cache.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

class LayoutCacheTest : public ::testing::Test
{
protected:
    const Paragraph& Source(std::int32_t index) const { return m_document.ParagraphAt(index); }

    void Add(std::int32_t index, const ParagraphContext& context)
    {
        m_cache.Add(std::make_unique<ParagraphLayout>(m_document.SharedParagraphAt(index), m_document.Formats(),
                                                      m_fonts, context));
    }

    FixedFontHost m_fonts;
    Document m_document = CountedParagraphs(100, 5);
    LayoutCache m_cache;
};

TEST_F(LayoutCacheTest, KnowsALayoutByParagraphAndContext)
{
    Add(0, {.width = {1000}});
    Add(0, {.width = {2000}});
    EXPECT_EQ(m_cache.Find(Source(0), {.width = {1000}})->Context().width, Twips{1000});
    EXPECT_EQ(m_cache.Find(Source(0), {.width = {2000}})->Context().width, Twips{2000});
    EXPECT_EQ(m_cache.Find(Source(0), {.width = {3000}}), nullptr);
    EXPECT_EQ(m_cache.Find(Source(0), {.width = {1000}, .number = u"1."}), nullptr);
    EXPECT_EQ(m_cache.Find(Source(1), {.width = {1000}}), nullptr);
}

TEST_F(LayoutCacheTest, DropsWhatWasUsedLongestAgo)
{
    for (std::int32_t i = 0; i < 100; ++i)
        Add(i, {});
    const std::size_t all = m_cache.Weight();
    m_cache.BeginTurn(0);
    EXPECT_EQ(m_cache.Count(), 100U) << "all of them were used in the turn before";
    ASSERT_NE(m_cache.Find(Source(7), {}), nullptr);
    m_cache.BeginTurn(all / 2);
    EXPECT_LE(m_cache.Weight(), all / 2);
    EXPECT_GT(m_cache.Weight(), all / 3);
    EXPECT_NE(m_cache.Find(Source(7), {}), nullptr) << "used last";
    EXPECT_NE(m_cache.Find(Source(99), {}), nullptr);
    EXPECT_EQ(m_cache.Find(Source(0), {}), nullptr);
}

TEST_F(LayoutCacheTest, KeepsWhatTheTurnBeforeUsedWhateverItWeighs)
{
    Add(0, {});
    Add(1, {});
    m_cache.BeginTurn(0);
    ASSERT_NE(m_cache.Find(Source(1), {}), nullptr);
    m_cache.BeginTurn(0);
    EXPECT_EQ(m_cache.Count(), 1U);
    EXPECT_NE(m_cache.Find(Source(1), {}), nullptr);
}

TEST_F(LayoutCacheTest, WeighsNothingWhenCleared)
{
    Add(0, {});
    m_cache.Clear();
    EXPECT_EQ(m_cache.Weight(), 0U);
    EXPECT_EQ(m_cache.Find(Source(0), {}), nullptr);
}

}  // namespace
}  // namespace quillmarker
