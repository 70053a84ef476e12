#pragma once

#include "cli/ActionOptions.h"
#include "cli/Completion.h"
#include "cli/Generate.h"
#include "cli/Pad.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::cli {

/// Defines the commands of linealis-cli with their options, parses a command line, and runs the command.
class CommandLine {
public:
    CommandLine();

    /// Parses the command line and runs the command. Returns the exit status of the program. Throws UsageError if
    /// the command line is wrong, WorkError or FailureSaid if the command fails.
    int Run(int argc, char** argv);

    /// Returns the possible completions of the last of the words, which are all words after the program name. Call
    /// on a fresh object.
    Completions Complete(const std::vector<std::string>& words);

    /// Returns the parser with all commands and all their options, for help, completion, and manual pages. Call
    /// once, on a fresh object: each call adds the commands.
    CLI::App& Described();

private:
    struct Command {
        const char* name;
        const char* help;
        void (CommandLine::*addOptions)(CLI::App& command);
        int (CommandLine::*run)();
        const char* exits = usualExits;  ///< how the help describes the exit status
    };
    static const char* const usualExits;
    static constexpr int done = 0;  ///< the exit status of a command that did its work
    static const std::vector<Command>& Commands();
    static const Command& CommandNamed(const std::string& name);
    static const Command* FindCommand(const std::vector<std::string>& words);

    void Add(const Command& command);
    int ParseAndRun(const Command* called, int argc, char** argv);
    bool IsWanted(std::string_view names) const;
    /// Adds an option that takes an argument. Returns null, and adds nothing, if the option is not wanted.
    template <typename Value>
    CLI::Option* AddOption(CLI::App& command, const char* names, const char* argument, Value& value,
                           const std::string& help);
    template <typename Number>
    void AddNumber(CLI::App& command, const char* names, Number& value, Number most, const char* help);
    void AddFlag(CLI::App& command, const char* name, bool& value, const std::string& help);

    void AddKindsOptions(CLI::App& command);
    void AddPresetsOptions(CLI::App& command);
    void AddDevicesOptions(CLI::App& command);
    void AddFormOptions(CLI::App& command);
    void AddLinkOptions(CLI::App& command);
    void AddSchemaOptions(CLI::App& command);
    void AddShowOptions(CLI::App& command);
    void AddDiffOptions(CLI::App& command);
    void AddGenerateOptions(CLI::App& command);
    void AddPadOptions(CLI::App& command);
    void AddSaveOptions(CLI::App& command);
    void AddCalibrationOptions(CLI::App& command);
    void AddThumbnailOptions(CLI::App& command);
    void AddHelpOptions(CLI::App& command);

    void AddBeginningOptions(CLI::App& command);
    void AddActions(CLI::App& command);
    CLI::Option* AddSources(CLI::App& command, int count);
    void AddOutputOption(CLI::App& command, const char* help);
    void AddJsonFlag(CLI::App& command, const char* help = "As JSON");

    int RunKinds();
    int RunPresets();
    int RunDevices();
    int RunForm();
    int RunLink();
    int RunSchema();
    int RunShow();
    int RunDiff();
    int RunGenerate();
    int RunPad();
    int RunSave();
    int RunCalibration();
    int RunThumbnail();
    int RunHelp();

    /// The words of the command line. Only options that occur among them are added, because adding all of them
    /// takes as long as making a small page. Without a value, all options are added.
    std::optional<std::vector<std::string>> given;
    CLI::App app{"Makes printable paper as PDF files.", "linealis-cli"};
    ActionOptions actions;
    bool asJson = false;
    std::optional<std::string> kind;
    SourceOptions begin;
    std::string output;
    std::string paper = "a4";
    std::optional<std::string> described;  ///< the command whose help is wanted
    int size = 256;                        ///< of a thumbnail: its longer side, in pixels
    GenerateRequest request;
    PadRequest pad;
};

}  // namespace linealis::cli
