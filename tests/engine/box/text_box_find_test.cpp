#include "support/sample.h"

#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

TEST(Find, SelectsWhatItFindsAndReturnsItsPosition)
{
    SampleBox box("|one two one");
    EXPECT_EQ(box.Find(u"TWO"), 4);
    EXPECT_EQ(Dump(box), "one ^two| one");
}

TEST(Find, WithTheTextAloneSearchesFromTheSelectionsStart)
{
    SampleBox box("one ^one| one");
    EXPECT_EQ(box.Find(u"one"), 4);
    box.SetSelStart(5);
    EXPECT_EQ(box.Find(u"one"), 8);
    EXPECT_EQ(Dump(box), "one one ^one|");
}

TEST(Find, WhatIsNotFoundLeavesTheSelection)
{
    SampleBox box("one ^two| one");
    EXPECT_EQ(box.Find(u"three"), -1);
    EXPECT_EQ(box.Find(u""), -1);
    EXPECT_EQ(box.Find(u"", 0), -1);
    EXPECT_EQ(box.Find(u"one", 1, 10), -1);
    EXPECT_EQ(box.Find(u"one", 900), -1);
    EXPECT_EQ(box.Find(u"one", 5, 2), -1);
    EXPECT_EQ(Dump(box), "one ^two| one");
    TextBox empty;
    EXPECT_EQ(empty.Find(u"a"), -1);
    EXPECT_EQ(empty.Find(u"", 0), -1);
}

TEST(Find, ANegativeStartFindsNothingAndLeavesTheSelection)
{
    SampleBox box("12345^12345|");
    EXPECT_EQ(box.Find(u"123", -1), -1);
    EXPECT_EQ(Dump(box), "12345^12345|");
}

TEST(Find, AMatchThatEndsAtTheEndOfTheRangeCounts)
{
    SampleBox box("ab ab|");
    EXPECT_EQ(box.Find(u"ab", 1, 5), 3);
    EXPECT_EQ(box.Find(u"ab", 1, 4), -1);
    EXPECT_EQ(box.Find(u"ab", 3), 3);
    EXPECT_EQ(box.Find(u"ab", 3, -1), 3);
    EXPECT_EQ(box.Find(u"ab", 0, 1000), 0);
}

TEST(Find, AnEndOfZeroIsAnEnd)
{
    SampleBox box("ab|");
    EXPECT_EQ(box.Find(u"ab", 0, 0), -1);
}

TEST(Find, OptionsAreAskedForByTheirBits)
{
    SampleBox box("|winE Wine win");
    EXPECT_EQ(box.Find(u"wine", 0, -1, 0), 0);
    EXPECT_EQ(box.Find(u"Wine", 0, -1, kFindMatchCase), 5);
    EXPECT_EQ(box.Find(u"win", 0, -1, kFindWholeWord), 10);
    EXPECT_EQ(box.Find(u"WIN", 0, -1, kFindWholeWord | kFindMatchCase), -1);
}

TEST(Find, TheBitForNoHighlightSelectsToo)
{
    SampleBox box("|one two");
    EXPECT_EQ(box.Find(u"two", 0, -1, kFindNoHighlight), 4);
    EXPECT_EQ(Dump(box), "one ^two|");
}

TEST(Find, OtherBitsAreIgnored)
{
    SampleBox box("|wine win");
    EXPECT_EQ(box.Find(u"WIN", 0, -1, ~(kFindWholeWord | kFindMatchCase)), 0);
    EXPECT_EQ(box.Find(u"WIN", 0, -1, 1 | 16 | kFindWholeWord), 5);
}

TEST(Find, GoesOverFormatsHiddenTextCellsAndLineEnds)
{
    SampleBox box("|a<b>{{</b>n<i>a}</i>}<h>x</h>\nb<cell/>c<cell/><row/>");
    EXPECT_EQ(box.Find(u"{{na}}"), 1);
    EXPECT_EQ(Dump(box), "a^<b>{{</b>n<i>a}</i>}|<h>x</h>\nb<cell/>c<cell/><row/>");
    EXPECT_EQ(box.Find(u"x\r\nb\tc"), 7);
    EXPECT_EQ(box.SelText(), u"x\r\nb\tc");
}

TEST(Span, ExtendsOverTheCharactersOfTheSet)
{
    SampleBox box("a^b|cdab");
    box.Span(u"abc");
    EXPECT_EQ(Dump(box), "a^bc|dab");
    box.Span(u"a", SpanDirection::Forward);
    EXPECT_EQ(Dump(box), "a^bc|dab");
    box.Span(u"xa", SpanDirection::Backward);
    EXPECT_EQ(Dump(box), "^abc|dab");
}

TEST(Span, OfANegatedSetStopsAtTheFirstOfThem)
{
    SampleBox box("one t|wo three");
    box.Span(u" ", SpanDirection::Forward, CharacterSet::Negated);
    EXPECT_EQ(Dump(box), "one t^wo| three");
    box.Span(u" ", SpanDirection::Backward, CharacterSet::Negated);
    EXPECT_EQ(Dump(box), "one ^two| three");
}

TEST(Span, GoesToTheEndsOfTheText)
{
    SampleBox box("ab|\ncd");
    box.Span(u"x", SpanDirection::Forward, CharacterSet::Negated);
    EXPECT_EQ(Dump(box), "ab^\ncd|");
    box.Span(u"x", SpanDirection::Backward, CharacterSet::Negated);
    EXPECT_EQ(Dump(box), "^ab\ncd|");
}

TEST(Span, OfNoCharactersChangesNothing)
{
    SampleBox box("a^b|c");
    box.Span(u"");
    EXPECT_EQ(Dump(box), "a^b|c");
}

TEST(UpTo, MovesTheCaretToTheFirstOfTheSet)
{
    SampleBox box("|one, two. three");
    box.UpTo(u".,");
    EXPECT_EQ(Dump(box), "one|, two. three");
    box.UpTo(u".,");
    EXPECT_EQ(Dump(box), "one|, two. three");
    box.UpTo(u".");
    EXPECT_EQ(Dump(box), "one, two|. three");
    box.UpTo(u",", SpanDirection::Backward);
    EXPECT_EQ(Dump(box), "one,| two. three");
    box.UpTo(u"one,", SpanDirection::Forward, CharacterSet::Negated);
    EXPECT_EQ(Dump(box), "one,| two. three");
    box.UpTo(u" ", SpanDirection::Forward, CharacterSet::Negated);
    EXPECT_EQ(Dump(box), "one, |two. three");
}

TEST(UpTo, LeavesTheCaretWhenThereIsNone)
{
    SampleBox box("one| two");
    box.UpTo(u"xyz");
    EXPECT_EQ(Dump(box), "one| two");
    box.UpTo(u"xyz", SpanDirection::Backward);
    EXPECT_EQ(Dump(box), "one| two");
    box.UpTo(u"");
    EXPECT_EQ(Dump(box), "one| two");
}

}  // namespace
}  // namespace quillmarker
