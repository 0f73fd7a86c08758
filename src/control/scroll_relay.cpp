#include "scroll_relay.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

namespace quillmarker
{
namespace
{

QPointer<QWidget>& RelayWindow()
{
    static QPointer<QWidget> relay;
    return relay;
}

void PostRelease()
{
    if (QWidget* relay = RelayWindow())
        QCoreApplication::postEvent(relay, new QKeyEvent(QEvent::KeyRelease, 0, Qt::NoModifier));
}

}  // namespace

void HookEngineWindow(RichTextView& engine, QWidget& relay)
{
    RelayWindow() = &relay;
    QObject::connect(&engine, &RichTextView::HScroll, PostRelease);
}

}  // namespace quillmarker
