#include "cli/CommandLine.h"

#include "cli/Errors.h"
#include "platform/Version.h"

#include <algorithm>
#include <utility>

namespace linealis::cli {

namespace {

const char* const exitsOfAll =
    "Exit status: 0 done; 1 the work failed; 2 the command line is wrong. Of diff: 0 the same; 1 different; 2 "
    "trouble.\n"
    "'linealis-cli help COMMAND' shows the options of a command.\n";

/// Returns the error for a command line that CLI11 rejected. For an unknown option, CLI11 only reports the word;
/// this adds the options that the command has, nearest first.
UsageError Explain(const CLI::App& app, const CLI::ParseError& error)
{
    const std::vector<CLI::App*> chosen = app.get_subcommands();
    const std::vector<std::string> left = app.remaining(true);
    if (chosen.empty() || left.empty()) {
        return {error.what()};
    }
    if (!left.front().starts_with('-')) {
        return {"'" + left.front() + "' is one argument too many"};
    }
    std::vector<std::string> possible;
    for (const CLI::Option* const option : chosen.front()->get_options()) {
        if (!option->get_lnames().empty()) {
            possible.push_back("--" + option->get_lnames().front());
        }
    }
    return Unknown("option of " + chosen.front()->get_name(), left.front(), possible);
}

}  // namespace

CommandLine::CommandLine()
{
    app.set_version_flag("--version", "linealis-cli " + std::string(versionText));
    app.require_subcommand(1);
}

/// Throws UsageError if there is no such command.
const CommandLine::Command& CommandLine::CommandNamed(const std::string& name)
{
    std::vector<std::string> possible;
    for (const Command& command : Commands()) {
        if (command.name == name) {
            return command;
        }
        possible.emplace_back(command.name);
    }
    throw Unknown("command", name, possible);
}

/// Returns the command that the first word without a leading dash names, or null if all words are options. Throws
/// UsageError if that word names no command.
const CommandLine::Command* CommandLine::FindCommand(const std::vector<std::string>& words)
{
    const auto word =
        std::find_if(words.begin(), words.end(), [](const std::string& each) { return !each.starts_with('-'); });
    return word == words.end() ? nullptr : &CommandNamed(*word);
}

/// Adds a command with its options and its exit statuses in the help.
void CommandLine::Add(const Command& command)
{
    CLI::App& added = *app.add_subcommand(command.name, command.help);
    (this->*command.addOptions)(added);
    added.footer(added.get_footer() + command.exits);
}

int CommandLine::Run(int argc, char** argv)
{
    given.emplace(argv + std::min(argc, 1), argv + argc);
    const Command* const called = FindCommand(*given);
    if (called == nullptr) {
        given.reset();
        return ParseAndRun(nullptr, argc, argv);
    }
    try {
        return ParseAndRun(called, argc, argv);
    } catch (const CLI::ParseError&) {  // parse again with all options, for a complete help or message
        return CommandLine().ParseAndRun(called, argc, argv);
    }
}

/// If only the given options were added, throws CLI::ParseError, so that the caller can repeat the parse with all
/// options. Otherwise reports the error as UsageError, or prints the help or version asked for.
int CommandLine::ParseAndRun(const Command* called, int argc, char** argv)
{
    if (called != nullptr) {
        Add(*called);
    } else {
        Described();
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (given) {
            throw;
        }
        if (error.get_exit_code() != done) {
            throw Explain(app, error);
        }
        app.exit(error);  // prints the help or the version
        return done;
    }
    return (this->*called->run)();
}

/// Whether one of the names, such as "-o,--output", begins a word of the command line: "-oFILE" and "--output=FILE"
/// count too. A false hit only adds an option that is not used.
bool CommandLine::IsWanted(std::string_view names) const
{
    if (!given) {
        return true;
    }
    while (!names.empty()) {
        const std::string_view name = names.substr(0, names.find(','));
        names.remove_prefix(std::min(name.size() + 1, names.size()));
        if (std::any_of(given->begin(), given->end(),
                        [&](const std::string& word) { return word.starts_with(name); })) {
            return true;
        }
    }
    return false;
}

Completions CommandLine::Complete(const std::vector<std::string>& words)
{
    Described();
    const auto command =
        std::find_if(words.begin(), words.end(), [](const std::string& word) { return !word.starts_with('-'); });
    if (words.end() - command <= 1) {
        return CompleteCommand(app, words.empty() ? "" : words.back());
    }
    for (const CLI::App* const called : app.get_subcommands(nullptr)) {
        if (called->get_name() == *command) {
            return CompleteArgument(*called, {command + 1, words.end()});
        }
    }
    return {};
}

CLI::App& CommandLine::Described()
{
    for (const Command& command : Commands()) {
        Add(command);
    }
    app.footer(exitsOfAll);
    return app;
}

}  // namespace linealis::cli
