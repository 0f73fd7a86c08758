#include "desk_sample.h"

#include <QClipboard>
#include <QMenu>
#include <QMenuBar>

namespace quillmarker::desk
{
namespace
{

class DeskEditing : public DeskTest
{
};

TEST_F(DeskEditing, TypingSetsTheMarkOfChanges)
{
    EXPECT_FALSE(Window().isWindowModified());
    EXPECT_EQ(Window().windowTitle(), QString("Untitled[*] \u2013 Report Desk"));
    Type("pay");
    EXPECT_EQ(Text(), QString("pay"));
    EXPECT_TRUE(Window().isWindowModified());
}

TEST_F(DeskEditing, KeysOfTheEditMenuReachTheText)
{
    Type("total");
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QString("total"));
    Press(Qt::Key_End, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(), QString("totaltotal"));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Text(), QString("total"));
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Text(), QString("totaltotal"));
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Text(), QString());
    EXPECT_EQ(QApplication::clipboard()->text(), QString("totaltotal"));
}

TEST_F(DeskEditing, ActionsAreOnWhereTheyDoSomething)
{
    const auto areOn = [&] {
        QString on;
        for (const char* name : {"undo", "redo", "cut", "copy", "delete"})
            if (Action(name).isEnabled())
                on += QLatin1String(name) + QLatin1Char(' ');
        return on;
    };
    EXPECT_EQ(areOn(), QString());
    Type("ab");
    EXPECT_EQ(areOn(), QString("undo "));
    Press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(areOn(), QString("undo cut copy delete "));
    Action("delete").trigger();
    EXPECT_EQ(Text(), QString("a"));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(Action("redo").isEnabled());
}

TEST_F(DeskEditing, UndoGoesStepByStep)
{
    Type("one");
    Press(Qt::Key_Home);
    Press(Qt::Key_End);
    Type("two");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Text(), QString("one"));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Text(), QString());
}

TEST_F(DeskEditing, ViewMenuShowsHidesAndZooms)
{
    for (const char* name : {"toolbar", "ruler", "statusbar"})
        EXPECT_TRUE(Action(name).isChecked()) << name;
    Action("ruler").trigger();
    Action("inches").trigger();
    QApplication::processEvents();
    EXPECT_FALSE(Window().Editor().Ruler());
    EXPECT_TRUE(Window().Editor().MeasureInches());
    EXPECT_FALSE(Action("ruler").isChecked());
    Window().Editor().SetRuler(true);
    QApplication::processEvents();
    EXPECT_TRUE(Action("ruler").isChecked());
    Press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(View().Zoom(), 110);
    Press(Qt::Key_Minus, Qt::ControlModifier);
    Press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(View().Zoom(), 90);
    Press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(View().Zoom(), 100);
}

TEST_F(DeskEditing, WindowAndPropertiesAreKeptBetweenRuns)
{
    Window().resize(700, 500);
    Action("toolbar").trigger();
    Action("inches").trigger();
    EXPECT_TRUE(Window().close());
    OpenWindow();
    EXPECT_EQ(Window().size(), QSize(700, 500));
    EXPECT_FALSE(Window().Editor().Toolbar());
    EXPECT_TRUE(Window().Editor().MeasureInches());
    EXPECT_FALSE(Action("toolbar").isChecked());
}

TEST_F(DeskEditing, SampleReportIsFilledAndUnchanged)
{
    ASSERT_TRUE(Window().OpenSample(QStringLiteral("examples/report")));
    QApplication::processEvents();
    const QString text = Text();
    for (const char* value : {"Laboratory report 2024001", "M\u00fcller, J\u00f6rg", "Haemoglobin", "M. Brandt"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(value))) << value;
    EXPECT_FALSE(text.contains(QLatin1Char('[')));
    EXPECT_FALSE(Window().isWindowModified());
    EXPECT_EQ(Window().windowTitle(), QString("Sample report[*] \u2013 Report Desk"));
    const QString last = QStringLiteral("order 4711");
    EXPECT_TRUE(text.contains(last));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(Text().contains(last));
}

TEST_F(DeskEditing, AFolderWithoutSampleIsNone)
{
    EXPECT_FALSE(Window().OpenSample(InFolder("nowhere")));
    EXPECT_EQ(Text(), QString());
}

TEST_F(DeskEditing, MnemonicsOfAMenuAreDifferent)
{
    QList<const QMenu*> menus = {Action("recentMenu").menu()};
    for (const QAction* title : Window().menuBar()->actions())
        menus.append(title->menu());
    ASSERT_EQ(menus.size(), 5);
    for (const QMenu* menu : menus)
    {
        QString letters;
        for (const QAction* action : menu->actions())
        {
            const QKeySequence mnemonic = QKeySequence::mnemonic(action->text());
            EXPECT_EQ(mnemonic.isEmpty(), action->isSeparator()) << action->text().toStdString();
            EXPECT_FALSE(!mnemonic.isEmpty() && letters.contains(mnemonic.toString())) << action->text().toStdString();
            letters += mnemonic.toString() + QLatin1Char(' ');
        }
    }
}

}  // namespace
}  // namespace quillmarker::desk
