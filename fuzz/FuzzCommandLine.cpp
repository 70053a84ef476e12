// A command line that writes nothing: it does what it says or ends with a message, and so does its completion.

#include "Fuzz.h"
#include "cli/CommandLine.h"
#include "cli/Errors.h"

#include <iostream>
#include <vector>

using namespace linealis;
using namespace linealis::fuzz;

namespace {

/// Without the words that write, start a program or wait for standard input.
bool IsHarmless(std::string_view word)
{
    for (const std::string_view harmful :
         {"save", "calibration", "thumbnail", "--view", "--table", "-o", "--output"}) {
        if (word.starts_with(harmful)) {
            return false;
        }
    }
    return word != "-" && word.find('/') == std::string_view::npos && word.find('\0') == std::string_view::npos;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::cout.setstate(std::ios::badbit);  // it says much
    std::cerr.setstate(std::ios::badbit);
    Input input(data, size);
    std::vector<std::string> words = {"linealis-cli"};
    while (!input.IsEmpty()) {
        if (const std::string_view word = input.Line(); IsHarmless(word)) {
            words.emplace_back(word);
            if (word == "generate") {
                words.emplace_back("--check");
            }
        }
    }
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    if (words.size() % 2 == 0) {  // either takes a millisecond
        cli::CommandLine().Complete({words.begin() + 1, words.end()});
        return 0;
    }
    try {
        cli::CommandLine().Run(static_cast<int>(words.size()), arguments.data());
    } catch (const cli::WorkError& error) {
        Require(!error.message.empty());
    } catch (const cli::UsageError& error) {
        Require(!error.message.empty());
    }
    return 0;
}
