#pragma once

#include <QByteArray>
#include <QClipboard>
#include <QGuiApplication>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace quillmarker
{

/// As long as a machine that is busy elsewhere may take.
inline constexpr int kPatience = 60'000;

/// Another program. While it runs this one answers it.
class Peer
{
public:
    Peer(const char* action, const char* type) : m_ended(&m_process, &QProcess::finished)
    {
        m_process.start(QStringLiteral(CLIPBOARD_PEER), {QString::fromLatin1(action), QString::fromLatin1(type)});
    }
    ~Peer()
    {
        m_process.kill();
        m_process.waitForFinished(kPatience);
    }

    QByteArray Output()
    {
        EXPECT_TRUE(m_ended.count() > 0 || m_ended.wait(kPatience));
        return m_process.readAllStandardOutput();
    }

    /// Gives it what to offer, and waits until it does.
    void Offer(const QByteArray& data)
    {
        m_process.write(data);
        m_process.closeWriteChannel();
        ASSERT_TRUE(QTest::qWaitFor([&] { return m_process.bytesAvailable() > 0; }, kPatience));
        ASSERT_EQ(m_process.readAllStandardOutput().trimmed(), QByteArray("ready"));
        ASSERT_TRUE(QTest::qWaitFor([] { return !QGuiApplication::clipboard()->ownsClipboard(); }, kPatience));
    }

private:
    QProcess m_process;
    QSignalSpy m_ended;
};

inline QByteArray ReadElsewhere(const char* type) { return Peer("read", type).Output(); }

}  // namespace quillmarker
