#include "terminal_line.h"

#include "standard_streams.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <string>

namespace quillmarker::tool
{
namespace
{

using namespace std::chrono_literals;

constexpr auto kBetweenDrawings = 100ms;
constexpr int kUsualColumns = 80;
constexpr std::string_view kEraseLine = "\r\x1b[K";

}  // namespace

TerminalLine::TerminalLine() : m_isTerminal(::isatty(STDERR_FILENO) == 1) {}

bool TerminalLine::IsDue() const
{
    return m_isTerminal && std::chrono::steady_clock::now() - m_drawn >= kBetweenDrawings;
}

void TerminalLine::Draw(std::string_view text)
{
    WriteToTerminal(std::string(kEraseLine) + std::string(text));
    m_drawn = std::chrono::steady_clock::now();
    m_isShown = true;
}

void TerminalLine::Erase()
{
    if (m_isShown)
        WriteToTerminal(kEraseLine);
    m_isShown = false;
}

/// One less than the terminal has: some begin a new line when the last column is written.
int TerminalLine::Columns()
{
    winsize size{};
    const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return (known ? size.ws_col : kUsualColumns) - 1;
}

}  // namespace quillmarker::tool
