#include "app/Version.h"
#include "cli/CalibrationCommand.h"
#include "cli/Commands.h"
#include "cli/Errors.h"
#include "platform/Process.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <map>
#include <new>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace linealis::cli;

constexpr int success = 0;
constexpr int workFailed = 1;
constexpr int usageWrong = 2;

const char* const actionHelp =
    "Actions are done in the order in which they stand:\n"
    "  --set CONTROL=VALUE   text; item or #INDEX of a popup or radio group; on or off; color #RRGGBB\n"
    "  --type CONTROL=TEXT   text typed by hand, so that what follows from it is worked out anew\n"
    "  --load FILE           load a settings file\n"
    "  --markers FILE        of graph, with CheckBoxMarkers on: the file of its markers\n"
    "  --wizard CONTROL=TEXT of graph: fill in the wizard, whose OK is pressed after all other actions\n"
    "'linealis-cli form KIND' shows the controls, 'linealis-cli presets' the presets.";

const char* const exitHelp = "Exit status: 0 done; 1 the work failed; 2 the command line is wrong.";

/// The options that are actions, and what they were given, in the order of the command line.
class ActionOptions {
public:
    void AddTo(CLI::App& theCommand)
    {
        command = &theCommand;
        Add("--set", "CONTROL=VALUE", "Set a control", Action::Kind::Set);
        Add("--type", "CONTROL=TEXT", "Type a text into a field", Action::Kind::Type);
        Add("--load", "FILE", "Load a settings file", Action::Kind::Load);
        Add("--markers", "FILE", "The marker file of a graph with CheckBoxMarkers on", Action::Kind::Markers);
        Add("--wizard", "CONTROL=TEXT", "Fill in the wizard of a graph", Action::Kind::Wizard);
        command->footer(actionHelp);
    }

    std::vector<Action> InOrder() const
    {
        std::vector<Action> actions;
        std::map<const CLI::Option*, std::size_t> taken;
        for (const CLI::Option* const option : command->parse_order()) {
            if (const auto kind = kinds.find(option); kind != kinds.end()) {
                actions.push_back({kind->second, option->results()[taken[option]++]});
            }
        }
        return actions;
    }

private:
    void Add(const char* name, const char* argument, const char* help, Action::Kind kind)
    {
        kinds[command->add_option(name)->description(help)->type_name(argument)->expected(1)->take_all()] = kind;
    }

    CLI::App* command = nullptr;
    std::map<const CLI::Option*, Action::Kind> kinds;
};

/// What CLI11 says of a wrong command line, or what is possible where it only says what is wrong.
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

std::vector<std::string> CommandsOf(const CLI::App& app)
{
    std::vector<std::string> names;
    for (const CLI::App* const command : app.get_subcommands(nullptr)) {
        names.push_back(command->get_name());
    }
    return names;
}

/// The first word that is a command; empty if there is none. Throws UsageError if the first word of all is neither
/// a command nor an option.
std::string CalledCommand(const CLI::App& app, const std::vector<std::string>& words)
{
    const std::vector<std::string> commands = CommandsOf(app);
    const auto called = std::find_first_of(words.begin(), words.end(), commands.begin(), commands.end());
    if (called != words.begin() && !words.front().starts_with('-')) {
        throw Unknown("command", words.front(), commands);
    }
    return called == words.end() ? "" : *called;
}

/// The commands and what they were given.
class CommandLine {
public:
    CommandLine()
    {
        app.set_version_flag("--version", "linealis-cli " + std::string(linealis::versionText));
        app.require_subcommand(1);
        app.footer(exitHelp);
    }

    /// Parses the command line and does what it says.
    void Run(int argc, char** argv)
    {
        AddOptionsOf(CalledCommand(app, {argv + std::min(argc, 1), argv + argc}));
        try {
            app.parse(argc, argv);
        } catch (const CLI::ParseError& error) {
            if (error.get_exit_code() != success) {
                throw Explain(app, error);
            }
            app.exit(error);  // prints the help or the version that was asked for
            return;
        }
        RunCommand();
    }

private:
    CLI::App& Add(const char* name, const char* help) { return *app.add_subcommand(name, help); }

    /// The options of the command that was called. Adding those of all takes as long as a small page.
    void AddOptionsOf(const std::string& called)
    {
        if (called == kinds.get_name()) {
            kinds.add_flag("--json", asJson, "As JSON");
        } else if (called == presets.get_name()) {
            presets.add_flag("--json", asJson, "As JSON");
            presets.add_option("--kind", kind, "Of this kind of paper only")->type_name("KIND");
        } else if (called == form.get_name()) {
            AddSourceOptions(form);
            actions.AddTo(form);
        } else if (called == generate.get_name()) {
            AddGenerateOptions();
            actions.AddTo(generate);
        } else if (called == save.get_name()) {
            AddSourceOptions(save);
            save.add_option("-o,--output", output, "The settings file; - is standard output")
                ->type_name("FILE")
                ->required();
            actions.AddTo(save);
        } else if (called == calibration.get_name()) {
            AddCalibrationOptions();
        }
    }

    void AddPresetOption(CLI::App& command)
    {
        command.add_option("--preset", preset, "Begin with a preset, which tells the kind of paper")
            ->type_name("NAME");
    }

    /// Of a command that takes one source.
    void AddSourceOptions(CLI::App& command)
    {
        AddPresetOption(command);
        command.add_option("source", source, "A kind of paper, or a settings file");
    }

    void AddGenerateOptions()
    {
        AddPresetOption(generate);
        generate.add_option("source", sources, "A kind of paper, or settings files");
        generate.add_option("-o,--output", request.output, "The PDF file; - is standard output")->type_name("FILE");
        generate
            .add_option("--output-dir", request.outputDirectory, "Folder for a PDF file named after each source")
            ->type_name("DIR");
        generate.add_flag("--view", request.view, "Open the page in the viewer");
        generate.add_flag("--check", request.check, "Write nothing, and say what will disappoint on paper");
        generate.add_flag("--json", request.asJson, "With --check: as JSON");
    }

    /// The one source of a command that takes no more.
    Source OneSource() const
    {
        const auto names = source ? std::vector{*source} : std::vector<std::string>{};
        return SourcesOf(names, preset).front();
    }

    void AddCalibrationOptions()
    {
        calibration.add_option("-o,--output", output, "The PDF file; - is standard output")
            ->type_name("FILE")
            ->required();
        calibration.add_option("--paper", paper, "a4 or letter")->type_name("PAPER")->capture_default_str();
    }

    void RunCommand()
    {
        if (kinds.parsed()) {
            ListKinds(asJson);
        } else if (presets.parsed()) {
            ListPresets(asJson, kind);
        } else if (form.parsed()) {
            ShowForm(OneSource(), actions.InOrder());
        } else if (generate.parsed()) {
            request.sources = SourcesOf(sources, preset);
            request.actions = actions.InOrder();
            Generate(request);
        } else if (calibration.parsed()) {
            MakeCalibrationSheet(paper, output);
        } else {
            Save(OneSource(), actions.InOrder(), output);
        }
    }

    CLI::App app{"Makes printable paper as PDF files.", "linealis-cli"};
    CLI::App& kinds = Add("kinds", "List the kinds of paper: kind, title, settings extension");
    CLI::App& presets = Add("presets", "List the presets: name, kind, title");
    CLI::App& form = Add("form", "Show a form as JSON");
    CLI::App& generate = Add("generate", "Make a page");
    CLI::App& save = Add("save", "Save a form as a settings file");
    CLI::App& calibration = Add("calibration", "Make the sheet that shows how true a printer's lengths are");
    ActionOptions actions;
    bool asJson = false;
    std::optional<std::string> kind;
    std::optional<std::string> preset;
    std::optional<std::string> source;
    std::vector<std::string> sources;  ///< of generate
    std::string output;
    std::string paper = "a4";
    GenerateRequest request;
};

}  // namespace

int main(int argc, char** argv)
{
    linealis::EndCleanlyOnSignals();
    try {
        CommandLine().Run(argc, argv);
        if (!std::cout.flush()) {
            throw WorkError{"standard output could not be written"};
        }
        return success;
    } catch (const WorkError& error) {
        Complain(error.message);
        return workFailed;
    } catch (const UsageError& error) {
        Complain(error.message);
        return usageWrong;
    } catch (const std::bad_alloc&) {
        std::fputs("linealis-cli: there is not enough memory\n", stderr);
        return workFailed;
    } catch (const std::exception& error) {
        Complain(error.what());
        return workFailed;
    } catch (...) {
        Complain("the work failed for an unknown reason");
        return workFailed;
    }
}
