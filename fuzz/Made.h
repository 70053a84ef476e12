#pragma once

#include "pipeline/document/PaperWindow.h"

#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace linealis::fuzz {

/// A random number generator that gives the same sequence for the same seed.
class Dice {
public:
    explicit Dice(unsigned seed) : engine(seed) {}

    /// Returns a number from 0 to `count` - 1, or 0 if `count` is 0.
    std::size_t Below(std::size_t count) { return count == 0 ? 0 : engine() % count; }

    /// Returns true once in `count` calls on average.
    bool OneIn(std::size_t count) { return Below(count) == 0; }

    /// Returns a random element of a list, which must not be empty.
    template <typename List>
    const auto& OneOf(const List& list)
    {
        return *std::next(std::begin(list), static_cast<std::ptrdiff_t>(Below(std::size(list))));
    }

private:
    std::minstd_rand engine;
};

/// Returns a number as users and files write it, or a text that resembles one.
std::string SomeNumber(Dice& dice);

/// Returns a text for a field, most often a number.
std::string SomeText(Dice& dice);

/// Returns a value that the control accepts or, occasionally, one that it does not.
std::string SomeValue(const Control& control, Dice& dice);

/// Returns the name or alias of a control or, occasionally, a wrong one.
std::string NameOf(const Control& control, Dice& dice);

/// Returns the settings file of a window after `changes` random changes of its form.
std::string SettingsAfter(std::size_t changes, PaperWindow& window, Dice& dice);

/// Returns the text with a few bytes changed at random by the fuzzer.
std::string Scrambled(std::string text);

/// Returns a mutation of the input. Defined by each target that knows the format of its input.
std::string Mutate(std::string_view input, Dice& dice);

}  // namespace linealis::fuzz
