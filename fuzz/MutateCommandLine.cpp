// Mutates command lines by adding words that the completion of the program suggests at that place.

#include "Fuzz.h"
#include "Made.h"
#include "cli/CommandLine.h"

#include <vector>

namespace linealis::fuzz {

namespace {

std::string SomeWord(std::vector<std::string> before, Dice& dice)
{
    before.emplace_back();
    const cli::Completions possible = cli::CommandLine().Complete(before);
    if (possible.words.empty() || dice.OneIn(8)) {
        return SomeText(dice);
    }
    const std::string word = dice.OneOf(possible.words).word;
    return word.ends_with('=') ? word + SomeText(dice) : word;
}

}  // namespace

std::string Mutate(std::string_view input, Dice& dice)
{
    std::vector<std::string> words;
    Input given(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    while (!given.IsEmpty()) {
        words.emplace_back(given.Line());
    }
    words.resize(dice.Below(words.size() + 1));
    for (std::size_t more = 1 + dice.Below(4); more > 0; --more) {
        words.push_back(SomeWord(words, dice));
    }
    std::string made;
    for (const std::string& word : words) {
        made += word + '\n';
    }
    return made;
}

}  // namespace linealis::fuzz
