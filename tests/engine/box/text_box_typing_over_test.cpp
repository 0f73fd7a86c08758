#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

TextRange Between(std::int32_t begin, std::int32_t end) { return {{begin}, {end}}; }

TEST(TypingOver, ReplacesARangeAndStandsBehindIt)
{
    SampleBox box("one |two");
    EXPECT_TRUE(box.TypeOver(Between(4, 5), u"T"));
    EXPECT_EQ(Dump(box), "one T|wo");
    EXPECT_TRUE(box.TypeOver(Between(0, 4), u""));
    EXPECT_EQ(Dump(box), "|Two");
}

TEST(TypingOver, AtTheCaretLooksLikeWhatIsTypedThere)
{
    SampleBox box("<b>one</b>|two");
    EXPECT_TRUE(box.TypeOver(Between(3, 4), u"T"));
    EXPECT_EQ(Dump(box), "<b>oneT</b>|wo");
}

TEST(TypingOver, ElsewhereLooksLikeWhatItReplaces)
{
    SampleBox box("one <b>two</b> three|");
    EXPECT_TRUE(box.TypeOver(Between(4, 7), u"2"));
    EXPECT_EQ(Dump(box), "one <b>2</b>| three");
}

TEST(TypingOver, TakesALineEndAsAWhole)
{
    SampleBox box("a|\nb");
    EXPECT_TRUE(box.TypeOver(Between(1, 2), u"-"));
    EXPECT_EQ(Dump(box), "a-|b");
}

TEST(TypingOver, JoinsTheStepOfTypingBeforeIt)
{
    SampleBox box("|abc");
    box.Type(u"x");
    box.TypeOver(Between(1, 2), u"y");
    box.TypeOver(Between(2, 3), u"");
    EXPECT_EQ(Dump(box), "xy|c");
    box.Undo();
    EXPECT_EQ(Dump(box), "|abc");
}

TEST(TypingOver, IsRefusedWhereTheUserMayNotWrite)
{
    SampleBox box("a|<p>bc</p>d");
    EXPECT_FALSE(box.TypeOver(Between(1, 2), u"x"));
    EXPECT_FALSE(box.TypeOver(Between(1, 2), u""));
    EXPECT_EQ(Dump(box), "a|<p>bc</p>d");
    box.SetLocked(true);
    EXPECT_FALSE(box.TypeOver(Between(0, 1), u"x"));
    EXPECT_EQ(Dump(box), "a|<p>bc</p>d");
}

TEST(TypingOver, ReplacesWhatAFullBoxHolds)
{
    SampleBox box("|abc");
    box.SetMaxLength(3);
    EXPECT_TRUE(box.TypeOver(Between(0, 1), u"x"));
    EXPECT_FALSE(box.TypeOver(Between(1, 2), u"yz"));
    EXPECT_EQ(Dump(box), "xy|c");
}

TEST(SelectingAtOnce, IsOneChange)
{
    SampleBox box("|abcdef");
    int changes = 0;
    box.SelChange = [&] { ++changes; };
    box.Select({2, 3});
    EXPECT_EQ(Dump(box), "ab^cde|f");
    EXPECT_EQ(changes, 1);
    box.Select({2, 3});
    EXPECT_EQ(changes, 1);
}

TEST(SelectingAtOnce, StaysInsideTheTextAndOutOfLineEnds)
{
    SampleBox box("a\n|b");
    box.Select({2, 99});
    EXPECT_EQ(Dump(box), "a^\nb|");
    box.Select({-1, 2});
    box.Select({0, -2});
    EXPECT_EQ(Dump(box), "a^\nb|");
}

}  // namespace
}  // namespace quillmarker
