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
    {"convert", "Write a document anew, as RTF, text, PDF or PNG", AddConvertCommand},
    {"dump", "Print a document's inner structure", AddDumpCommand},
    {"check", "Check that documents survive being written and read", AddCheckCommand},
};

constexpr const char* kName = "quillmarker";
constexpr const char* kVersion = "quillmarker " QUILLMARKER_VERSION;
constexpr const char* kDescription = "Fills, reads and converts rich-text reports.";
constexpr const char* kFooter = "quillmarker COMMAND --help says more.";

/// The command as it was typed so far: "quillmarker build".
std::string TypedCommand(const CLI::App& app)
{
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? kName : kName + (" " + chosen.front()->get_name());
}

std::string CommandNames()
{
    std::string names;
    for (const Command& command : kCommands)
        names += (names.empty() ? "" : ", ") + std::string(command.name);
    return names;
}

/// In the tool's words where the parser's could mislead: it misses an argument before it minds one too many.
std::string MessageFor(const CLI::App& app, const CLI::ParseError& error)
{
    const bool isCommandChosen = !app.get_subcommands().empty();
    const auto surplus = app.remaining(true);
    if (!surplus.empty() && surplus.front().starts_with('-'))
        return "there is no option " + surplus.front();
    if (!surplus.empty() && isCommandChosen)
        return "there is nothing to do with \"" + surplus.front() + "\"; one argument too many?";
    if (!isCommandChosen)
        return (surplus.empty() ? "the command is missing" : "there is no command \"" + surplus.front() + "\"") + ": " +
               CommandNames();
    return error.what();
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
    std::string message = MessageFor(app, error);
    std::ranges::replace(message, '\n', ' ');
    return RefuseUsage(TypedCommand(app), message);
}

int Run(int argc, char** argv)
{
    CLI::App app(kDescription, kName);
    app.set_version_flag("--version", kVersion);
    app.footer(kFooter);
    app.require_subcommand(1);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND ...");
    app.get_formatter()->label("Positionals", "Arguments");
    app.get_formatter()->label("REQUIRED", "(required)");
    app.get_formatter()->label("TEXT", "");
    std::vector<std::pair<CLI::App*, Action>> actions;
    for (const Command& command : kCommands)
    {
        CLI::App* const subcommand = app.add_subcommand(command.name, command.description);
        subcommand->group("Commands");
        subcommand->set_version_flag("--version", kVersion);
        actions.emplace_back(subcommand, command.add(*subcommand));
    }
    app.set_help_all_flag("--help-all", "Print the help of all commands");
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
