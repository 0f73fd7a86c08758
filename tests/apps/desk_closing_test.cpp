#include "desk_sample.h"

namespace quillmarker::desk
{
namespace
{

class DeskClosing : public DeskTest
{
};

TEST_F(DeskClosing, NothingIsAskedWhenNothingChanged)
{
    EXPECT_TRUE(Window().close());
    EXPECT_TRUE(Told().isEmpty());
}

TEST_F(DeskClosing, CancelKeepsWindowAndText)
{
    Type("kept");
    PlanButton(QMessageBox::Cancel);
    EXPECT_FALSE(Window().close());
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Text(), QString("kept"));
    EXPECT_THAT(Told().join(' ').toStdString(), ::testing::HasSubstr("Untitled"));
}

TEST_F(DeskClosing, DiscardClosesAndLeavesTheFileAlone)
{
    const QString path = Written("a.txt", "before");
    ASSERT_TRUE(Window().OpenPath(path));
    Type("x");
    PlanButton(QMessageBox::Discard);
    EXPECT_TRUE(Window().close());
    EXPECT_EQ(Read(path), "before");
}

TEST_F(DeskClosing, SaveWritesTheFileAndCloses)
{
    const QString path = Written("a.txt", "before");
    ASSERT_TRUE(Window().OpenPath(path));
    Type("x");
    PlanButton(QMessageBox::Save);
    EXPECT_TRUE(Window().close());
    EXPECT_EQ(Read(path), "xbefore");
}

TEST_F(DeskClosing, SaveOfANewDocumentAsksForItsName)
{
    Type("new");
    PlanButton(QMessageBox::Save);
    PlanFileName(InFolder("named"));
    EXPECT_TRUE(Window().close());
    EXPECT_TRUE(Read(InFolder("named.rtf")).startsWith("{\\rtf1"));
}

TEST_F(DeskClosing, ASaveThatFailsKeepsTheWindow)
{
    ASSERT_TRUE(QDir().mkdir(InFolder("sub")));
    ASSERT_TRUE(Window().OpenPath(Written("sub/a.txt", "before")));
    Type("x");
    ASSERT_TRUE(QDir(InFolder("sub")).removeRecursively());
    PlanButton(QMessageBox::Save);
    PlanButton(QMessageBox::Ok);
    EXPECT_FALSE(Window().close());
    EXPECT_TRUE(Window().isWindowModified());
    EXPECT_EQ(Text(), QString("xbefore"));
}

TEST_F(DeskClosing, NewAndOpenAskToo)
{
    Type("kept");
    for (const Qt::Key key : {Qt::Key_N, Qt::Key_O})
    {
        PlanButton(QMessageBox::Cancel);
        Press(key, Qt::ControlModifier);
        EXPECT_EQ(Text(), QString("kept"));
    }
    PlanButton(QMessageBox::Discard);
    Press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Text(), QString());
    EXPECT_FALSE(Window().isWindowModified());
}

TEST_F(DeskClosing, NothingOfTheOldDocumentComesBackIntoANewOne)
{
    Type("old");
    PlanButton(QMessageBox::Discard);
    Press(Qt::Key_N, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier);
    Window().Editor().Undo();
    EXPECT_EQ(Text(), QString());
    Type("x");
    EXPECT_EQ(View().SelFontName(), QVariant("Arial"));
    EXPECT_EQ(View().SelFontSize().toInt(), 10);
}

}  // namespace
}  // namespace quillmarker::desk
