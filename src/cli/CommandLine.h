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

/// The commands of linealis-cli and what they were given.
class CommandLine {
public:
    /// `thePadWork` makes pads; without it there are none.
    explicit CommandLine(PadWork thePadWork = {});

    /// Parses the command line and does what it says. Returns the status to end with; throws UsageError or
    /// WorkError.
    int Run(int argc, char** argv);

    /// What can stand in the place of the last of the words behind the program's name.
    Completions Complete(const std::vector<std::string>& words);

    /// All commands with all their options, for who describes them.
    CLI::App& Described();

private:
    struct Command {
        const char* name;
        const char* help;
        void (CommandLine::*addOptions)(CLI::App& command);
        int (CommandLine::*run)();
        const char* exits = usualExits;  ///< what the help says of the exit status
    };
    static const char* const usualExits;
    static const std::vector<Command>& Commands();
    static const Command& CommandNamed(const std::string& name);
    static const Command* FindCommand(const std::vector<std::string>& words);

    void Add(const Command& command);
    int ParseAndRun(const Command* called, int argc, char** argv);
    bool IsWanted(std::string_view names) const;
    /// Null if the option is not wanted.
    template <typename Value>
    CLI::Option* AddOption(CLI::App& command, const char* names, const char* argument, Value& value,
                           const std::string& help);
    template <typename Number>
    void AddNumber(CLI::App& command, const char* names, Number& value, Number most, const char* help);
    void AddFlag(CLI::App& command, const char* name, bool& value, const std::string& help);

    void AddKindsOptions(CLI::App& command);
    void AddPresetsOptions(CLI::App& command);
    void AddFormOptions(CLI::App& command);
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
    void AddJsonFlag(CLI::App& command);

    int RunKinds();
    int RunPresets();
    int RunForm();
    int RunShow();
    int RunDiff();
    int RunGenerate();
    int RunPad();
    int RunSave();
    int RunCalibration();
    int RunThumbnail();
    int RunHelp();

    /// What was given, of which only the options are added: all of them take as long as a small page. Nothing: all.
    std::optional<std::vector<std::string>> given;
    CLI::App app{"Makes printable paper as PDF files.", "linealis-cli"};
    ActionOptions actions;
    bool asJson = false;
    std::optional<std::string> kind;
    SourceOptions begin;
    std::string output;
    std::string paper = "a4";
    std::optional<std::string> described;
    int size = 256;
    GenerateRequest request;
    PadRequest pad;
    PadWork padWork;
};

}  // namespace linealis::cli
