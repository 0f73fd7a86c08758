#include <quillmarker/char_format.h>

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

std::u16string Target(std::u16string instruction)
{
    return LinkTarget({.instruction = std::move(instruction), .switches = "", .outer = {}});
}

TEST(LinkTarget, IsTheAddressInQuotesOrWithout)
{
    EXPECT_EQ(Target(u"HYPERLINK \"http://example.org/a b\""), u"http://example.org/a b");
    EXPECT_EQ(Target(u" hyperlink   http://example.org "), u"http://example.org");
}

TEST(LinkTarget, ABookmarkFollowsASign)
{
    EXPECT_EQ(Target(u"HYPERLINK \\l \"totals\""), u"#totals");
    EXPECT_EQ(Target(u"HYPERLINK \"file.rtf\" \\l \"totals\""), u"file.rtf#totals");
    EXPECT_EQ(Target(u"HYPERLINK \\l \"totals\" \"file.rtf\""), u"file.rtf#totals");
    EXPECT_EQ(Target(u"HYPERLINK \\l totals \\o tip http://example.org"), u"http://example.org#totals");
}

TEST(LinkTarget, TipsAndFramesAreNotTargets)
{
    EXPECT_EQ(Target(u"HYPERLINK \\o \"a tip\" \"http://example.org\" \\t \"_blank\""), u"http://example.org");
    EXPECT_EQ(Target(u"HYPERLINK \\n \"http://example.org\""), u"http://example.org");
}

TEST(LinkTarget, ABackslashInQuotesHidesTheNextCharacter)
{
    EXPECT_EQ(Target(u"HYPERLINK \"\\\\\\\\server\\\\share\""), u"\\\\server\\share");
    EXPECT_EQ(Target(u"HYPERLINK \"say \\\"a\\\"\""), u"say \"a\"");
}

TEST(LinkTarget, OtherFieldsLeadNowhere)
{
    EXPECT_EQ(Target(u"PAGE"), u"");
    EXPECT_EQ(Target(u"HYPERLINKS \"http://example.org\""), u"");
    EXPECT_EQ(Target(u""), u"");
    EXPECT_EQ(Target(u"   "), u"");
}

TEST(LinkTarget, ABrokenInstructionGivesWhatIsThere)
{
    EXPECT_EQ(Target(u"HYPERLINK"), u"");
    EXPECT_EQ(Target(u"HYPERLINK \""), u"");
    EXPECT_EQ(Target(u"HYPERLINK \"http://exam"), u"http://exam");
    EXPECT_EQ(Target(u"HYPERLINK \\l"), u"#");
    EXPECT_EQ(Target(u"HYPERLINK \"x\\"), u"x\\");
}

}  // namespace
}  // namespace quillmarker
