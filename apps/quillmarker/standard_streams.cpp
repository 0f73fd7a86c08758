#include "standard_streams.h"

#include "command.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

namespace quillmarker::tool
{
namespace
{

int outputError = 0;

/// 0, or the system's number of what went wrong.
int WriteAll(int stream, std::string_view text)
{
    while (!text.empty())
    {
        const ssize_t written = ::write(stream, text.data(), text.size());
        if (written >= 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            return errno;
    }
    return 0;
}

}  // namespace

int RefuseUsage(const std::string& command, const std::string& message)
{
    Complain(message + " (see: " + command + " --help)");
    return kUsage;
}

void PrepareStandardStreams()
{
    // The lowest free number is given out: each of the three is opened in turn if it is closed.
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (::fcntl(stream, F_GETFD) < 0 && ::open("/dev/null", O_RDWR) < 0)
            std::_Exit(kFailed);
    std::signal(SIGPIPE, SIG_IGN);
}

void Print(std::string_view text)
{
    if (outputError == 0)
        outputError = WriteAll(STDOUT_FILENO, text);
}

bool CanPrint() { return outputError == 0; }

void Complain(std::string_view message)
{
    // One write, so that lines of several processes do not mix.
    WriteAll(STDERR_FILENO, "quillmarker: " + std::string(message) + "\n");
}

void WriteToTerminal(std::string_view text) { WriteAll(STDERR_FILENO, text); }

int FinishOutput(int code)
{
    if (outputError == 0 || outputError == EPIPE)
        return code;
    Complain("standard output: " + std::generic_category().message(outputError));
    return kFailed;
}

}  // namespace quillmarker::tool
