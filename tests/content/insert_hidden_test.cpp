#include "content/report_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

const Colour kPaper = Colour::Of(255, 250, 240);

TEST(InsertStringHidden, HidesExactlyItsTextAndPaintsItInTheBackgroundColour)
{
    Report report;
    report.Box().SetBackColor(kPaper);
    Fill(report.Box(), u"ab|cd");
    EXPECT_EQ(report.InsertStringHidden(u"123", u""), 5);
    EXPECT_EQ(Shown(report), "ab~1~2~3|cd");
    for (int at = 0; at < 7; ++at)
        EXPECT_EQ(FormatAt(report.Box(), at).colour, at >= 2 && at < 5 ? kPaper : Colour()) << at;
}

TEST(InsertStringHidden, InsertsPlainTextThenRewritesTheDocumentThenColoursIt)
{
    Report report;
    report.Box().SetBackColor(kPaper);
    std::vector<std::string> seen;
    report.Change = [&] {
        seen.push_back(Shown(report) + (FormatAt(report.Box(), 0).colour == kPaper ? " paper" : ""));
    };
    report.InsertStringHidden(u"123", u"!");
    EXPECT_THAT(seen, testing::ElementsAre("123|", "|~1~2~3", "^~1~2~3| paper", "~1~2~3!| paper"));
}

TEST(InsertStringHidden, TheLineEndBehindItIsOrdinaryText)
{
    Report report;
    report.Box().SetBackColor(kPaper);
    Fill(report.Box(), u"ab|cd");
    EXPECT_EQ(report.InsertStringHidden(u"/h/7/", u" x"), 9);
    EXPECT_EQ(Shown(report), "ab~/~h~/~7~/ x|cd");
    EXPECT_EQ(FormatAt(report.Box(), 7).colour, Colour());
    EXPECT_EQ(FormatAt(report.Box(), 8).colour, Colour());
}

TEST(InsertStringHidden, ALineEndInTheLastArgumentIsCountedAsItWasGiven)
{
    Report report;
    Fill(report.Box(), u"ab|cd");
    EXPECT_EQ(report.InsertStringHidden(u"/h/7/", u"\r\n"), 9);
    EXPECT_EQ(Shown(report), "ab~/~h~/~7~/\r\n|cd");
    Fill(report.Box(), u"ab|cd");
    EXPECT_EQ(report.InsertStringHidden(u"/h/7/", u"\r"), 7);  // one unit given, two in the text: inside a break
    EXPECT_EQ(Shown(report), "ab~/~h~/~7~/|\r\ncd");
}

TEST(InsertStringHidden, WhatIsTypedBehindItIsSeen)
{
    Report report;
    report.Box().SetBackColor(kPaper);
    report.InsertStringHidden(u"/h/7/", u"");
    report.InsertStringText(u"42", u"");
    EXPECT_EQ(Shown(report), "~/~h~/~7~/42|");
    EXPECT_EQ(FormatAt(report.Box(), 5).colour, Colour());
}

TEST(InsertStringHidden, TheColourBehindItIsTheOneBefore)
{
    Report report;
    report.Box().SetBackColor(kPaper);
    report.Box().SetTextRTF(u"{\\rtf1{\\colortbl;\\red200\\green0\\blue0;}\\cf1 ab}");
    report.Box().SetSelStart(1);
    EXPECT_EQ(report.InsertStringHidden(u"/h/7/", u"!"), 7);
    EXPECT_EQ(FormatAt(report.Box(), 1).colour, kPaper);
    EXPECT_EQ(FormatAt(report.Box(), 6).colour, Colour::Of(200, 0, 0));
    EXPECT_EQ(FormatAt(report.Box(), 7).colour, Colour::Of(200, 0, 0));
}

TEST(InsertStringHidden, ATextThatBeginsWithALetterRunsIntoTheSwitchByContract)
{
    Report report;
    Fill(report.Box(), u"12|");
    EXPECT_EQ(report.InsertStringHidden(u"abc", u"!"), 3);
    EXPECT_EQ(Shown(report), "12!|");
    Fill(report.Box(), u"12|");
    report.InsertStringHidden(u"abc 9", u"");
    EXPECT_EQ(report.Box().Text(), u"129");  // \vabc is no word that is known, the blank ends it
}

TEST(InsertStringHidden, ABlankThatFollowsItEndsTheSwitchByContract)
{
    Report report;
    Fill(report.Box(), u"ab| cd");
    EXPECT_EQ(report.InsertStringHidden(u"/1/", u""), 5);
    EXPECT_EQ(Shown(report), "ab~/~1~/|cd");
}

TEST(InsertStringHidden, ATextThatTheSourceEscapesStaysVisible)
{
    for (const std::u16string_view text : {u"{1}", u"1\\2", u"1\t2", u"1\u20ac"})
    {
        Report report;
        report.Box().SetBackColor(kPaper);
        Fill(report.Box(), u"a|b");
        EXPECT_EQ(report.InsertStringHidden(text, u""), 1 + static_cast<int>(text.size()));
        EXPECT_EQ(report.Box().Text(), u"a" + std::u16string(text) + u"b");
        EXPECT_FALSE(FormatAt(report.Box(), 1).hidden) << ToUtf8(text);
        EXPECT_EQ(FormatAt(report.Box(), 1).colour, kPaper) << ToUtf8(text);
    }
}

TEST(InsertStringHidden, TheLastPlaceInTheSourceIsHiddenEvenWhenItIsAnother)
{
    Report report;
    report.Box().SetBackColor(kPaper);
    Fill(report.Box(), u"|x 77.");
    EXPECT_EQ(report.InsertStringHidden(u"77", u""), 2);
    EXPECT_EQ(Shown(report), "77|x ~7~7.");
    EXPECT_EQ(FormatAt(report.Box(), 0).colour, kPaper);  // the colour goes where the text went
    EXPECT_EQ(FormatAt(report.Box(), 4).colour, Colour());
}

TEST(InsertStringHidden, TheLastPlaceIsFoundIgnoringCaseAndTakesTheTextAsGiven)
{
    Report report;
    Fill(report.Box(), u"| /H/1/.");
    report.InsertStringHidden(u"/h/1/", u"");
    EXPECT_EQ(Shown(report), "/h/1/| ~/~h~/~1~/.");
}

TEST(InsertStringHidden, ReplacesTheSelection)
{
    Report report;
    Fill(report.Box(), u"a^bcdef|g");
    EXPECT_EQ(report.InsertStringHidden(u"/1/", u"."), 5);
    EXPECT_EQ(Shown(report), "a~/~1~/.|g");
}

TEST(InsertStringHidden, AnEmptyTextPutsOnlyWhatStandsBehind)
{
    Report report;
    Fill(report.Box(), u"a|b");
    EXPECT_EQ(report.InsertStringHidden(u"", u"-"), 2);
    EXPECT_EQ(Shown(report), "a-|b");
    EXPECT_EQ(FormatAt(report.Box(), 1).colour, Colour());
    EXPECT_EQ(report.InsertStringHidden(u"", u""), 2);
    EXPECT_EQ(Shown(report), "a-|b");
}

TEST(InsertStringHidden, TakesNoSnapshot)
{
    Report report;
    Fill(report.Box(), u"a|b");
    report.DropUndoSnapshot();
    report.InsertStringHidden(u"/1/", u"");
    EXPECT_EQ(report.UndoSelStart(), -1);
}

TEST(InsertStringHidden, FocusesFirstAndRefreshesLast)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    report.InsertStringHidden(u"/1/", u"\r\n");
    EXPECT_THAT(hooks.Taken(), testing::ElementsAre("focus", "refresh"));
}

TEST(InsertStringHidden, OneAfterTheOtherWorksLikeHostsFillTables)
{
    Report report;
    for (const std::u16string_view key : {u"/h/1/", u"/h/2/", u"/h/10/"})
    {
        report.InsertStringHidden(key, u"");
        report.InsertStringText(u"v\r\n", u"");
    }
    EXPECT_EQ(Shown(report), "~/~h~/~1~/v\r\n~/~h~/~2~/v\r\n~/~h~/~1~0~/v\r\n|");
}

}  // namespace
}  // namespace quillmarker
