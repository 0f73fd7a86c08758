#include "accessible_tool_button_widget.h"

#include "format/tool_button_widget.h"

#include <QAccessibleWidget>

namespace quillmarker
{
namespace
{

class AccessibleToolButton : public QAccessibleWidget
{
public:
    explicit AccessibleToolButton(ToolButton& button) : QAccessibleWidget(&button, QAccessible::Button) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const ToolButton& button = Button();
        state.focusable = true;
        state.checkable = button.isCheckable();
        state.checked = button.isChecked() && !button.MixedState();
        state.checkStateMixed = button.MixedState();
        state.hasPopup = IsPicker(button);
        return state;
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }

    void doAction(const QString& name) override
    {
        if (name == pressAction())
            Button().click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    ToolButton& Button() const { return static_cast<ToolButton&>(*widget()); }
    static bool IsPicker(const ToolButton& button) { return IsPopupKey(button.Row().key); }
};

QAccessibleInterface* MakeInterface(const QString& className, QObject* object)
{
    if (className != QLatin1String(ToolButton::staticMetaObject.className()))
        return nullptr;
    auto* button = qobject_cast<ToolButton*>(object);
    return button ? new AccessibleToolButton(*button) : nullptr;
}

}  // namespace

void MakeAccessible(ToolButton& /*button*/)
{
    // Installing it again leaves the one there is.
    QAccessible::installFactory(MakeInterface);
}

}  // namespace quillmarker
