#pragma once

#include "report_data.h"
#include "terminal_line.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace quillmarker::tool
{

/// What a batch says on standard error: what went wrong, at the end what came of it, and on a terminal how far it is.
/// Threads may share it.
class BatchLog
{
public:
    /// `source` is how the data is called; `bytes` its size, if that is known.
    BatchLog(std::string source, std::optional<std::uintmax_t> bytes);

    /// One line is done; `bytes` is what it took in the data.
    void Done(std::size_t bytes);
    /// One line is done, but gave no report; the message says where.
    void Failed(std::size_t bytes, const std::string& message);
    /// Markers of a line that are not in the template. They are told at the end, each once.
    void Missing(std::int64_t line, const std::vector<std::string>& markers);

    /// Says what was missing and what came of it all.
    void Finish();

    bool HasFailures() const { return m_failed > 0; }
    bool HasMissing() const { return !m_missing.empty(); }

private:
    struct MissingMarker
    {
        std::int64_t lines = 0;
        std::int64_t first = 0;
    };

    void Advance(std::size_t bytes);
    void Draw();
    double Seconds() const;

    std::string m_source;
    std::optional<std::uintmax_t> m_bytes;
    std::mutex m_mutex;
    std::int64_t m_done = 0;
    std::int64_t m_failed = 0;
    std::uintmax_t m_bytesDone = 0;
    std::map<std::string, MissingMarker> m_missing;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    TerminalLine m_line;
};

}  // namespace quillmarker::tool
