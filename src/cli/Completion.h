#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace linealis::cli {

/// A word that can stand on the command line.
struct Completion {
    std::string word;  ///< ends in "=" if a value follows
    std::string help;  ///< may be empty
};

/// What can stand in the place of a word.
struct Completions {
    std::vector<Completion> words;
    bool files = false;    ///< also any file
    bool folders = false;  ///< also any folder
};

/// The commands, and the options before them, that begin with the word.
Completions CompleteCommand(const CLI::App& app, const std::string& word);

/// What can stand in the place of the last of the words behind a command: its options, and what these and the
/// command itself take. Controls and their values are those of the source among the words.
Completions CompleteArgument(const CLI::App& command, const std::vector<std::string>& words);

/// Prints them, for the completion functions of shells: a word, a tab and its help in each line; then ":files" or
/// ":folders" if these can stand there too.
void Print(const Completions& completions);

}  // namespace linealis::cli
