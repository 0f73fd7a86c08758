#pragma once

#include <quillmarker/widgets/platform_services.h>

#include <QLabel>
#include <QStatusBar>
#include <QTimer>

#include <memory>

class QKeyEvent;

namespace quillmarker
{

/// The control's status bar: date, time, and what the keyboard is in, as five panels that keep themselves up to date
/// while they are to be seen. A panel of the keyboard ("INS", "CAPS", "NUM") is enabled when that mode is on.
class StatusBar : public QStatusBar
{
    Q_OBJECT

public:
    /// Where `keyLocks` is null or does not know, the locks are followed from the keys that are pressed.
    explicit StatusBar(std::shared_ptr<KeyLockService> keyLocks, QWidget* parent = nullptr);

    bool Overwrites() const { return m_overwrites; }
    void SetOverwrites(bool on);

Q_SIGNALS:
    /// A mouse button was pressed on it, on a panel or beside them.
    void MousePressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QLabel* AddPanel(const char* name);
    QLocale ShownLocale() const;
    void FollowKey(const QKeyEvent& event);
    void AskLocks();
    void ShowModes();
    void ShowClock();

    std::shared_ptr<KeyLockService> m_keyLocks;
    KeyLocks m_locks;
    bool m_overwrites = false;
    QTimer m_clock;
    QLabel* m_date;
    QLabel* m_time;
    QLabel* m_insert;
    QLabel* m_caps;
    QLabel* m_num;
};

}  // namespace quillmarker
