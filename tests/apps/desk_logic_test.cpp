#include "document_session.h"
#include "file_messages.h"
#include "recent_files.h"
#include "text_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QFile>
#include <QTemporaryDir>

#include <set>

namespace quillmarker::desk
{
namespace
{

TEST(DeskSession, TitleIsTheFilesNameWithThePlaceOfTheMark)
{
    EXPECT_EQ(TitleOf({QStringLiteral("/tmp/a/letter.rtf"), FileKind::Rtf, {}}),
              QString("letter.rtf[*] \u2013 Report Desk"));
    EXPECT_EQ(TitleOf({}), QString("Untitled[*] \u2013 Report Desk"));
    EXPECT_EQ(TitleOf({{}, FileKind::Rtf, QStringLiteral("Sample report")}),
              QString("Sample report[*] \u2013 Report Desk"));
    EXPECT_EQ(TitleOf({QStringLiteral("/a[*]b"), FileKind::Text, {}}), QString("a[*][*]b[*] \u2013 Report Desk"));
}

TEST(DeskSession, ANameWithoutSuffixIsOfferedWithTheOneOfItsKind)
{
    EXPECT_EQ(SuggestedFileName({}), QString("Untitled.rtf"));
    EXPECT_EQ(SuggestedFileName({QStringLiteral("/a/notes"), FileKind::Text, {}}), QString("notes.txt"));
    EXPECT_EQ(SuggestedFileName({QStringLiteral("/a/notes.log"), FileKind::Text, {}}), QString("notes.log"));
}

TEST(DeskSession, SuffixThenBeginningSayWhatAFileIs)
{
    const QTemporaryDir folder;
    const auto written = [&](const char* name, const QByteArray& bytes) {
        QFile file(folder.filePath(QLatin1String(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    };
    EXPECT_EQ(KindOfFile(written("a.RTF", "plain")), FileKind::Rtf);
    EXPECT_EQ(KindOfFile(written("a.txt", "{\\rtf1 x}")), FileKind::Text);
    EXPECT_EQ(KindOfFile(written("report", "{\\rtf1 x}")), FileKind::Rtf);
    EXPECT_EQ(KindOfFile(written("readme", "x")), FileKind::Text);
    EXPECT_EQ(KindOfFile(folder.filePath(QStringLiteral("nothing"))), FileKind::Text);
}

TEST(DeskSession, OnlyTheWayFromRichToPlainTextLosesFormats)
{
    EXPECT_TRUE(LosesFormats({}, FileKind::Text));
    EXPECT_FALSE(LosesFormats({}, FileKind::Rtf));
    EXPECT_FALSE(LosesFormats({QStringLiteral("/a.txt"), FileKind::Text, {}}, FileKind::Text));
}

TEST(DeskMessages, EveryErrorNamesTheFileAndSaysWhatToDo)
{
    for (const FileTask task : {FileTask::Open, FileTask::Save})
    {
        std::set<QString> different;
        for (const int error : {7, 52, 53, 57, 61, 70, 75, 76, 99})
        {
            const FileMessage message =
                MessageFor(task, QStringLiteral("/a/100%1 b.rtf"), static_cast<FileError>(error));
            EXPECT_TRUE(message.what.contains(QStringLiteral("\u201c/a/100%1 b.rtf\u201d")))
                << message.what.toStdString();
            EXPECT_TRUE(message.advice.endsWith(QLatin1Char('.'))) << error;
            different.insert(message.what);
        }
        EXPECT_EQ(different.size(), 9U);
    }
}

TEST(DeskRecentFiles, NewestComesFirstOnceAndTheOldestFallOut)
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("s.ini")), QSettings::IniFormat);
    RecentFiles recent(settings);
    QStringList made;
    for (int i = 0; i < RecentFiles::kMost + 2; ++i)
    {
        QFile file(folder.filePath(QString::number(i)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        made.prepend(file.fileName());
        recent.Add(file.fileName());
    }
    EXPECT_EQ(recent.Paths(), made.mid(0, RecentFiles::kMost));
    recent.Add(made[3]);
    EXPECT_EQ(recent.Paths().size(), RecentFiles::kMost);
    EXPECT_EQ(recent.Paths().constFirst(), made[3]);
    ASSERT_TRUE(QFile::remove(made[3]));
    EXPECT_FALSE(recent.Paths().contains(made[3]));
    recent.Clear();
    EXPECT_TRUE(recent.Paths().isEmpty());
}

TEST(DeskRecentFiles, AnAmpersandOfANameIsNoMnemonic)
{
    EXPECT_EQ(RecentFileLabel(0, QStringLiteral("/b/A&B.rtf")), QString("&1  A&&B.rtf \u2013 /b"));
}

TEST(DeskTextFile, TellsWhyAPlaceIsNone)
{
    const QTemporaryDir folder;
    EXPECT_EQ(WriteTextFile(folder.filePath(QStringLiteral("no/a.txt")), {}), FileError::PathNotFound);
    EXPECT_EQ(WriteTextFile(folder.path(), {}), FileError::PathFileAccess);
    EXPECT_EQ(WriteTextFile(folder.path() + QLatin1Char('/'), {}), FileError::BadFileName);
}

}  // namespace
}  // namespace quillmarker::desk
