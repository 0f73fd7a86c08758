#pragma once

#include <functional>
#include <string>

namespace CLI
{
class App;
}

namespace quillmarker::tool
{

/// What the process tells whoever started it.
enum ExitCode : int {
    kDone = 0,
    kFailed = 1,   // something could not be read, filled or written, or a check found a difference
    kUsage = 2,    // the command line says something that cannot be meant
    kMissing = 3,  // all was written, but markers of the data are not in the template
};

/// A command that was chosen and whose arguments are read: runs it. The result is the process's exit code.
using Action = std::function<int()>;

/// Each declares what a command takes, and returns what it does.
Action AddBuildCommand(CLI::App& command);
Action AddTextCommand(CLI::App& command);
Action AddConvertCommand(CLI::App& command);
Action AddDumpCommand(CLI::App& command);
Action AddCheckCommand(CLI::App& command);

/// Says on standard error what is wrong and where to read on; kUsage.
int RefuseUsage(const std::string& command, const std::string& message);

}  // namespace quillmarker::tool
