#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>

namespace quillmarker::tool
{

/// A line of a data file. `size` is what it takes in the file.
struct DataLine
{
    std::int64_t number = 0;
    std::int64_t ticket = 0;  // counts the lines that hold data, from 0
    std::size_t size = 0;
    std::string text;
};

/// Hands lines from the one who reads to those who work, first in, first out; who reads waits while it is full.
class LineQueue
{
public:
    explicit LineQueue(std::size_t capacity) : m_capacity(capacity) {}

    void Push(DataLine line)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_lines.size() < m_capacity; });
        m_lines.push_back(std::move(line));
        m_changed.notify_all();
    }

    /// No more lines will come.
    void Close()
    {
        const std::scoped_lock lock(m_mutex);
        m_closed = true;
        m_changed.notify_all();
    }

    /// Waits for a line; empty when there are no more.
    std::optional<DataLine> Pop()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_closed || !m_lines.empty(); });
        if (m_lines.empty())
            return std::nullopt;
        DataLine line = std::move(m_lines.front());
        m_lines.pop_front();
        m_changed.notify_all();
        return line;
    }

private:
    std::size_t m_capacity;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<DataLine> m_lines;
    bool m_closed = false;
};

}  // namespace quillmarker::tool
