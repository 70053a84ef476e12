#include "cli/CommandLine.h"

#include "app/Version.h"
#include "cli/CalibrationCommand.h"
#include "cli/Commands.h"
#include "cli/Errors.h"

#include <algorithm>

namespace linealis::cli {

namespace {

constexpr int done = 0;
constexpr int different = 1;
constexpr int mostJobs = 256;
constexpr int largestThumbnail = 4096;
constexpr double mostDotsPerInch = 9600.0;

const char* const actionHelp =
    "Actions are done in the order in which they stand:\n"
    "  --set CONTROL=VALUE   text; item or #INDEX of a popup or radio group; on or off; color #RRGGBB\n"
    "  --type CONTROL=TEXT   text typed by hand, so that what follows from it is worked out anew\n"
    "  --load FILE           load a settings file\n"
    "  --markers FILE        of graph, with CheckBoxMarkers on: the file of its markers\n"
    "  --wizard CONTROL=TEXT of graph: fill in the wizard, whose OK is pressed after all other actions\n"
    "A control has a name, EditTopMargin, and an alias, top-margin; either will do. 'linealis-cli form KIND' "
    "shows\n"
    "both, 'linealis-cli presets' the presets.\n";

const char* const exitHelp = "Exit status: 0 done; 1 the work failed; 2 the command line is wrong. Of diff: 0 the "
                             "same; 1 different; 2 trouble.\n";

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

}  // namespace

void ActionOptions::AddTo(CLI::App& theCommand)
{
    command = &theCommand;
    Add("--set", "CONTROL=VALUE", "Set a control", Action::Kind::Set);
    Add("--type", "FIELD=TEXT", "Type a text into a field", Action::Kind::Type);
    Add("--load", "FILE", "Load a settings file", Action::Kind::Load);
    Add("--markers", "FILE", "The marker file of a graph with CheckBoxMarkers on", Action::Kind::Markers);
    Add("--wizard", "WIZARD=TEXT", "Fill in the wizard of a graph", Action::Kind::Wizard);
    command->footer(actionHelp);
}

std::vector<Action> ActionOptions::InOrder() const
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

void ActionOptions::Add(const char* name, const char* argument, const char* help, Action::Kind kind)
{
    kinds[command->add_option(name)->description(help)->type_name(argument)->expected(1)->take_all()] = kind;
}

CommandLine::CommandLine()
{
    app.set_version_flag("--version", "linealis-cli " + std::string(versionText));
    app.require_subcommand(1);
    app.footer(exitHelp);
}

const std::vector<CommandLine::Command>& CommandLine::Commands()
{
    static const std::vector<Command> commands = {
        {"kinds", "List the kinds of paper: kind, title, settings extension", &CommandLine::AddKindsOptions,
         &CommandLine::RunKinds},
        {"presets", "List the presets: name, kind, title", &CommandLine::AddPresetsOptions,
         &CommandLine::RunPresets},
        {"form", "Show a form as JSON", &CommandLine::AddFormOptions, &CommandLine::RunForm},
        {"show", "Show what a settings file holds: control, value, words", &CommandLine::AddShowOptions,
         &CommandLine::RunShow},
        {"diff", "Show what differs between two settings files, kinds or presets", &CommandLine::AddDiffOptions,
         &CommandLine::RunDiff},
        {"generate", "Make a page, or many", &CommandLine::AddGenerateOptions, &CommandLine::RunGenerate},
        {"save", "Save a form as a settings file", &CommandLine::AddSaveOptions, &CommandLine::RunSave},
        {"calibration", "Make the sheet that shows how true a printer's lengths are",
         &CommandLine::AddCalibrationOptions, &CommandLine::RunCalibration},
        {"thumbnail", "Make a small picture of the page of a settings file", &CommandLine::AddThumbnailOptions,
         &CommandLine::RunThumbnail},
    };
    return commands;
}

/// The first word that is a command; null if there is none. Throws UsageError if the first word of all is neither
/// a command nor an option.
const CommandLine::Command* CommandLine::FindCommand(const std::vector<std::string>& words)
{
    const auto isCalled = [](const Command& command, const std::string& word) { return command.name == word; };
    for (const std::string& word : words) {
        for (const Command& command : Commands()) {
            if (isCalled(command, word)) {
                return &command;
            }
        }
        if (!word.starts_with('-')) {
            std::vector<std::string> possible;
            for (const Command& command : Commands()) {
                possible.emplace_back(command.name);
            }
            throw Unknown("command", word, possible);
        }
    }
    return nullptr;
}

void CommandLine::Add(const Command& command)
{
    (this->*command.addOptions)(*app.add_subcommand(command.name, command.help));
}

int CommandLine::Run(int argc, char** argv)
{
    const Command* const called = FindCommand({argv + std::min(argc, 1), argv + argc});
    if (called != nullptr) {
        Add(*called);  // and no other: adding all takes as long as a small page
    } else {
        Described();
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() != done) {
            throw Explain(app, error);
        }
        app.exit(error);  // prints the help or the version that was asked for
        return done;
    }
    return (this->*called->run)();
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

const CLI::App& CommandLine::Described()
{
    for (const Command& command : Commands()) {
        Add(command);
    }
    return app;
}

void CommandLine::AddKindsOptions(CLI::App& command)
{
    AddJsonFlag(command);
}

int CommandLine::RunKinds()
{
    ListKinds(asJson);
    return done;
}

void CommandLine::AddPresetsOptions(CLI::App& command)
{
    AddJsonFlag(command);
    command.add_option("--kind", kind, "Of this kind of paper only")->type_name("KIND");
}

int CommandLine::RunPresets()
{
    ListPresets(asJson, kind);
    return done;
}

void CommandLine::AddFormOptions(CLI::App& command)
{
    AddSourceOptions(command);
    actions.AddTo(command);
}

int CommandLine::RunForm()
{
    ShowForm(SourcesOf(begin).front(), actions.InOrder());
    return done;
}

void CommandLine::AddShowOptions(CLI::App& command)
{
    command.add_option("source", begin.names, "A settings file, a kind of paper or a preset")
        ->type_name("SOURCE")
        ->required()
        ->expected(1);
    AddJsonFlag(command);
}

int CommandLine::RunShow()
{
    Show(SourceNamed(begin.names.front()), asJson);
    return done;
}

void CommandLine::AddDiffOptions(CLI::App& command)
{
    command.add_option("sources", begin.names, "Two settings files, kinds of paper or presets")
        ->type_name("SOURCE")
        ->required()
        ->expected(2);
    AddJsonFlag(command);
}

int CommandLine::RunDiff()
{
    return Differ(SourceNamed(begin.names[0]), SourceNamed(begin.names[1]), asJson) ? different : done;
}

void CommandLine::AddGenerateOptions(CLI::App& command)
{
    AddBeginningOptions(command);
    command.add_option("source", begin.names, "A kind of paper, or settings files")->type_name("SOURCE");
    command
        .add_option("-o,--output", request.output,
                    "The file: .pdf, .svg or .png; without an ending a PDF file; - is standard output")
        ->type_name("FILE");
    command.add_option("--output-dir", request.outputDirectory, "Folder for a file named after each source")
        ->type_name("DIR");
    command.add_option("--format", request.format, "pdf, svg or png, whatever the file's ending")
        ->type_name("FORMAT");
    command.add_option("--dpi", request.dotsPerInch, "Pixels per inch of a PNG file")
        ->type_name("NUMBER")
        ->check(CLI::Range(1.0, mostDotsPerInch).description(""))
        ->capture_default_str();
    command.add_flag("--transparent", request.isTransparent, "A PNG file without the white of the paper");
    command
        .add_option(
            "--table", request.table,
            "A page for each row of a CSV file, whose head names a control a column; the column 'file' names "
            "the pages")
        ->type_name("FILE");
    command.add_option("-j,--jobs", request.jobs, "Pages that are made at a time")
        ->type_name("NUMBER")
        ->check(CLI::Range(1, mostJobs).description(""));
    command.add_flag("--view", request.view, "Open the page in the viewer");
    command.add_flag("--check", request.check, "Write nothing, and say what will disappoint on paper");
    command.add_flag("--json", request.asJson, "With --check: as JSON");
    actions.AddTo(command);
}

int CommandLine::RunGenerate()
{
    request.sources = SourcesOf(begin);
    request.actions = actions.InOrder();
    Generate(request);
    return done;
}

void CommandLine::AddSaveOptions(CLI::App& command)
{
    AddSourceOptions(command);
    AddOutputOption(command, "The settings file; - is standard output");
    actions.AddTo(command);
}

int CommandLine::RunSave()
{
    Save(SourcesOf(begin).front(), actions.InOrder(), output);
    return done;
}

void CommandLine::AddCalibrationOptions(CLI::App& command)
{
    AddOutputOption(command, "The PDF file; - is standard output");
    command.add_option("--paper", paper, "a4 or letter")->type_name("PAPER")->capture_default_str();
}

int CommandLine::RunCalibration()
{
    MakeCalibrationSheet(paper, output);
    return done;
}

void CommandLine::AddThumbnailOptions(CLI::App& command)
{
    command.add_option("settings", settingsFile, "The settings file")->type_name("FILE")->required();
    command.add_option("output", output, "The PNG file")->type_name("FILE")->required();
    command.add_option("--size", size, "Pixels of its longer side")
        ->type_name("NUMBER")
        ->check(CLI::Range(1, largestThumbnail).description(""))
        ->capture_default_str();
}

int CommandLine::RunThumbnail()
{
    MakeThumbnail(settingsFile, output, size);
    return done;
}

void CommandLine::AddBeginningOptions(CLI::App& command)
{
    command.add_option("--preset", begin.preset, "Begin with a preset, which tells the kind of paper")
        ->type_name("PRESET");
    command
        .add_option("--form", begin.form,
                    "Lay over it a form: the JSON that form prints, or a part of it, or an SVG or PNG page; - is "
                    "standard input")
        ->type_name("FILE");
}

/// Of a command that takes one source.
void CommandLine::AddSourceOptions(CLI::App& command)
{
    AddBeginningOptions(command);
    command.add_option("source", begin.names, "A kind of paper, or a settings file")
        ->type_name("SOURCE")
        ->expected(0, 1);
}

void CommandLine::AddOutputOption(CLI::App& command, const char* help)
{
    command.add_option("-o,--output", output, help)->type_name("FILE")->required();
}

void CommandLine::AddJsonFlag(CLI::App& command)
{
    command.add_flag("--json", asJson, "As JSON");
}

}  // namespace linealis::cli
