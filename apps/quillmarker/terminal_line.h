#pragma once

#include <chrono>
#include <string_view>

namespace quillmarker::tool
{

/// A line that is drawn over and over on standard error, at most ten times a second, where that is a terminal.
class TerminalLine
{
public:
    TerminalLine();

    /// Whether to draw it again now.
    bool IsDue() const;
    void Draw(std::string_view text);
    /// Makes room for other lines.
    void Erase();

    /// How long it may be.
    static int Columns();

private:
    std::chrono::steady_clock::time_point m_drawn{};
    bool m_isTerminal;
    bool m_isShown = false;
};

}  // namespace quillmarker::tool
