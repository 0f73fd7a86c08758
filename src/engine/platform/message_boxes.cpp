#include <quillmarker/widgets/platform_services.h>

#include "engine/box/attempt.h"

#include <QAbstractButton>
#include <QPointer>

namespace quillmarker
{
namespace
{

/// A click on Help is no answer: it leaves the box open, under the topic.
void ShowTopicOnHelp(QMessageBox& box, const Message& message)
{
    QAbstractButton* help = box.button(QMessageBox::Help);
    if (!help)
        return;
    QObject::disconnect(help, &QAbstractButton::clicked, nullptr, nullptr);
    if (message.showHelp)
        QObject::connect(help, &QAbstractButton::clicked, &box,
                         [show = message.showHelp, &box] { Attempt([&] { show(&box); }); });
}

/// A box with one answer can be left by Escape; Qt does not see it where a Help button stands beside the answer.
void LetEscapeGiveTheOnlyAnswer(QMessageBox& box)
{
    QAbstractButton* answer = nullptr;
    for (QAbstractButton* button : box.buttons())
    {
        if (box.standardButton(button) == QMessageBox::Help)
            continue;
        if (answer)
            return;
        answer = button;
    }
    if (answer)
        box.setEscapeButton(answer);
}

class QtMessageBoxes : public MessageBoxService
{
public:
    QMessageBox::StandardButton Show(const Message& message, QWidget* owner) override
    {
        // The owner may be deleted while the box is open, and the box with it.
        const QPointer<QMessageBox> box = new QMessageBox(message.icon, message.title, message.text, message.buttons,
                                                          owner ? owner->window() : nullptr);
        box->setTextFormat(Qt::PlainText);
        ShowTopicOnHelp(*box, message);
        LetEscapeGiveTheOnlyAnswer(*box);
        const int answer = box->exec();
        delete box;
        return static_cast<QMessageBox::StandardButton>(answer);
    }
};

}  // namespace

std::unique_ptr<MessageBoxService> MakeQtMessageBoxes() { return std::make_unique<QtMessageBoxes>(); }

}  // namespace quillmarker
