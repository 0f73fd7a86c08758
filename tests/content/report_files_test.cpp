#include "content/report_sample.h"
#include "engine/box/file_store_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>

namespace quillmarker
{
namespace
{

using testing::ElementsAre;
using ReportFiles = FileStore;

TEST_F(ReportFiles, OpeningReplacesTheDocumentAndLeavesItUnchanged)
{
    Report report;
    RecordedHooks hooks;
    Fill(report.Box(), u"ab^cd|");
    report.SetHooks(&hooks);
    std::vector<bool> seen;
    report.Change = [&] { seen.push_back(report.Changed()); };
    report.SetChanged(false);
    EXPECT_EQ(report.OpenFileRTF(Made("a.rtf", "{\\rtf1 n{\\b e}w\\par\\qc x\\par}")), 0);
    EXPECT_EQ(Shown(report), "|n*ew\r\nx");
    EXPECT_FALSE(report.Changed());
    EXPECT_THAT(seen, ElementsAre(false));  // the change itself is raised
    EXPECT_THAT(hooks.Taken(), ElementsAre("focus", "refresh"));
}

TEST_F(ReportFiles, OpeningTextTakesTheBoxesFormat)
{
    Report report;
    report.Box().SetTextRTF(u"{\\rtf1\\qc\\b\\fs60 a}");
    EXPECT_EQ(report.OpenFileText(Made("a.txt", "{\\rtf1 x}\n\xC3\xA9")), 0);
    EXPECT_EQ(Shown(report), "|{\\rtf1 x}\r\n\xC3\xA9");
    EXPECT_EQ(FormatAt(report.Box(), 0).size, Points(10));
    EXPECT_EQ(report.Box().SelAlignment(), kAlignLeft);
    EXPECT_FALSE(report.Changed());
    EXPECT_EQ(report.UndoSelStart(), -1);
}

TEST_F(ReportFiles, OpeningAnEmptyFileEmptiesTheDocument)
{
    Report report;
    const std::filesystem::path empty = Made("empty", "");
    Fill(report.Box(), u"ab|");
    EXPECT_EQ(report.OpenFileRTF(empty), 0);
    EXPECT_EQ(Shown(report), "|");
    Fill(report.Box(), u"ab|");
    EXPECT_EQ(report.OpenFileText(empty), 0);
    EXPECT_EQ(Shown(report), "|");
    EXPECT_FALSE(report.Changed());
}

TEST_F(ReportFiles, PlainTextIsOpenedAsRtfToo)
{
    Report report;
    EXPECT_EQ(report.OpenFileRTF(Made("a.txt", "plain \\b {text}\r\ntwo")), 0);
    EXPECT_EQ(Shown(report), "|plain \\b {text}\r\ntwo");
}

TEST_F(ReportFiles, WhatCannotBeOpenedGivesAPositiveNumberAndChangesNothing)
{
    Report report;
    Fill(report.Box(), u"a^b|c");
    report.SetChanged(true);
    int changes = 0;
    report.Change = [&] { ++changes; };
    EXPECT_EQ(report.OpenFileRTF(In("none.rtf")), 53);
    EXPECT_EQ(report.OpenFileText(In("none.txt")), 53);
    EXPECT_EQ(report.OpenFileRTF(In("none/none.rtf")), 76);
    EXPECT_EQ(report.OpenFileRTF(In("")), 75);
    EXPECT_EQ(report.OpenFileRTF(""), 52);
    EXPECT_EQ(Shown(report), "a^b|c");
    EXPECT_TRUE(report.Changed());
    EXPECT_TRUE(report.Box().CanUndo());
    EXPECT_EQ(changes, 0);
}

TEST_F(ReportFiles, AFailedOpeningTouchesNeitherFocusNorWindow)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    report.OpenFileRTF(In("none.rtf"));
    report.OpenFileText(In("none.txt"));
    EXPECT_THAT(hooks.Taken(), testing::IsEmpty());
}

TEST_F(ReportFiles, WhatIsSavedAndOpenedAgainIsTheSameDocument)
{
    Report report;
    report.Box().SetTextRTF(
        u"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1\\froman Times New Roman;}}"
        u"{\\colortbl;\\red255\\green0\\blue0;}\\qc\\f0\\fs20 a{\\b b}{\\v /h/1/}\\cf1\\f1 \\'e9"
        u"\\u8364?\\par\\ql\\li720\\fi-360 {\\fs28\\up8 2}\\{x\\}\\par\\pard\\trowd\\cellx900\\cellx1800"
        u"\\intbl p\\cell q\\cell\\row\\pard end\\par}");
    const Document before = report.Box().Value();
    report.Box().SetSelStart(2);
    report.Box().SetSelLength(3);
    report.SetChanged(true);
    EXPECT_EQ(report.SaveFileRTF(In("a.rtf")), 0);
    EXPECT_FALSE(report.Changed());
    EXPECT_EQ(report.Box().SelStart(), 2);
    EXPECT_EQ(report.Box().SelLength(), 3);
    EXPECT_TRUE(report.Box().Value().IsSameAs(before));
    report.Clear();
    EXPECT_EQ(report.OpenFileRTF(In("a.rtf")), 0);
    EXPECT_EQ(Dump(report.Box().Value()), Dump(before));
}

TEST_F(ReportFiles, AFileWithoutAFinalBreakKeepsItsLastParagraphsFormat)
{
    Report report;
    EXPECT_EQ(report.OpenFileRTF(Made("a.rtf", "{\\rtf1\\qr a\\par\\qc b}")), 0);
    EXPECT_EQ(report.Box().SelAlignment(), kAlignRight);
    report.CursorEnd();
    EXPECT_EQ(report.Box().SelAlignment(), kAlignCentre);
}

TEST_F(ReportFiles, SavingFocusesFirstWhateverComesOfIt)
{
    Report report;
    RecordedHooks hooks;
    report.SetHooks(&hooks);
    report.SaveFileRTF(In("a.rtf"));
    EXPECT_THAT(hooks.Taken(), ElementsAre("focus"));
    report.SaveFileRTF(In("none/a.rtf"));
    EXPECT_THAT(hooks.Taken(), ElementsAre("focus"));
}

TEST_F(ReportFiles, SavingWhereThereIsNoFolderLeavesChanged)
{
    Report report;
    report.SetChanged(true);
    EXPECT_EQ(report.SaveFileRTF(In("none/a.rtf")), 76);
    EXPECT_TRUE(report.Changed());
    EXPECT_EQ(report.SaveFileRTF(In("")), 75);
    EXPECT_EQ(report.SaveFileRTF(""), 52);
    EXPECT_TRUE(report.Changed());
    report.SetChanged(false);
    EXPECT_EQ(report.SaveFileRTF(In("none/a.rtf")), 76);
    EXPECT_FALSE(report.Changed());
}

TEST_F(ReportFiles, SavingOverAFileKeepsItsPermissions)
{
    Report report;
    Fill(report.Box(), u"new|");
    const std::filesystem::path path = Made("a.rtf", "old");
    std::filesystem::permissions(path, std::filesystem::perms(0640));
    EXPECT_EQ(report.SaveFileRTF(path), 0);
    EXPECT_EQ(ModeOf(path), 0640U);
    EXPECT_THAT(Bytes(path), testing::HasSubstr("new"));
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(ReportFiles, AFailedSaveLeavesTheOldFileWhole)
{
    const std::filesystem::path path = Made("a.rtf", "{\\rtf1 old}");
    const FileError error = InOwnProcess([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{256, 256};
        ::setrlimit(RLIMIT_FSIZE, &small);
        Report report;
        report.Box().SetText(std::u16string(5000, u'x'));
        report.SetChanged(true);
        const int result = report.SaveFileRTF(path);
        return report.Changed() ? static_cast<FileError>(result) : FileError::None;
    });
    EXPECT_EQ(error, FileError::DiskFull);
    EXPECT_EQ(Bytes(path), "{\\rtf1 old}");
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(ReportFiles, OpeningWhileRedrawIsFalseLeavesNothingToUndo)
{
    Report report;
    Fill(report.Box(), u"ab|");
    report.SetRedraw(false);
    report.InsertStringText(u"1", u"");
    EXPECT_EQ(report.OpenFileRTF(Made("a.rtf", "{\\rtf1 new}")), 0);
    report.SetRedraw(true);
    EXPECT_FALSE(report.Box().CanUndo());
    report.Box().SetSelText(u"2");
    report.Undo();
    EXPECT_EQ(Shown(report), "|new");
}

}  // namespace
}  // namespace quillmarker
