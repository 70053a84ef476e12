#pragma once

#include "cli/Completion.h"
#include "cli/Generate.h"

#include <CLI/CLI.hpp>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace linealis::cli {

/// The options that are actions, and what they were given, in the order of the command line.
class ActionOptions {
public:
    void AddTo(CLI::App& theCommand);
    std::vector<Action> InOrder() const;

private:
    void Add(const char* name, const char* argument, const char* help, Action::Kind kind);

    CLI::App* command = nullptr;
    std::map<const CLI::Option*, Action::Kind> kinds;
};

/// The commands of linealis-cli and what they were given.
class CommandLine {
public:
    CommandLine();

    /// Parses the command line and does what it says. Returns the status to end with; throws UsageError or
    /// WorkError.
    int Run(int argc, char** argv);

    /// What can stand in the place of the last of the words behind the program's name.
    Completions Complete(const std::vector<std::string>& words);

    /// All commands with all their options, for who describes them.
    const CLI::App& Described();

private:
    struct Command {
        const char* name;
        const char* help;
        void (CommandLine::*addOptions)(CLI::App& command);
        int (CommandLine::*run)();
    };
    static const std::vector<Command>& Commands();
    static const Command* FindCommand(const std::vector<std::string>& words);

    void Add(const Command& command);

    void AddKindsOptions(CLI::App& command);
    void AddPresetsOptions(CLI::App& command);
    void AddFormOptions(CLI::App& command);
    void AddShowOptions(CLI::App& command);
    void AddDiffOptions(CLI::App& command);
    void AddGenerateOptions(CLI::App& command);
    void AddSaveOptions(CLI::App& command);
    void AddCalibrationOptions(CLI::App& command);
    void AddThumbnailOptions(CLI::App& command);

    void AddBeginningOptions(CLI::App& command);
    void AddSourceOptions(CLI::App& command);
    void AddOutputOption(CLI::App& command, const char* help);
    void AddJsonFlag(CLI::App& command);

    int RunKinds();
    int RunPresets();
    int RunForm();
    int RunShow();
    int RunDiff();
    int RunGenerate();
    int RunSave();
    int RunCalibration();
    int RunThumbnail();

    CLI::App app{"Makes printable paper as PDF files.", "linealis-cli"};
    ActionOptions actions;
    bool asJson = false;
    std::optional<std::string> kind;
    SourceOptions begin;
    std::string output;
    std::string paper = "a4";
    std::string settingsFile;
    int size = 256;
    GenerateRequest request;
};

}  // namespace linealis::cli
