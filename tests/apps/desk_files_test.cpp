#include "desk_sample.h"

#include <QMenu>

#include <sys/types.h>
#include <unistd.h>

namespace quillmarker::desk
{
namespace
{

/// Root may write everywhere: while this lives, the process is nobody.
class AsNobody
{
public:
    AsNobody() : m_user(::geteuid())
    {
        constexpr uid_t kNobody = 65'534;
        if (m_user == 0)
        {
            EXPECT_EQ(::setresuid(kNobody, kNobody, m_user), 0);
        }
    }
    ~AsNobody() { EXPECT_EQ(::setresuid(m_user, m_user, m_user), 0); }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    uid_t m_user;
};

class DeskFiles : public DeskTest
{
protected:
    QStringList RecentLabels()
    {
        QMenu& menu = *Action("recentMenu").menu();
        Q_EMIT menu.aboutToShow();
        QStringList labels;
        for (const QAction* action : menu.actions())
            if (!action->isSeparator() && action->objectName() != QLatin1String("clearRecent"))
                labels.append(action->text().section(QLatin1Char(' '), 2, 2));
        return labels;
    }
};

TEST_F(DeskFiles, WhatIsTypedAndSavedIsThereWhenOpenedAgain)
{
    Press(Qt::Key_B, Qt::ControlModifier);
    Type("total");
    PlanFileName(InFolder("a"));
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(Window().isWindowModified());
    EXPECT_EQ(Window().windowTitle(), QString("a.rtf[*] \u2013 Report Desk"));
    Type("more");
    EXPECT_TRUE(Window().isWindowModified());
    PlanButton(QMessageBox::Discard);
    PlanFileName(InFolder("a.rtf"));
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(Text(), QString("total"));
    EXPECT_FALSE(Window().isWindowModified());
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(View().SelBold(), QVariant(true));
}

TEST_F(DeskFiles, SaveWritesWithoutAskingWhereTheFileIsKnown)
{
    const QString path = Written("a.txt", "one\ntwo\n");
    ASSERT_TRUE(Window().OpenPath(path));
    Type("zero ");
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Read(path), "zero one\ntwo\n");
    EXPECT_FALSE(Window().isWindowModified());
}

TEST_F(DeskFiles, PlainTextInPlaceOfRichTextIsAskedFor)
{
    Type("words");
    PlanFileName(InFolder("a.txt"));
    PlanButton(QMessageBox::Cancel);
    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(QFile::exists(InFolder("a.txt")));
    EXPECT_TRUE(Window().isWindowModified());
    PlanFileName(InFolder("a.txt"));
    PlanButton(QMessageBox::Save);
    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Read(InFolder("a.txt")), "words");
    EXPECT_EQ(Window().Session().kind, FileKind::Text);
}

TEST_F(DeskFiles, AFileThatIsNotThereIsToldAndTheDocumentStays)
{
    const QString path = Written("a.txt", "here");
    ASSERT_TRUE(Window().OpenPath(path));
    PlanButton(QMessageBox::Ok);
    EXPECT_FALSE(Window().OpenPath(InFolder("gone.rtf")));
    ASSERT_EQ(Told().size(), 1);
    EXPECT_THAT(Told()[0].toStdString(),
                ::testing::AllOf(::testing::HasSubstr("There is no file"), ::testing::HasSubstr("gone.rtf"),
                                 ::testing::HasSubstr("moved or renamed")));
    EXPECT_EQ(Text(), QString("here"));
    EXPECT_EQ(Window().Session().path, path);
}

TEST_F(DeskFiles, WithoutPermissionTheOldFileStaysAndSaveAsIsAdvised)
{
    for (const char* name : {"a.rtf", "a.txt"})
    {
        const QString path = Written(name, "before");
        ASSERT_TRUE(Window().OpenPath(path));
        Type("x");
        const auto everybodyReads = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
        ASSERT_TRUE(QFile::setPermissions(InFolder(""), everybodyReads));
        ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther));
        PlanButton(QMessageBox::Ok);
        {
            const AsNobody nobody;
            Action("save").trigger();
        }
        ASSERT_TRUE(QFile::setPermissions(InFolder(""), everybodyReads | QFile::WriteOwner));
        EXPECT_EQ(Read(path), "before");
        EXPECT_TRUE(Window().Editor().Changed());
        EXPECT_THAT(Told().last().toStdString(),
                    ::testing::AllOf(::testing::HasSubstr("no permission to write"), ::testing::HasSubstr(name),
                                     ::testing::HasSubstr("Save As")));
        Window().Editor().SetChanged(false);
    }
}

TEST_F(DeskFiles, RecentFilesAreOfferedAgainWithoutThoseThatAreGone)
{
    const QString first = Written("first.txt", "1");
    const QString second = Written("second.txt", "2");
    ASSERT_TRUE(Window().OpenPath(first) && Window().OpenPath(second));
    EXPECT_EQ(RecentLabels(), QStringList({"second.txt", "first.txt"}));
    EXPECT_TRUE(Window().close());
    OpenWindow();
    EXPECT_EQ(RecentLabels(), QStringList({"second.txt", "first.txt"}));
    Action("recentMenu").menu()->actions()[1]->trigger();
    EXPECT_EQ(Text(), QString("1"));
    ASSERT_TRUE(QFile::remove(second));
    EXPECT_EQ(RecentLabels(), QStringList{"first.txt"});
    Action("clearRecent").trigger();
    EXPECT_TRUE(RecentLabels().isEmpty());
    EXPECT_FALSE(Action("clearRecent").isEnabled());
}

TEST_F(DeskFiles, OpeningShowsABusyCursorOnlyMeanwhile)
{
    bool wasBusy = false;
    QObject::connect(&Window().Editor(), &RichTextEditor::Change, &Window(),
                     [&] { wasBusy = wasBusy || QApplication::overrideCursor() != nullptr; });
    ASSERT_TRUE(Window().OpenPath(Written("a.txt", "text")));
    EXPECT_TRUE(wasBusy);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace quillmarker::desk
