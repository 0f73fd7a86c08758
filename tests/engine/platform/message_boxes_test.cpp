#include <quillmarker/widgets/platform_services.h>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace quillmarker
{
namespace
{

const Message kQuestion{
    .text = QStringLiteral("Save <b>report</b>?"),
    .title = QStringLiteral("Reports"),
    .icon = QMessageBox::Question,
    .buttons = QMessageBox::Yes | QMessageBox::No,
};

const Message kHelpfulNote{
    .text = QStringLiteral("Done."),
    .title = QStringLiteral("Reports"),
    .buttons = QMessageBox::Ok | QMessageBox::Help,
};

/// Shows a message and does something with the box that then stands there; what is not answered is closed.
QMessageBox::StandardButton Answer(const Message& message, QWidget* owner,
                                   const std::function<void(QMessageBox&)>& useBox)
{
    bool wasThere = false;
    QTimer::singleShot(0, QApplication::instance(), [&] {
        const QPointer<QMessageBox> box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        wasThere = box && box->isVisible();
        if (!wasThere)
            return;
        useBox(*box);
        if (box && box->isVisible())
            box->done(QMessageBox::Abort);
    });
    const QMessageBox::StandardButton answer = MakeQtMessageBoxes()->Show(message, owner);
    EXPECT_TRUE(wasThere);
    return answer;
}

TEST(AMessageBox, ShowsTheMessageAsItStands)
{
    QWidget window;
    QWidget owner(&window);
    window.show();
    Answer(kQuestion, &owner, [&](const QMessageBox& box) {
        EXPECT_EQ(box.text(), kQuestion.text);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), kQuestion.title);
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_TRUE(box.isModal());
    });
}

TEST(AMessageBox, AnswersWithTheButtonThatIsClicked)
{
    for (const QMessageBox::StandardButton button : {QMessageBox::Yes, QMessageBox::No})
        EXPECT_EQ(Answer(kQuestion, nullptr, [=](const QMessageBox& box) { box.button(button)->click(); }), button);
}

TEST(AMessageBox, StaysOpenOnHelp)
{
    const auto answer = Answer(kHelpfulNote, nullptr, [](const QMessageBox& box) {
        QTest::mouseClick(box.button(QMessageBox::Help), Qt::LeftButton);
        QApplication::processEvents();
        EXPECT_TRUE(box.isVisible());
        box.button(QMessageBox::Ok)->click();
        EXPECT_FALSE(box.isVisible());
    });
    EXPECT_EQ(answer, QMessageBox::Ok);
}

TEST(AMessageBox, WithOneAnswerTakesEscapeForIt)
{
    const auto pressEscape = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
    EXPECT_EQ(Answer(kHelpfulNote, nullptr, pressEscape), QMessageBox::Ok);
}

TEST(AMessageBox, IsNotAnsweredWhenItsOwnerGoes)
{
    const QPointer<QWidget> owner = new QWidget;
    owner->show();
    EXPECT_EQ(Answer(kQuestion, owner, [&](QMessageBox&) { delete owner; }), QMessageBox::NoButton);
}

}  // namespace
}  // namespace quillmarker
