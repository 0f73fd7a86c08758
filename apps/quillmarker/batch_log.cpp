#include "batch_log.h"

#include "progress.h"
#include "standard_streams.h"

#include <cstdio>

namespace quillmarker::tool
{
namespace
{

std::string Count(std::int64_t count, const char* one, const char* many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

BatchLog::BatchLog(std::string source, std::optional<std::uintmax_t> bytes)
    : m_source(std::move(source)), m_bytes(bytes)
{
}

void BatchLog::Done(std::size_t bytes)
{
    const std::scoped_lock lock(m_mutex);
    Advance(bytes);
}

void BatchLog::Failed(std::size_t bytes, const std::string& message)
{
    const std::scoped_lock lock(m_mutex);
    m_line.Erase();
    Complain(message);
    ++m_failed;
    Advance(bytes);
}

void BatchLog::Missing(std::int64_t line, const std::vector<std::string>& markers)
{
    const std::scoped_lock lock(m_mutex);
    for (const std::string& name : markers)
    {
        MissingMarker& marker = m_missing[name];
        marker.first = marker.lines == 0 ? line : std::min(marker.first, line);
        ++marker.lines;
    }
}

void BatchLog::Finish()
{
    const std::scoped_lock lock(m_mutex);
    m_line.Erase();
    for (const auto& [name, marker] : m_missing)
        Complain(m_source + ":" + std::to_string(marker.first) + ": marker \"" + name + "\" is not in the template" +
                 (marker.lines == 1 ? "" : " (" + std::to_string(marker.lines) + " lines, this is the first)"));
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.1f s", Seconds());
    Complain(Count(m_done - m_failed, "report", "reports") + ", " + std::to_string(m_failed) + " failed, " + seconds);
}

void BatchLog::Advance(std::size_t bytes)
{
    ++m_done;
    m_bytesDone += bytes;
    if (m_line.IsDue())
        Draw();
}

void BatchLog::Draw()
{
    Progress progress{m_done, Seconds(), {}};
    if (m_bytes && *m_bytes > 0)
        progress.part = static_cast<double>(m_bytesDone) / static_cast<double>(*m_bytes);
    m_line.Draw(ProgressLine(progress, TerminalLine::Columns()));
}

double BatchLog::Seconds() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
}

}  // namespace quillmarker::tool
