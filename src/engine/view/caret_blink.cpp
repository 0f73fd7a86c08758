#include "caret_blink.h"

#include <QGuiApplication>
#include <QStyleHints>
#include <QTimerEvent>

namespace quillmarker
{

void CaretBlink::Restart(QObject& owner)
{
    m_isSeen = true;
    const int period = QGuiApplication::styleHints()->cursorFlashTime();
    if (period >= 2)
        m_timer.start(period / 2, &owner);
    else
        m_timer.stop();
}

void CaretBlink::Stop()
{
    m_timer.stop();
    m_isSeen = false;
}

bool CaretBlink::Takes(const QTimerEvent& event)
{
    if (event.timerId() != m_timer.timerId())
        return false;
    m_isSeen = !m_isSeen;
    return true;
}

}  // namespace quillmarker
