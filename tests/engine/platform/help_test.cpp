#include "engine/platform/help_topics.h"

#include <quillmarker/widgets/platform_services.h>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include <stdexcept>

namespace quillmarker
{
namespace
{

constexpr int kFonts = 12'897;

/// Does something with the window that waits for the user when one comes.
class WhenShown : public QObject
{
public:
    explicit WhenShown(std::function<void(QDialog&)> use) : m_use(std::move(use))
    {
        QTimer::singleShot(0, this, [this] {
            const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            wasThere = dialog && dialog->isVisible();
            if (wasThere)
                m_use(*dialog);
            if (dialog && dialog->isVisible())
                dialog->reject();
        });
    }

    bool wasThere = false;

private:
    std::function<void(QDialog&)> m_use;
};

QString TextIn(const QDialog& help)
{
    const auto* text = help.findChild<QTextBrowser*>();
    return text ? text->toPlainText() : QString();
}

Message HelpfulMessage(HelpService& help)
{
    return {
        .text = QStringLiteral("Done."),
        .title = QStringLiteral("Font"),
        .buttons = QMessageBox::Ok | QMessageBox::Help,
        .helpContext = kFonts,
        .showHelp = [&help](QWidget* box) { help.ShowTopic(kFonts, box); },
    };
}

TEST(TheHelp, ShowsTheTopicOfAContext)
{
    ASSERT_TRUE(TopicOf(kFonts));
    const WhenShown shown([](const QDialog& help) {
        EXPECT_TRUE(TextIn(help).contains(QStringLiteral("Symbol")));
        EXPECT_TRUE(TextIn(help).contains(QStringLiteral("your system's default")));
        EXPECT_TRUE(help.isModal());
    });
    MakeQtHelp()->ShowTopic(kFonts, nullptr);
    EXPECT_TRUE(shown.wasThere);
}

TEST(TheHelp, SaysThatItHasNoneOnOtherTopics)
{
    EXPECT_FALSE(TopicOf(0));
    const WhenShown shown(
        [](const QDialog& help) { EXPECT_EQ(TextIn(help), QStringLiteral("There is no help on this topic.")); });
    MakeQtHelp()->ShowTopic(1, nullptr);
    EXPECT_TRUE(shown.wasThere);
}

TEST(TheHelp, IsClosedWithItsOwner)
{
    const QPointer<QWidget> owner = new QWidget;
    owner->show();
    const WhenShown shown([&](const QDialog&) { delete owner; });
    MakeQtHelp()->ShowTopic(kFonts, owner);
    EXPECT_TRUE(shown.wasThere);
}

TEST(TheHelpButtonOfAMessage, OpensTheTopicOverTheBoxWhichStays)
{
    const std::unique_ptr<HelpService> help = MakeQtHelp();
    bool wasHelpThere = false;
    const WhenShown shown([&](QDialog& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        const WhenShown topic([&](QDialog& topicBox) {
            EXPECT_EQ(topicBox.parentWidget(), &box);
            EXPECT_TRUE(TextIn(topicBox).contains(QStringLiteral("character set")));
            EXPECT_TRUE(box.isVisible());
            QTest::keyClick(&topicBox, Qt::Key_Escape);
            EXPECT_FALSE(topicBox.isVisible());
        });
        QTest::mouseClick(box.button(QMessageBox::Help), Qt::LeftButton);
        wasHelpThere = topic.wasThere;
        EXPECT_TRUE(box.isVisible());
        box.button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(MakeQtMessageBoxes()->Show(HelpfulMessage(*help), nullptr), QMessageBox::Ok);
    EXPECT_TRUE(shown.wasThere);
    EXPECT_TRUE(wasHelpThere);
}

TEST(TheHelpButtonOfAMessage, MayLoseTheWholeWindowWhileTheTopicIsShown)
{
    const std::unique_ptr<HelpService> help = MakeQtHelp();
    const QPointer<QWidget> owner = new QWidget;
    owner->show();
    const WhenShown shown([&](QDialog& dialog) {
        const WhenShown topic([&](const QDialog&) { delete owner; });
        QTest::mouseClick(dynamic_cast<QMessageBox&>(dialog).button(QMessageBox::Help), Qt::LeftButton);
        EXPECT_TRUE(topic.wasThere);
    });
    EXPECT_EQ(MakeQtMessageBoxes()->Show(HelpfulMessage(*help), owner), QMessageBox::NoButton);
    EXPECT_TRUE(shown.wasThere);
}

TEST(TheHelpButtonOfAMessage, KeepsWhatAHostThrowsToItself)
{
    Message message{.text = QStringLiteral("Done."), .buttons = QMessageBox::Ok | QMessageBox::Help};
    message.showHelp = [](QWidget*) { throw std::runtime_error("no help"); };
    const WhenShown shown([&](QDialog& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        box.button(QMessageBox::Help)->click();
        EXPECT_TRUE(box.isVisible());
        box.button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(MakeQtMessageBoxes()->Show(message, nullptr), QMessageBox::Ok);
}

}  // namespace
}  // namespace quillmarker
