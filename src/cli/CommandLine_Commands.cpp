#include "cli/CommandLine.h"

#include "cli/CalibrationCommand.h"
#include "cli/Commands.h"
#include "cli/Errors.h"
#include "exchange/PageFormats.h"

#include <cmath>
#include <iostream>

namespace linealis::cli {

namespace {

// Exit statuses of commands that did their work, besides `done`. Main.cpp has those of failures.
constexpr int different = 1;
constexpr int found = 1;
constexpr std::size_t mostJobs = 256;
constexpr int largestThumbnail = 4096;
constexpr double mostDotsPerInch = 9600.0;

// The source count of a command that takes any number of sources.
constexpr int anyNumber = -1;

constexpr const char* saidAsJson = "Say as JSON what was made";

/// Rejects "nan", which CLI11's range check accepts because it compares false with both bounds.
CLI::Validator IsNumber()
{
    return {[](const std::string& text) {
                double number = 0.0;
                const bool isNone = CLI::detail::lexical_cast(text, number) && std::isnan(number);
                return isNone ? text + " is not a number" : std::string();
            },
            ""};
}

}  // namespace

const char* const CommandLine::usualExits =
    "Exit status: 0 done; 1 the work failed; 2 the command line is wrong.\n";

const std::vector<CommandLine::Command>& CommandLine::Commands()
{
    static const std::vector<Command> commands = {
        {"kinds", "List the kinds of paper: kind, title, settings extension", &CommandLine::AddKindsOptions,
         &CommandLine::RunKinds},
        {"presets", "List the presets: name, kind, title", &CommandLine::AddPresetsOptions,
         &CommandLine::RunPresets},
        {"devices", "List the devices: name, title, pixels, dpi, grays", &CommandLine::AddDevicesOptions,
         &CommandLine::RunDevices},
        {"form", "Show a form as JSON", &CommandLine::AddFormOptions, &CommandLine::RunForm},
        {"link", "Show a form as a link: the part of the page's address after #", &CommandLine::AddLinkOptions,
         &CommandLine::RunLink},
        {"schema", "Show the JSON Schema of the forms of a kind, or of all kinds", &CommandLine::AddSchemaOptions,
         &CommandLine::RunSchema},
        {"show", "Show what a settings file or another source holds: control, value, words",
         &CommandLine::AddShowOptions, &CommandLine::RunShow},
        {"diff", "Show what differs between two forms of one kind", &CommandLine::AddDiffOptions,
         &CommandLine::RunDiff, "Exit status: 0 the same; 1 different; 2 trouble.\n"},
        {"generate", "Make a page, or many", &CommandLine::AddGenerateOptions, &CommandLine::RunGenerate,
         "Exit status: 0 done; 1 the work failed, or --check --strict found something; 2 the command line is "
         "wrong.\n"},
        {"pad", "Make a file of many pages, to print a pad", &CommandLine::AddPadOptions, &CommandLine::RunPad},
        {"save", "Save a form as a settings file", &CommandLine::AddSaveOptions, &CommandLine::RunSave},
        {"calibration", "Make a sheet that shows how accurate a printer is", &CommandLine::AddCalibrationOptions,
         &CommandLine::RunCalibration},
        {"thumbnail", "Make a small picture of a page", &CommandLine::AddThumbnailOptions,
         &CommandLine::RunThumbnail},
        {"help", "Show what a command does and takes", &CommandLine::AddHelpOptions, &CommandLine::RunHelp},
    };
    return commands;
}

template <typename Value>
CLI::Option* CommandLine::AddOption(CLI::App& command, const char* names, const char* argument, Value& value,
                                    const std::string& help)
{
    return IsWanted(names) ? command.add_option(names, value, help)->type_name(argument) : nullptr;
}

void CommandLine::AddFlag(CLI::App& command, const char* name, bool& value, const std::string& help)
{
    if (IsWanted(name)) {
        command.add_flag(name, value, help);
    }
}

/// Adds an option that takes a number from 1 to `most`.
template <typename Number>
void CommandLine::AddNumber(CLI::App& command, const char* names, Number& value, Number most, const char* help)
{
    if (CLI::Option* const option = AddOption(command, names, "NUMBER", value, help)) {
        option->check(CLI::Range(Number{1}, most).description(""))->check(IsNumber())->capture_default_str();
    }
}

void CommandLine::AddKindsOptions(CLI::App& command)
{
    AddJsonFlag(command);
}

int CommandLine::RunKinds()  // NOLINT(readability-make-member-function-const): the command table needs this type
{
    ListKinds(asJson);
    return done;
}

void CommandLine::AddPresetsOptions(CLI::App& command)
{
    AddJsonFlag(command);
    AddOption(command, "--kind", "KIND", kind, "Only those of this kind of paper");
}

void CommandLine::AddDevicesOptions(CLI::App& command)
{
    AddJsonFlag(command);
}

int CommandLine::RunDevices()  // NOLINT(readability-make-member-function-const): the command table needs this type
{
    ListDevices(asJson);
    return done;
}

int CommandLine::RunPresets()
{
    ListPresets(asJson, kind);
    return done;
}

void CommandLine::AddFormOptions(CLI::App& command)
{
    AddBeginningOptions(command);
    AddSources(command, 1);
    AddActions(command);
}

int CommandLine::RunForm()
{
    ShowForm(SourcesOf(begin).front(), actions.InOrder());
    return done;
}

void CommandLine::AddLinkOptions(CLI::App& command)
{
    AddFormOptions(command);
    AddJsonFlag(command);
}

int CommandLine::RunLink()
{
    ShowLink(SourcesOf(begin).front(), actions.InOrder(), asJson);
    return done;
}

void CommandLine::AddSchemaOptions(CLI::App& command)
{
    command.add_option("kind", kind, "One of the kinds of paper; without it, all kinds")->type_name("KIND");
}

int CommandLine::RunSchema()  // NOLINT(readability-make-member-function-const): the command table needs this type
{
    ShowSchema(kind);
    return done;
}

void CommandLine::AddShowOptions(CLI::App& command)
{
    AddSources(command, 1)->required();
    AddJsonFlag(command);
}

int CommandLine::RunShow()
{
    Show(SourceNamed(begin.names.front()), asJson);
    return done;
}

void CommandLine::AddDiffOptions(CLI::App& command)
{
    AddSources(command, 2)->required();
    AddJsonFlag(command);
}

int CommandLine::RunDiff()
{
    return Differ(SourceNamed(begin.names[0]), SourceNamed(begin.names[1]), asJson) ? different : done;
}

void CommandLine::AddGenerateOptions(CLI::App& command)
{
    const std::string pixels = FormatTitles(&PageFormat::hasPixels);
    AddBeginningOptions(command);
    AddSources(command, anyNumber);
    AddOption(command, "-o,--output", "FILE", request.output,
              "The file: " + FormatNames(".") + "; without an ending a PDF file; - is standard output");
    AddOption(command, "--output-dir", "DIR", request.outputDirectory, "Folder for a file named after each source");
    AddOption(command, "--format", "FORMAT", request.format, FormatNames() + ", whatever the file's ending");
    if (CLI::Option* const dpi = AddOption(command, "--dpi", "NUMBER", request.how.dotsPerInch,
                                           "Pixels per inch of a " + pixels + " file [300]")) {
        dpi->check(CLI::Range(1.0, mostDotsPerInch).description(""))->check(IsNumber());
    }
    AddOption(command, "--device", "DEVICE", request.device,
              "Make a " + pixels +
                  " file that fills a screen; 'linealis-cli devices' lists them; or WIDTHxHEIGHT@DPI");
    AddFlag(command, "--fit", request.how.fitsScreen,
            "With --device: scale the page to the screen instead of giving it the screen's size");
    AddFlag(command, "--transparent", request.how.isTransparent,
            "Make the background of a " + pixels + " file transparent");
    AddOption(command, "--table", "FILE", request.table,
              "Make one page per row of a CSV file whose header names the controls; the column 'file' names the "
              "pages");
    AddNumber(command, "-j,--jobs", request.jobs, mostJobs, "Pages to make in parallel");
    AddFlag(command, "--view", request.how.view, "Open the page in the viewer");
    AddFlag(command, "--check", request.check, "List likely printing problems; write nothing");
    AddFlag(command, "--strict", request.isStrict, "With --check: exit with status 1 if anything is found");
    AddFlag(command, "--json", request.asJson, "Say as JSON what was made, or found by --check");
    AddActions(command);
}

int CommandLine::RunGenerate()
{
    request.sources = SourcesOf(begin);
    request.actions = actions.InOrder();
    return Generate(request) ? found : done;
}

void CommandLine::AddPadOptions(CLI::App& command)
{
    AddBeginningOptions(command);
    AddSources(command, anyNumber);
    AddOutputOption(command, "The PDF file; - is standard output");
    if (CLI::Option* const pages = AddOption(command, "--pages", "NUMBER", pad.options.pages,
                                             "Pages to print on the front [50]; several sources alternate")) {
        pages->check(CLI::Range(std::size_t{1}, mostPadPages).description(""))->check(IsNumber());
    }
    AddOption(command, "--table", "FILE", pad.table, "Make one front page per row of a CSV file, as generate does");
    AddNumber(command, "--up", pad.options.up, possiblePagesUp.back(),
              "Pages on each side of a sheet: 1, 2 or 4, with cut marks");
    AddOption(command, "--back", "SOURCE", pad.back, "The page to print on every back");
    AddFlag(command, "--numbers", pad.options.hasNumbers,
            "Number the front pages, in the order of the stacks after cutting");
    AddOption(command, "--dates", "DATE", pad.options.firstDate,
              "Write a date on the front pages: YYYY-MM-DD on the first, a day later on each further one");
    AddFlag(command, "--booklet", pad.options.isBooklet,
            "Arrange the pages for sheets that are put into each other, folded, and stapled in the fold");
    AddOption(command, "--creep", "LENGTH", pad.options.creep,
              "With --booklet: move each sheet toward the fold by the thickness of the paper, such as 0.1mm");
    AddOption(command, "--poster", "PAPER", pad.options.poster,
              "Put a large page on several sheets of a paper, such as A4");
    AddOption(command, "--overlap", "LENGTH", pad.options.overlap,
              "With --poster: what neighboring sheets share [10mm]");
    AddNumber(command, "--copies", pad.options.copies, mostPadCopies, "Pads in the file, one after the other");
    AddFlag(command, "--json", pad.asJson, saidAsJson);
    AddActions(command);
}

int CommandLine::RunPad()
{
    pad.sources = SourcesOf(begin);
    pad.actions = actions.InOrder();
    pad.output = output;
    WorkOn(output, [this] { MakePad(pad); });
    return done;
}

void CommandLine::AddSaveOptions(CLI::App& command)
{
    AddBeginningOptions(command);
    AddSources(command, 1);
    AddOutputOption(command, "The settings file; - is standard output");
    AddJsonFlag(command, saidAsJson);
    AddActions(command);
}

int CommandLine::RunSave()
{
    WorkOn(output, [this] { Save(SourcesOf(begin).front(), actions.InOrder(), output, asJson); });
    return done;
}

void CommandLine::AddCalibrationOptions(CLI::App& command)
{
    AddOutputOption(command, "The PDF file; - is standard output");
    AddOption(command, "--paper", "PAPER", paper, "a4 or letter");
    AddJsonFlag(command, saidAsJson);
}

int CommandLine::RunCalibration()
{
    WorkOn(output, [this] { MakeCalibrationSheet(paper, output, asJson); });
    return done;
}

void CommandLine::AddThumbnailOptions(CLI::App& command)
{
    AddSources(command, 1)->required();
    command.add_option("output", output, "The PNG file")->type_name("FILE")->required();
    AddNumber(command, "--size", size, largestThumbnail, "Pixels of its longer side");
    AddJsonFlag(command, saidAsJson);
}

int CommandLine::RunThumbnail()
{
    WorkOn(output, [this] { MakeThumbnail(SourceNamed(begin.names.front()), output, size, asJson); });
    return done;
}

void CommandLine::AddHelpOptions(CLI::App& command)
{
    command.add_option("command", described, "One of the commands")->type_name("COMMAND");
}

int CommandLine::RunHelp()
{
    CommandLine whole;
    const CLI::App& all = whole.Described();
    const Command* const command = described ? &CommandNamed(*described) : nullptr;
    std::cout << (command == nullptr ? all.help() : all.get_subcommand(command->name)->help(all.get_name()));
    return done;
}

void CommandLine::AddBeginningOptions(CLI::App& command)
{
    AddOption(command, "--preset", "PRESET", begin.preset, "Start from a preset, which sets the kind of paper");
    AddOption(command, "--form", "FILE", begin.form,
              "Apply a form on top: JSON as printed by form, all or part of it, or a page as " +
                  FormatTitles(&PageFormat::carriesForm) + ", or a pad as PDF; - is standard input");
}

void CommandLine::AddActions(CLI::App& command)
{
    actions.AddTo(command, [this](std::string_view names) { return IsWanted(names); });
}

/// Adds the sources of a command as positional arguments: `count` of them, or any number if it is anyNumber.
CLI::Option* CommandLine::AddSources(CLI::App& command, int count)
{
    const std::string help = (count == 1 ? "Source: " : "Sources, each ") + SourceWords();
    CLI::Option* const option =
        command.add_option(count == 1 ? "source" : "sources", begin.names, help)->type_name("SOURCE");
    return count == anyNumber ? option : option->expected(count)->allow_extra_args(false);
}

void CommandLine::AddOutputOption(CLI::App& command, const char* help)
{
    command.add_option("-o,--output", output, help)->type_name("FILE")->required();
}

void CommandLine::AddJsonFlag(CLI::App& command, const char* help)
{
    AddFlag(command, "--json", asJson, help);
}

}  // namespace linealis::cli
