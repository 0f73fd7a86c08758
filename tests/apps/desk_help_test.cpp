#include "desk_sample.h"
#include "help_topics.h"
#include "help_window.h"

#include <QFontDialog>
#include <QListWidget>
#include <QTextBrowser>
#include <QToolButton>

#include <set>

namespace quillmarker::desk
{
namespace
{

class DeskHelp : public DeskTest
{
protected:
    HelpWindow* Help() { return Window().findChild<HelpWindow*>(); }
    QTextBrowser& Page() { return *Help()->findChild<QTextBrowser*>(); }
    QListWidget& Topics() { return *Help()->findChild<QListWidget*>(); }
};

TEST_F(DeskHelp, FOneShowsTheOverviewAndTheReportGoesOn)
{
    Press(Qt::Key_F1);
    ASSERT_TRUE(Help());
    EXPECT_TRUE(Help()->isVisible());
    EXPECT_FALSE(Help()->isModal());
    EXPECT_EQ(Help()->Context(), kOverviewTopic);
    EXPECT_TRUE(Page().toPlainText().startsWith(QStringLiteral("Report Desk\n")));
    Type("on");
    EXPECT_EQ(Text(), QString("on"));
}

TEST_F(DeskHelp, ToolbarAndMenuOpenTheSameWindow)
{
    auto* button = Window().Editor().findChild<QToolButton*>(QStringLiteral("help"));
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_TRUE(Help());
    EXPECT_TRUE(Help()->isVisible());
    Help()->close();
    Action("contents").trigger();
    EXPECT_TRUE(Help()->isVisible());
    EXPECT_EQ(Window().findChildren<HelpWindow*>().size(), 1);
}

TEST_F(DeskHelp, ATopicIsShownByItsNumberAndTheOverviewForAnyOther)
{
    Window().ShowHelp(12897);
    EXPECT_EQ(Help()->Context(), kFontsTopic);
    EXPECT_TRUE(Page().toPlainText().startsWith(QStringLiteral("Fonts and character sets\n")));
    for (const char* said : {"system's default character set", "Symbol", "When letters look wrong"})
        EXPECT_TRUE(Page().toPlainText().simplified().contains(QLatin1String(said))) << said;
    EXPECT_EQ(Topics().currentItem()->text(), QString("Fonts and character sets"));
    EXPECT_EQ(Page().accessibleName(), QString("Fonts and character sets"));
    EXPECT_EQ(Topics().accessibleName(), QString("Topics"));
    for (const int none : {-1, 2, 12898})
    {
        Window().ShowHelp(12897);
        Window().ShowHelp(none);
        EXPECT_EQ(Help()->Context(), kOverviewTopic) << none;
    }
}

TEST_F(DeskHelp, KeysLeadToTheTopicsAndEscapeCloses)
{
    Window().ShowHelp(kOverviewTopic);
    EXPECT_EQ(Help()->focusWidget(), &Page());
    QApplication::setActiveWindow(Help());
    QTest::keyClick(&Page(), Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(Help()->focusWidget(), &Topics());
    QTest::keyClick(&Topics(), Qt::Key_Down);
    EXPECT_EQ(Help()->Context(), kToolbarTopic);
    EXPECT_TRUE(Page().toPlainText().startsWith(QStringLiteral("The toolbar\n")));
    QTest::keyClick(&Topics(), Qt::Key_Escape);
    EXPECT_FALSE(Help()->isVisible());
    Window().ShowHelp(kOverviewTopic);
    QTest::keyClick(&Page(), Qt::Key_Escape);
    EXPECT_FALSE(Help()->isVisible());
    EXPECT_TRUE(Window().isVisible());
}

TEST_F(DeskHelp, EveryButtonHasALineByItsTip)
{
    Window().ShowHelp(kToolbarTopic);
    const QStringList lines = Page().toPlainText().split(QLatin1Char('\n'));
    int buttons = 0;
    for (const QToolButton* button : Window().Editor().findChildren<QToolButton*>())
    {
        if (!button->inherits("quillmarker::ToolButton"))
            continue;
        ++buttons;
        EXPECT_TRUE(lines.contains(button->toolTip())) << button->toolTip().toStdString();
    }
    EXPECT_EQ(buttons, 27);
}

TEST_F(DeskHelp, ClosesWithTheWindow)
{
    Window().ShowHelp(kOverviewTopic);
    EXPECT_TRUE(Window().close());
    EXPECT_FALSE(Help()->isVisible());
}

TEST_F(DeskHelp, AskedForInAMessageBoxItCanBeReadThere)
{
    Window().ShowHelp(kOverviewTopic);
    {
        QMessageBox box(&Window());
        box.setModal(true);
        box.addButton(QMessageBox::Ok);
        PlanButton(QMessageBox::Ok);
        box.open();
        Window().ShowHelp(kFontsTopic);
        EXPECT_EQ(Help()->parentWidget(), &box);
        EXPECT_EQ(Help()->Context(), kFontsTopic);
        QApplication::processEvents();
    }
    EXPECT_FALSE(Help());
    Window().ShowHelp(kOverviewTopic);
    EXPECT_EQ(Help()->parentWidget(), &Window());
}

TEST_F(DeskHelp, TheMessageOfTheCharacterSetOpensItsTopic)
{
    BoxFont greek = View().Box().Font();
    greek.charset = 161;
    View().Box().SetFont(greek);
    Plan([](QWidget& dialog) {
        auto* chooser = qobject_cast<QFontDialog*>(&dialog);
        if (chooser)
            chooser->reject();
        return chooser != nullptr;
    });
    Plan([](QWidget& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (!box || !box->button(QMessageBox::Help))
            return false;
        QTest::mouseClick(box->button(QMessageBox::Help), Qt::LeftButton);
        const auto* help = box->findChild<HelpWindow*>();
        const bool isThere = help && help->isVisible() && help->Context() == kFontsTopic;
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        return isThere;
    });
    Window().Editor().ShowFontDialog();
    EXPECT_EQ(View().Box().Font().charset, 161);  // nothing was chosen
}

TEST(DeskHelpTopics, NumbersAndTitlesAreDifferent)
{
    std::set<int> numbers;
    std::set<QString> titles;
    for (const HelpTopic& topic : HelpTopic::kAll)
    {
        EXPECT_TRUE(numbers.insert(topic.context).second) << topic.context;
        EXPECT_TRUE(titles.insert(topic.Title()).second) << topic.title;
        EXPECT_EQ(HelpTopic::kAll[static_cast<std::size_t>(RowOfTopic(topic.context))].context, topic.context);
        EXPECT_TRUE(topic.Text().contains(QStringLiteral("<h2>"))) << topic.title;
    }
}

}  // namespace
}  // namespace quillmarker::desk
