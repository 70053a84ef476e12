// Fuzzes command lines that write no files. A command line either succeeds or ends with a message; so does its
// completion.

#include "Fuzz.h"
#include "cli/CommandLine.h"
#include "cli/Errors.h"

#include <iostream>
#include <vector>

using namespace linealis;
using namespace linealis::fuzz;

namespace {

/// Whether the word neither makes a command write a file nor start a program nor wait for standard input.
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

/// Whether the word contains a number with more than two digits or an exponent, which can request a page that takes
/// a minute.
bool IsHeavy(std::string_view word)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    int digits = 0;
    for (const char c : word) {
        if ((digits > 0 && (c == 'e' || c == 'E')) || (digits == 2 && isDigit(c))) {
            return true;
        }
        digits = isDigit(c) ? digits + 1 : 0;
    }
    return false;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::cout.setstate(std::ios::badbit);  // the output is long
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
    if (std::find(words.begin(), words.end(), "generate") != words.end()) {
        std::erase_if(words, IsHeavy);
    }
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    if (words.size() % 2 == 0) {  // do only one of the two: each takes a millisecond
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
