#pragma once

#include "pipeline/document/PaperWindow.h"

#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace linealis::fuzz {

/// Chance, the same for the same seed.
class Dice {
public:
    explicit Dice(unsigned seed) : engine(seed) {}

    /// From 0 to below `count`; 0 if that is 0.
    std::size_t Below(std::size_t count) { return count == 0 ? 0 : engine() % count; }

    bool OneIn(std::size_t count) { return Below(count) == 0; }

    /// One of a list, which is not empty.
    template <typename List>
    const auto& OneOf(const List& list)
    {
        return *std::next(std::begin(list), static_cast<std::ptrdiff_t>(Below(std::size(list))));
    }

private:
    std::minstd_rand engine;
};

/// A number as people and files write it, or what looks like one.
std::string SomeNumber(Dice& dice);

/// What a field may be given: mostly a number.
std::string SomeText(Dice& dice);

/// A value that the control takes, or now and then one that it does not take.
std::string SomeValue(const Control& control, Dice& dice);

/// The name or the alias of a control, or now and then a wrong one.
std::string NameOf(const Control& control, Dice& dice);

/// The settings file of a window, after so many changes of its form.
std::string SettingsAfter(std::size_t changes, PaperWindow& window, Dice& dice);

/// The text with a few of its bytes changed at random, by the fuzzer's own means.
std::string Scrambled(std::string text);

/// Another input made of one, by the target that knows its form.
std::string Mutate(std::string_view input, Dice& dice);

}  // namespace linealis::fuzz
