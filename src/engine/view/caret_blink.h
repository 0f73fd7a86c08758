#pragma once

#include <QBasicTimer>
#include <QObject>

namespace quillmarker
{

/// Whether the caret is just now to be seen. It blinks as the platform says, or not at all.
class CaretBlink
{
public:
    /// The caret begins to be seen, anew: after each step of it, so that it never vanishes on its way.
    void Restart(QObject& owner);
    void Stop();

    /// Takes a timer event; true when the caret is to be painted anew.
    bool Takes(const QTimerEvent& event);
    bool IsSeen() const { return m_isSeen; }

private:
    QBasicTimer m_timer;
    bool m_isSeen = false;
};

}  // namespace quillmarker
