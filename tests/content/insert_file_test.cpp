#include "content/report_sample.h"
#include "engine/box/file_store_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmarker
{
namespace
{

using InsertFileRTF = FileStore;

TEST_F(InsertFileRTF, GoesInLikeTheStringItHolds)
{
    Report report;
    Fill(report.Box(), u"a^b|c [M]");
    EXPECT_EQ(report.InsertFileRTF(Made("a.rtf", "{\\rtf1 1{\\b 2}}"), u""), 3);
    EXPECT_EQ(report.InsertFileRTF(Made("b.rtf", "{\\rtf1 {\\b 3}}"), u"[m]"), 6);
    EXPECT_EQ(Shown(report), "a1*2c *3|");
    EXPECT_EQ(report.InsertFileRTF(In("a.rtf"), u"[m]"), -1);
    EXPECT_EQ(Shown(report), "a1*2c *3|");
}

TEST_F(InsertFileRTF, ItsBytesAreInTheSystemsCodePage)
{
    Report report;
    report.InsertFileRTF(Made("a.rtf", "{\\rtf1 \xE9\x80}"), u"");
    EXPECT_EQ(report.Box().Text(), u"\u00E9\u20AC");
}

TEST_F(InsertFileRTF, AnEmptyFileIsAnEmptyPart)
{
    Report report;
    Fill(report.Box(), u"a^b|c");
    EXPECT_EQ(report.InsertFileRTF(Made("empty.rtf", ""), u""), 1);
    EXPECT_EQ(Shown(report), "a|c");
}

TEST_F(InsertFileRTF, WhatCannotBeReadGivesItsNumberNegatedAndChangesNothing)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    Fill(report.Box(), u"a^b|c");
    report.SetChanged(false);
    report.DropUndoSnapshot();
    EXPECT_EQ(report.InsertFileRTF(In("none.rtf"), u""), -53);
    EXPECT_EQ(report.InsertFileRTF(In("none/none.rtf"), u""), -76);
    EXPECT_EQ(report.InsertFileRTF(In(""), u""), -75);  // a folder
    EXPECT_EQ(report.InsertFileRTF("", u""), -52);
    EXPECT_EQ(report.InsertFileRTF(std::string(300, 'x'), u""), -52);
    EXPECT_EQ(Shown(report), "a^b|c");
    EXPECT_FALSE(report.Changed());
    EXPECT_EQ(report.UndoSelStart(), -1);
    EXPECT_THAT(hooks.Taken(), testing::IsEmpty());
}

TEST_F(InsertFileRTF, AFileThatMayNotBeReadIsADeniedPermission)
{
    const std::filesystem::path path = Made("a.rtf", "{\\rtf1 a}");
    std::filesystem::permissions(path, std::filesystem::perms::none);
    const FileError error = InOwnProcess([&] {
        BecomeNobody();
        Report report;
        return static_cast<FileError>(-report.InsertFileRTF(path, u""));
    });
    EXPECT_EQ(error, FileError::PermissionDenied);
}

TEST_F(InsertFileRTF, PutsTheDefaultCharsetBackAndTakesASnapshot)
{
    Report report;
    report.SetDefaultCharset(238);
    Fill(report.Box(), u"a^b|c");
    report.InsertFileRTF(Made("a.rtf", "{\\rtf1 x}"), u"");
    EXPECT_EQ(report.Box().Font().charset, 238);
    EXPECT_EQ(report.UndoSelStart(), 1);
    EXPECT_EQ(report.UndoSelLength(), 1);
}

}  // namespace
}  // namespace quillmarker
