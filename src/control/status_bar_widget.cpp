#include "status_bar_widget.h"

#include "clock_text.h"

#include "engine/box/attempt.h"
#include "engine/platform/key_lock_signs.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>

#include <utility>

namespace quillmarker
{
namespace
{

/// At least as wide as its text may become, so that the panels stand still, with room on both sides.
void GiveRoom(QLabel& panel, const QString& widestText)
{
    const QFontMetrics metrics = panel.fontMetrics();
    const int room = metrics.averageCharWidth() + panel.frameWidth();
    panel.setMinimumWidth(metrics.horizontalAdvance(widestText) + 2 * room);
}

/// Screen readers say the name, and are told when it changes.
void Show(QLabel& panel, const QString& text, const QString& spoken)
{
    if (panel.text() != text)
        panel.setText(text);
    if (panel.accessibleName() != spoken)
        panel.setAccessibleName(spoken);
}

}  // namespace

StatusBar::StatusBar(std::shared_ptr<KeyLockService> keyLocks, QWidget* parent)
    : QStatusBar(parent),
      m_keyLocks(std::move(keyLocks)),
      m_date(AddPanel("Date")),
      m_time(AddPanel("Time")),
      m_insert(AddPanel("INS")),
      m_caps(AddPanel("CAPS")),
      m_num(AddPanel("NUM"))
{
    setSizeGripEnabled(false);
    setAccessibleName(tr("Status bar"));
    m_clock.setSingleShot(true);
    m_clock.setTimerType(Qt::PreciseTimer);
    connect(&m_clock, &QTimer::timeout, this, &StatusBar::ShowClock);
    ShowModes();
}

QLabel* StatusBar::AddPanel(const char* name)
{
    auto* panel = new QLabel(this);
    panel->setObjectName(QLatin1String(name));
    panel->setTextFormat(Qt::PlainText);
    panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    panel->setAlignment(Qt::AlignCenter);
    // A disabled panel would keep its clicks.
    panel->setAttribute(Qt::WA_TransparentForMouseEvents);
    addWidget(panel);
    return panel;
}

void StatusBar::SetOverwrites(bool on)
{
    m_overwrites = on;
    ShowModes();
}

bool StatusBar::eventFilter(QObject* watched, QEvent* event)
{
    // A key comes to the window first, once, and then to widgets, perhaps to many.
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (isKey && watched->isWindowType())
        FollowKey(*static_cast<QKeyEvent*>(event));
    return QStatusBar::eventFilter(watched, event);
}

void StatusBar::showEvent(QShowEvent* event)
{
    QStatusBar::showEvent(event);
    QCoreApplication::instance()->installEventFilter(this);
    AskLocks();
    ShowClock();
}

void StatusBar::hideEvent(QHideEvent* event)
{
    QCoreApplication::instance()->removeEventFilter(this);
    m_clock.stop();
    QStatusBar::hideEvent(event);
}

void StatusBar::changeEvent(QEvent* event)
{
    QStatusBar::changeEvent(event);
    if (!isVisible())
        return;
    switch (event->type())
    {
    case QEvent::ActivationChange:
        if (isActiveWindow())
        {
            AskLocks();  // it may have been another program's key
            ShowClock();
        }
        break;
    case QEvent::LocaleChange:
        ShowClock();
        break;
    case QEvent::FontChange:
    case QEvent::LanguageChange:
    case QEvent::StyleChange:
        ShowModes();
        ShowClock();
        break;
    default:
        break;
    }
}

/// Some styles would draw a frame around each panel; ours have one in every style.
void StatusBar::paintEvent(QPaintEvent* /*event*/)
{
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelStatusBar, &option, &painter, this);
}

void StatusBar::mousePressEvent(QMouseEvent* event)
{
    QStatusBar::mousePressEvent(event);
    Q_EMIT MousePressed();
}

/// That of the nearest widget it was set for; else the program's, which widgets are not told of when it is replaced.
QLocale StatusBar::ShownLocale() const
{
    for (const QWidget* widget = this; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget())
    {
        if (widget->testAttribute(Qt::WA_SetLocale))
            return widget->locale();
    }
    return QLocale();
}

void StatusBar::FollowKey(const QKeyEvent& event)
{
    KeyLocks signs = m_locks;
    if (event.type() == QEvent::KeyPress)
        signs = LocksAfter(m_locks, event);
    const bool mayHaveChanged = MayToggleLocks(event) || signs != m_locks;
    if (!mayHaveChanged)
        return;
    m_locks = signs;
    AskLocks();
}

/// What the platform says counts for more than what keys let guess.
void StatusBar::AskLocks()
{
    Attempt([&] {
        if (m_keyLocks)
            m_locks = m_keyLocks->Now().value_or(m_locks);
    });
    ShowModes();
}

void StatusBar::ShowModes()
{
    m_insert->setEnabled(!m_overwrites);
    m_caps->setEnabled(m_locks.isCapsLocked);
    m_num->setEnabled(m_locks.isNumLocked);
    Show(*m_insert, QStringLiteral("INS"), m_overwrites ? tr("Overwrite mode") : tr("Insert mode"));
    Show(*m_caps, QStringLiteral("CAPS"), m_locks.isCapsLocked ? tr("Caps Lock on") : tr("Caps Lock off"));
    Show(*m_num, QStringLiteral("NUM"), m_locks.isNumLocked ? tr("Num Lock on") : tr("Num Lock off"));
    for (QLabel* panel : {m_insert, m_caps, m_num})
        GiveRoom(*panel, panel->text());
}

void StatusBar::ShowClock()
{
    const QLocale locale = ShownLocale();
    const ClockText clock = ClockTextAt(QDateTime::currentDateTime(), locale);
    Show(*m_date, clock.date, clock.date);
    Show(*m_time, clock.time, clock.time);
    GiveRoom(*m_date, clock.date);
    GiveRoom(*m_time, LongestTime(locale));
    m_clock.start(clock.lasts);
}

}  // namespace quillmarker
