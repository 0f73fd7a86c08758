#include "command.h"
#include "standard_streams.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <iostream>
#include <sstream>
#include <utility>
#include <vector>

namespace
{

using namespace quillmarker::tool;

struct Command
{
    const char* name;
    const char* description;
    Action (*add)(CLI::App&);
};

constexpr Command kCommands[] = {
    {"build", "Fill a template with data: one report, or one a line", AddBuildCommand},
    {"text", "Print the text of a document", AddTextCommand},
    {"convert", "Write a document anew, as RTF or as text", AddConvertCommand},
    {"dump", "Print a document's inner structure", AddDumpCommand},
    {"check", "Check that documents survive being written and read", AddCheckCommand},
};

constexpr const char* kName = "quillmarker";
constexpr const char* kVersion = "quillmarker " QUILLMARKER_VERSION;
constexpr const char* kDescription = "Fills, reads and converts rich-text reports.";
constexpr const char* kFooter = "\nquillmarker COMMAND --help says more.";

/// The command as it was typed so far: "quillmarker build".
std::string TypedCommand(const CLI::App& app)
{
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? kName : kName + (" " + chosen.front()->get_name());
}

/// Help and the version go to standard output; anything else is one line on standard error.
int Explain(const CLI::App& app, const CLI::ParseError& error)
{
    if (error.get_exit_code() == 0)
    {
        std::ostringstream text;
        app.exit(error, text, text);
        Print(text.str());
        return kDone;
    }
    std::string message = error.what();
    std::ranges::replace(message, '\n', ' ');
    return RefuseUsage(TypedCommand(app), message);
}

int Run(int argc, char** argv)
{
    CLI::App app(kDescription, kName);
    app.set_version_flag("--version", kVersion);
    app.set_help_all_flag("--help-all", "Print the help of all commands");
    app.footer(kFooter);
    app.require_subcommand(1);
    std::vector<std::pair<CLI::App*, Action>> actions;
    for (const Command& command : kCommands)
    {
        CLI::App* const subcommand = app.add_subcommand(command.name, command.description);
        subcommand->set_version_flag("--version", kVersion);
        actions.emplace_back(subcommand, command.add(*subcommand));
    }
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        return Explain(app, error);
    }
    const auto chosen = std::ranges::find_if(actions, [](const auto& row) { return row.first->parsed(); });
    return chosen->second();
}

}  // namespace

int main(int argc, char** argv)
{
    PrepareStandardStreams();
    std::ios::sync_with_stdio(false);
    try
    {
        return FinishOutput(Run(argc, argv));
    }
    catch (const std::exception& error)
    {
        Complain(error.what());
        return kFailed;
    }
}
