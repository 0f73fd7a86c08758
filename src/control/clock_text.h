#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

#include <chrono>

namespace quillmarker
{

/// A moment as a clock shows it.
struct ClockText
{
    QString date;
    QString time;
    /// How long it stays right; ten seconds at most, so that a clock that is set shows soon.
    std::chrono::milliseconds lasts{};
};

/// Both in the short form of the locale.
ClockText ClockTextAt(const QDateTime& moment, const QLocale& locale);

/// The time of the locale that takes most letters, so that a panel can keep its width.
QString LongestTime(const QLocale& locale);

}  // namespace quillmarker
