#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

namespace quillmarker::tool
{

/// Where in a text of several lines a parser stands, counted from 1.
struct SourcePosition
{
    std::int64_t line = 1;
    std::int64_t column = 0;

    /// "3:14", as editors and compilers write it.
    std::string Text() const { return std::to_string(line) + ":" + std::to_string(column < 1 ? 1 : column); }
};

/// Walks over UTF-8 and keeps a position up to date: that of the last character walked over.
class TrackingIterator
{
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    TrackingIterator(const char* at, SourcePosition& position) : m_at(at), m_position(&position) {}

    reference operator*() const { return *m_at; }
    TrackingIterator& operator++()
    {
        if (m_afterLine)
            *m_position = {m_position->line + 1, 0};
        m_afterLine = *m_at == '\n';
        if ((static_cast<unsigned char>(*m_at) & 0xC0) != 0x80)  // continuation bytes take no column
            ++m_position->column;
        ++m_at;
        return *this;
    }
    TrackingIterator operator++(int)
    {
        const TrackingIterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const TrackingIterator& other) const { return m_at == other.m_at; }
    bool operator!=(const TrackingIterator& other) const { return m_at != other.m_at; }

private:
    const char* m_at;
    SourcePosition* m_position;
    bool m_afterLine = false;
};

}  // namespace quillmarker::tool
