#include "notice.h"

#include <QApplication>
#include <QEvent>

#include <chrono>

namespace quillmarker::desk
{
namespace
{

constexpr std::chrono::seconds kReadingTime(4);
constexpr int kInset = 8;

}  // namespace

Notice::Notice(QWidget* window) : QLabel(window)
{
    setObjectName(QStringLiteral("notice"));
    setTextFormat(Qt::PlainText);
    setFrameShape(QFrame::Box);
    setMargin(kInset / 2);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    m_end.setSingleShot(true);
    m_end.setInterval(kReadingTime);
    connect(&m_end, &QTimer::timeout, this, &QWidget::hide);
    window->installEventFilter(this);
}

void Notice::Tell(const QString& message)
{
    ShowText(message);
    m_end.start();
}

void Notice::TellWhileWorking(const QString& message)
{
    m_end.stop();
    ShowText(message);
    repaint();
}

void Notice::TakeAway()
{
    m_end.stop();
    hide();
}

void Notice::ShowText(const QString& message)
{
    setText(message);
    adjustSize();
    Place();
    show();
    raise();
}

void Notice::Place() { move(kInset, parentWidget()->height() - height() - kInset); }

bool Notice::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && isVisible())
        Place();
    return QLabel::eventFilter(watched, event);
}

BusyTime::BusyTime(Notice& notice, const QString& message) : m_notice(notice)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_notice.TellWhileWorking(message);
}

BusyTime::~BusyTime()
{
    m_notice.TakeAway();
    QApplication::restoreOverrideCursor();
}

}  // namespace quillmarker::desk
