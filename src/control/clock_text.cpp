#include "clock_text.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kLongestWait = 10s;

/// Few locales show seconds in the short form; the "C" locale does.
bool ShowsSeconds(const QLocale& locale) { return locale.timeFormat(QLocale::ShortFormat).contains(u's'); }

}  // namespace

ClockText ClockTextAt(const QDateTime& moment, const QLocale& locale)
{
    const std::chrono::milliseconds period = ShowsSeconds(locale) ? 1s : 60s;
    const std::chrono::milliseconds ofDay(moment.time().msecsSinceStartOfDay());
    return {
        .date = locale.toString(moment.date(), QLocale::ShortFormat),
        .time = locale.toString(moment.time(), QLocale::ShortFormat),
        .lasts = std::min(period - ofDay % period, kLongestWait),
    };
}

QString LongestTime(const QLocale& locale)
{
    const QString morning = locale.toString(QTime(10, 58, 58), QLocale::ShortFormat);
    const QString evening = locale.toString(QTime(22, 58, 58), QLocale::ShortFormat);
    return evening.size() > morning.size() ? evening : morning;
}

}  // namespace quillmarker
