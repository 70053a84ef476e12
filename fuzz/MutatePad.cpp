// Makes inputs for pads: the kind of the settings file, the options, back, sources and rows of a table, followed by
// the settings file.

#include "Fuzz.h"
#include "Made.h"

#include <array>
#include <utility>

namespace linealis::fuzz {

namespace {

std::string ByteOf(std::size_t value)
{
    return std::string(1, static_cast<char>(value));
}

/// Returns options that most often go together, as FuzzPad reads them.
std::string SomeOptions(Dice& dice)
{
    constexpr std::size_t hasPages = 1, hasNumbers = 2, hasDates = 4, isBooklet = 8, hasCreep = 16, isPoster = 32,
                          hasOverlap = 64, hasCopies = 128;
    constexpr std::array shapes = {std::size_t{0},        hasPages | hasNumbers,
                                   hasPages | hasDates,   isBooklet | hasPages,
                                   isBooklet | hasCreep,  isPoster,
                                   isPoster | hasOverlap, hasPages | hasDates | hasNumbers};
    constexpr std::array up = {1, 2, 4, 1, 2, 4, 3};
    constexpr std::array dates = {"2026-12-31", "2024-02-28", "9999-12-30", "2023-02-29", ""};
    constexpr std::array lengths = {"0", "0.1mm", "5mm", "1/4in", "101mm", "-1mm", "wide"};
    constexpr std::array papers = {"A4", "letter", "A6", "a0", "A44"};
    const std::size_t shape = dice.OneIn(6) ? dice.Below(256) : dice.OneOf(shapes) + dice.Below(2) * hasCopies;
    const auto has = [shape](std::size_t bit) { return (shape & bit) != 0; };
    const bool isWhole = has(isBooklet) || has(isPoster);
    std::string made = ByteOf(shape) + (has(hasPages) ? ByteOf(dice.Below(9)) : "") +
                       ByteOf(isWhole ? 1 : static_cast<std::size_t>(dice.OneOf(up)));
    for (const auto& [bit, text] : {std::pair<std::size_t, const char*>(hasDates, dice.OneOf(dates)),
                                    {hasCreep, dice.OneOf(lengths)},
                                    {isPoster, dice.OneOf(papers)},
                                    {hasOverlap, dice.OneOf(lengths)}}) {
        made += has(bit) ? std::string(text) + "\n" : "";
    }
    return made + (has(hasCopies) ? ByteOf(dice.Below(4)) : "");
}

}  // namespace

std::string Mutate(std::string_view /*input*/, Dice& dice)
{
    const std::size_t kind = dice.Below(PaperKinds().size()), sources = dice.Below(4);
    std::string made = ByteOf(kind) + SomeOptions(dice) + ByteOf(dice.Below(50)) + ByteOf(sources);
    for (std::size_t i = 0; i < sources; ++i) {
        made += ByteOf(dice.Below(32));
    }
    const std::size_t rows = dice.OneIn(2) ? 0 : dice.Below(5);
    made += ByteOf(rows);
    for (std::size_t row = 1; row < rows; ++row) {
        made += SomeNumber(dice) + (dice.OneIn(8) ? "\n" : ",#6080C0\n");
    }
    ScreenlessPlatform platform;
    const auto window = MakeWindow(PaperKinds()[kind], platform);
    const std::string settings = SettingsAfter(dice.Below(12), *window, dice);
    return made + (dice.OneIn(4) ? Scrambled(settings) : settings);
}

}  // namespace linealis::fuzz
