#include "content/report_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;

TEST(InsertStringText, GoesInAtTheCaretAndReturnsThePlaceBehindIt)
{
    Report report;
    Fill(report.Box(), u"ab|cd");
    EXPECT_EQ(report.InsertStringText(u"123", u""), 5);
    EXPECT_EQ(Shown(report), "ab123|cd");
}

TEST(InsertStringText, ReplacesTheSelection)
{
    Report report;
    Fill(report.Box(), u"a^bc|d");
    EXPECT_EQ(report.InsertStringText(u"X", u""), 2);
    EXPECT_EQ(Shown(report), "aX|d");
    EXPECT_EQ(report.InsertStringText(u"", u""), 2);
    EXPECT_EQ(Shown(report), "aX|d");
}

TEST(InsertStringText, TakesTheMarkersPlaceIgnoringCase)
{
    Report report;
    Fill(report.Box(), u"|one [m] two");
    EXPECT_EQ(report.InsertStringText(u"abc", u"[M]"), 7);
    EXPECT_EQ(Shown(report), "one abc| two");
}

TEST(InsertStringText, AMarkerThatIsNowhereLeavesAllAsItWas)
{
    Report report;
    Fill(report.Box(), u"a^bc|d");
    report.SetChanged(false);
    report.DropUndoSnapshot();
    EXPECT_EQ(report.InsertStringText(u"abc", u"[M]"), -1);
    EXPECT_EQ(report.InsertStringRTF(u"{\\rtf1 abc}", u"[M]"), -1);
    EXPECT_EQ(Shown(report), "a^bc|d");
    EXPECT_FALSE(report.Changed());
    EXPECT_EQ(report.UndoSelStart(), -1);  // no snapshot was taken
}

TEST(InsertStringText, AMarkerIsLookedForFromTheCaretOn)
{
    Report report;
    Fill(report.Box(), u"[m] |x [m] y [m]");
    EXPECT_EQ(report.InsertStringText(u"1", u"[m]"), 7);
    EXPECT_EQ(Shown(report), "[m] x 1| y [m]");
    EXPECT_EQ(report.InsertStringText(u"2", u"[m]"), 11);
    EXPECT_EQ(Shown(report), "[m] x 1 y 2|");
    EXPECT_EQ(report.InsertStringText(u"3", u"[m]"), -1);
    EXPECT_EQ(Shown(report), "[m] x 1 y 2|");
}

TEST(InsertStringText, AMarkerAtTheCaretAndOneThatIsSelectedAreFound)
{
    Report report;
    Fill(report.Box(), u"a |[m]");
    EXPECT_EQ(report.InsertStringText(u"1", u"[m]"), 3);
    Fill(report.Box(), u"a ^[m]|[m]");
    EXPECT_EQ(report.InsertStringText(u"1", u"[m]"), 3);
    EXPECT_EQ(Shown(report), "a 1|[m]");
    Fill(report.Box(), u"a [|m]");
    EXPECT_EQ(report.InsertStringText(u"1", u"[m]"), -1);
}

TEST(InsertStringText, TakesTheFormatInForce)
{
    Report report;
    report.Box().SetTextRTF(u"{\\rtf1 a{\\b b}c [m] {\\b [n]}}");
    report.Box().SetSelStart(2);
    report.InsertStringText(u"1", u"");
    EXPECT_EQ(Shown(report), "a*b*1|c [m] *[*n*]");
    report.InsertStringText(u"2", u"[m]");
    EXPECT_EQ(Shown(report), "a*b*1c 2| *[*n*]");
    report.InsertStringText(u"3", u"[n]");
    EXPECT_EQ(Shown(report), "a*b*1c 2 *3|");
}

TEST(InsertStringText, RtfIsTextLikeAnyOther)
{
    Report report;
    report.InsertStringText(u"{\\rtf1 \\b a}", u"");
    EXPECT_EQ(Shown(report), "{\\rtf1 \\b a}|");
}

TEST(InsertStringText, LineEndsCountTwo)
{
    Report report;
    Fill(report.Box(), u"a|b");
    EXPECT_EQ(report.InsertStringText(u"1\n2\r3\r\n4", u""), 11);
    EXPECT_EQ(Shown(report), "a1\r\n2\r\n3\r\n4|b");
}

TEST(InsertStringRTF, GoesInAtTheCaretInsideTheParagraph)
{
    Report report;
    Fill(report.Box(), u"ab|cd");
    EXPECT_EQ(report.InsertStringRTF(u"{\\rtf1 1{\\b 2}3}", u""), 5);
    EXPECT_EQ(Shown(report), "ab1*23|cd");
    EXPECT_EQ(report.Box().Value().ParagraphCount(), 1);
}

TEST(InsertStringRTF, TakesTheSelectionsOrTheMarkersPlace)
{
    Report report;
    Fill(report.Box(), u"a^bc|d [M]!");
    EXPECT_EQ(report.InsertStringRTF(u"{\\rtf1 {\\b X}}", u""), 2);
    EXPECT_EQ(report.InsertStringRTF(u"{\\rtf1 {\\b Y}}", u"[m]"), 5);
    EXPECT_EQ(Shown(report), "a*Xd *Y|!");
}

TEST(InsertStringRTF, WhatFollowsKeepsItsFormat)
{
    Report report;
    report.Box().SetTextRTF(u"{\\rtf1\\qc a{\\b [m]b}\\i c\\par\\ql d}");
    EXPECT_EQ(report.InsertStringRTF(u"{\\rtf1\\qr\\fs40 X}", u"[m]"), 2);
    EXPECT_EQ(Shown(report), "aX|*bc\r\nd");
    EXPECT_TRUE(FormatAt(report.Box(), 3).italic);
    EXPECT_EQ(FormatAt(report.Box(), 1).size, Points(20));
    EXPECT_EQ(report.Box().SelAlignment(), kAlignCentre);  // a part without a break brings no paragraph format
}

TEST(InsertStringRTF, EachBreakInThePartBringsItsParagraphsFormat)
{
    Report report;
    report.Box().SetTextRTF(u"{\\rtf1\\qc ab\\par}");
    report.Box().SetSelStart(1);
    EXPECT_EQ(report.InsertStringRTF(u"{\\rtf1\\qr X\\par\\ql Y}", u""), 5);
    EXPECT_EQ(Shown(report), "aX\r\nY|b");
    EXPECT_EQ(report.Box().SelAlignment(), kAlignCentre);
    report.Box().SetSelStart(0);
    EXPECT_EQ(report.Box().SelAlignment(), kAlignRight);
}

TEST(InsertStringRTF, APartsLastBreakIsKept)
{
    Report report;
    Fill(report.Box(), u"a|b");
    EXPECT_EQ(report.InsertStringRTF(u"{\\rtf1 X\\par}", u""), 4);
    EXPECT_EQ(Shown(report), "aX\r\n|b");
}

TEST(InsertStringRTF, AnEmptyPartDeletesTheSelection)
{
    Report report;
    Fill(report.Box(), u"a^bc|d");
    EXPECT_EQ(report.InsertStringRTF(u"", u""), 1);
    EXPECT_EQ(Shown(report), "a|d");
}

TEST(InsertStringRTF, PutsTheDefaultCharsetBack)
{
    Report report;
    report.SetDefaultCharset(238);
    BoxFont font = report.Box().Font();
    font.charset = 161;
    report.Box().SetFont(font);
    report.InsertStringText(u"a", u"");
    EXPECT_EQ(report.Box().Font().charset, 161);
    EXPECT_EQ(report.InsertStringRTF(u"{\\rtf1 a}", u"[M]"), -1);
    EXPECT_EQ(report.Box().Font().charset, 161);
    report.InsertStringRTF(u"{\\rtf1 a}", u"");
    EXPECT_EQ(report.Box().Font().charset, 238);
    font.charset = 238;
    EXPECT_EQ(report.Box().Font(), font);  // nothing but the charset
}

TEST(InsertStringRTF, FocusesFirstAndRefreshesBehindTheInsertion)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    std::vector<std::string> texts;
    hooks.also = [&](std::string_view) { texts.push_back(ToUtf8(report.Box().Text())); };
    report.InsertStringRTF(u"{\\rtf1 a}", u"");
    EXPECT_THAT(hooks.Taken(), ElementsAre("focus", "refresh"));
    EXPECT_THAT(texts, ElementsAre("", "a"));
    report.InsertStringText(u"b", u"");
    EXPECT_THAT(hooks.Taken(), ElementsAre("focus", "refresh"));
    report.InsertStringText(u"b", u"[M]");
    EXPECT_THAT(hooks.Taken(), ElementsAre("focus"));
}

TEST(Insertions, TakeASnapshotOfWhatTheyReplace)
{
    Report report;
    Fill(report.Box(), u"a ^b| [m]");
    report.InsertStringText(u"X", u"");
    EXPECT_EQ(report.UndoSelStart(), 2);
    EXPECT_EQ(report.UndoSelLength(), 1);
    EXPECT_THAT(ToUtf8(report.UndoRTF()), testing::HasSubstr("a b [m]"));
    report.InsertStringRTF(u"{\\rtf1 Y}", u"[m]");
    EXPECT_EQ(report.UndoSelStart(), 4);  // the marker was selected by then
    EXPECT_EQ(report.UndoSelLength(), 3);
    EXPECT_THAT(ToUtf8(report.UndoRTF()), testing::HasSubstr("a X [m]"));
}

TEST(WholeDocument, IsReadWithTheFocusOnTheText)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    report.Box().SetTextRTF(u"{\\rtf1 a{\\b b}\\par c}");
    EXPECT_EQ(report.TextString(), u"ab\r\nc");
    EXPECT_THAT(hooks.Taken(), ElementsAre("focus"));
    EXPECT_EQ(report.RTFString(), report.Box().TextRTF());
    EXPECT_THAT(hooks.Taken(), ElementsAre("focus"));
}

}  // namespace
}  // namespace quillmarker
