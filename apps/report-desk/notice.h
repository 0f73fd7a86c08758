#pragma once

#include <QLabel>
#include <QTimer>

namespace quillmarker::desk
{

/// A short message in the window's lower left corner, above all else, which goes away by itself.
class Notice : public QLabel
{
    Q_OBJECT

public:
    explicit Notice(QWidget* window);

    /// Shows it for some seconds.
    void Tell(const QString& message);
    /// Shows it until something else is told. It is seen at once, though the program then works without a pause.
    void TellWhileWorking(const QString& message);
    void TakeAway();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowText(const QString& message);
    void Place();

    QTimer m_end;
};

/// While it lives the program is busy: a waiting cursor, and a notice of what it does.
class BusyTime
{
public:
    BusyTime(Notice& notice, const QString& message);
    ~BusyTime();
    BusyTime(const BusyTime&) = delete;
    BusyTime& operator=(const BusyTime&) = delete;

private:
    Notice& m_notice;
};

}  // namespace quillmarker::desk
