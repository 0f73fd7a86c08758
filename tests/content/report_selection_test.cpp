#include "content/report_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quillmarker
{
namespace
{

struct Selecting
{
    Report report;
    int start;
    int finish;

    Selecting(std::u16string_view sample, int from, int to) : start(from), finish(to)
    {
        Fill(report.Box(), sample);
        report.SelectText(start, finish);
    }
};

TEST(SelectText, SelectsFromTheOneToTheOther)
{
    const Selecting done(u"|0123456789", 2, 5);
    EXPECT_EQ(Shown(done.report), "01^234|56789");
    EXPECT_EQ(done.start, 2);
    EXPECT_EQ(done.finish, 5);
}

TEST(SelectText, MinusOneIsTheEnd)
{
    const Selecting done(u"|0123456789", 5, -1);
    EXPECT_EQ(Shown(done.report), "01234^56789|");
    EXPECT_EQ(done.finish, -1);
    EXPECT_EQ(Shown(Selecting(u"|0123456789", 0, -1).report), "^0123456789|");
}

TEST(SelectText, WhatLiesBeyondTheEndIsPutToItInTheCallersVariablesToo)
{
    const Selecting both(u"|0123456789", 999, 999);
    EXPECT_EQ(Shown(both.report), "0123456789|");
    EXPECT_EQ(both.start, 10);
    EXPECT_EQ(both.finish, 10);
    const Selecting finish(u"|0123456789", 7, 999);
    EXPECT_EQ(Shown(finish.report), "0123456^789|");
    EXPECT_EQ(finish.start, 7);
    EXPECT_EQ(finish.finish, 10);
    const Selecting open(u"|0123456789", 999, -1);
    EXPECT_EQ(Shown(open.report), "0123456789|");
    EXPECT_EQ(open.finish, -1);
}

TEST(SelectText, NothingIsDoneAboutNegativeNumbersAndTheBoxRefusesThem)
{
    const Selecting done(u"01|23456789", -4, -2);
    EXPECT_EQ(done.start, -4);
    EXPECT_EQ(done.finish, -2);
    EXPECT_EQ(Shown(done.report), "01^23|456789");  // the start is refused, the length is 2
    EXPECT_EQ(Shown(Selecting(u"01^234|56789", 4, 3).report), "0123|456789");
}

TEST(SelectText, ALengthThatIsNoNumberIsASkippedStep)
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    EXPECT_EQ(Shown(Selecting(u"01^23|456789", kLeast, 5).report), "01^23|456789");
    EXPECT_EQ(Shown(Selecting(u"01^23|456789", kLeast, -1).report), "01^23|456789");
    EXPECT_EQ(Shown(Selecting(u"01^23|456789", 4, kLeast).report), "0123|456789");
}

TEST(SelectText, OnAnEmptyDocumentIsTheCaret)
{
    const Selecting done(u"|", 5, 7);
    EXPECT_EQ(Shown(done.report), "|");
    EXPECT_EQ(done.start, 0);
    EXPECT_EQ(done.finish, 0);
}

TEST(Cursor, GoesToEitherEnd)
{
    Report report;
    Fill(report.Box(), u"ab^c\r\nd|ef");
    report.CursorStart();
    EXPECT_EQ(Shown(report), "|abc\r\ndef");
    report.Box().SetSelLength(2);
    report.CursorStart();
    EXPECT_EQ(Shown(report), "|abc\r\ndef");
    report.CursorEnd();
    EXPECT_EQ(Shown(report), "abc\r\ndef|");
}

TEST(Commands, GiveTheTextTheFocus)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    int start = 0;
    int finish = 0;
    report.CursorStart();
    report.CursorEnd();
    report.SelectText(start, finish);
    EXPECT_THAT(hooks.Taken(), testing::ElementsAre("focus", "focus", "focus"));
    report.Clear();
    EXPECT_THAT(hooks.Taken(), testing::ElementsAre("focus", "lock", "changed Redraw", "unlock", "changed Redraw"));
}

TEST(Clear, EmptiesTheDocumentAndSetsRedraw)
{
    Report report;
    Fill(report.Box(), u"a^b\r\n|c");
    report.SetChanged(false);
    report.Clear();
    EXPECT_EQ(Shown(report), "|");
    EXPECT_TRUE(report.Redraw());
    EXPECT_TRUE(report.Changed());
    EXPECT_EQ(report.UndoSelStart(), 1);
    EXPECT_EQ(report.UndoSelLength(), 3);
}

TEST(Clear, LeavesTheFormatOfTheBoxesFont)
{
    Report report;
    report.Box().SetTextRTF(u"{\\rtf1\\qc\\b\\fs60 a}");
    report.Clear();
    report.Box().Type(u"x");
    EXPECT_EQ(Shown(report), "x|");
    EXPECT_EQ(FormatAt(report.Box(), 0).size, Points(10));
    EXPECT_EQ(report.Box().SelAlignment(), kAlignLeft);
}

}  // namespace
}  // namespace quillmarker
