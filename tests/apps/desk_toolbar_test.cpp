#include "desk_sample.h"

#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace quillmarker::desk
{
namespace
{

class DeskToolbar : public DeskTest
{
protected:
    QToolButton& Button(const char* key) { return *Window().Editor().findChild<QToolButton*>(QLatin1String(key)); }
    void Click(const char* key)
    {
        ASSERT_TRUE(Button(key).isVisible()) << key;
        QTest::mouseClick(&Button(key), Qt::LeftButton);
        QApplication::processEvents();
    }
    QLabel& Told() { return *Window().findChild<QLabel*>(QStringLiteral("notice")); }
};

TEST_F(DeskToolbar, NewAsksForTheOldReportAndBeginsAnother)
{
    ASSERT_TRUE(Window().OpenPath(Written("a.txt", "old")));
    Type("x");
    PlanButton(QMessageBox::Discard);
    Click("new");
    EXPECT_EQ(Text(), QString());
    EXPECT_EQ(Window().windowTitle(), QString("Untitled[*] \u2013 Report Desk"));
    EXPECT_FALSE(Window().isWindowModified());
}

TEST_F(DeskToolbar, OpenAsksForAFileAndShowsIt)
{
    PlanFileName(Written("a.txt", "opened"));
    Click("open");
    EXPECT_EQ(Text(), QString("opened"));
    EXPECT_EQ(Window().Session().path, InFolder("a.txt"));
}

TEST_F(DeskToolbar, SaveAsksANewReportForItsNameOnce)
{
    Type("total");
    PlanFileName(InFolder("a.rtf"));
    Click("save");
    EXPECT_TRUE(Read(InFolder("a.rtf")).contains("total"));
    EXPECT_FALSE(Window().isWindowModified());
    Type("s");
    Click("save");
    EXPECT_TRUE(Read(InFolder("a.rtf")).contains("totals"));
}

TEST_F(DeskToolbar, UndoTakesBackOneStepAndRedoMakesItAgain)
{
    Type("one");
    Press(Qt::Key_Home);
    Press(Qt::Key_End);
    Type("two");
    Click("undo");
    EXPECT_EQ(Text(), QString("one"));
    Click("redo");
    EXPECT_EQ(Text(), QString("onetwo"));
    Click("redo");
    EXPECT_EQ(Text(), QString("onetwo"));
}

TEST_F(DeskToolbar, WhatIsNotThereYetIsToldAndNothingElse)
{
    for (const char* key : {"print", "preview", "search", "spell"})
    {
        Told().hide();
        Told().clear();
        Click(key);
        EXPECT_TRUE(Told().isVisible()) << key;
        EXPECT_TRUE(Told().text().endsWith(QStringLiteral(" is not part of Report Desk yet."))) << key;
    }
    EXPECT_EQ(Text(), QString());
    EXPECT_FALSE(Window().isWindowModified());
}

TEST_F(DeskToolbar, AButtonOfTheControlIsLeftToTheControl)
{
    Type("ab");
    Press(Qt::Key_A, Qt::ControlModifier);
    Click("cut");
    EXPECT_EQ(Text(), QString());
    Click("paste");
    EXPECT_EQ(Text(), QString("ab"));
    EXPECT_FALSE(Told().isVisible());
}

// The menu of the buttons that have no room names its lines as the window names its own.
TEST_F(DeskToolbar, MenuOfANarrowToolbarLeavesTheWindowsMenusAlone)
{
    Window().resize(300, 400);
    QApplication::processEvents();
    QMenu* more = Button("more").menu();
    more->popup(QPoint());
    more->close();
    ASSERT_TRUE(more->findChild<QAction*>(QStringLiteral("cut")));
    EXPECT_FALSE(Action("cut").isEnabled());
    Type("ab");
    Press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_TRUE(Action("cut").isEnabled());
    Press(Qt::Key_Right);
    EXPECT_FALSE(Action("cut").isEnabled());
    EXPECT_TRUE(more->findChild<QAction*>(QStringLiteral("cut"))->isEnabled());
}

}  // namespace
}  // namespace quillmarker::desk
