#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace linealis::cli {

/// A word that can complete the command line.
struct Completion {
    std::string word;  ///< ends in "=" if a value follows
    std::string help;  ///< may be empty
};

/// All completions of one word.
struct Completions {
    std::vector<Completion> words;
    bool files = false;    ///< any file is possible too
    bool folders = false;  ///< any folder is possible too
};

/// Returns the commands that begin with the word or, if it begins with a dash, the options that stand before a
/// command.
Completions CompleteCommand(const CLI::App& app, const std::string& word);

/// Returns the completions of the last of the words after a command, of which there must be at least one: options
/// of the command, values of an option, or positional arguments. Offers the controls of the source among the words,
/// and their values. Opens that source if it is a file with a form; ignores it if it cannot be read.
Completions CompleteArgument(const CLI::App& command, const std::vector<std::string>& words);

/// Prints the completions for the completion functions of shells: one line per word, with a tab and its help, then
/// ":files" or ":folders" if these are possible too.
void Print(const Completions& completions);

}  // namespace linealis::cli
