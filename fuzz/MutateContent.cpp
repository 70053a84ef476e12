// Mutates page content, one operator per line.

#include "Made.h"

#include <array>
#include <vector>

namespace linealis::fuzz {

namespace {

/// # stands for a number and $ for a text.
constexpr std::array lines = {"# # m",
                              "# # l",
                              "# # # # # # c",
                              "S",
                              "f",
                              "B",
                              "# w",
                              "# # # RG",
                              "# # # rg",
                              "# J",
                              "[# #] # d",
                              "[] # d",
                              "# 0 0 # 0 0 cm",
                              "BT",
                              "/F# # Tf",
                              "# # # # # # Tm",
                              "# # Td",
                              "($) Tj",
                              "ET",
                              "$"};

std::string SomeLine(Dice& dice)
{
    std::string made;
    for (const char c : std::string_view(dice.OneOf(lines))) {
        if (c == '#') {
            made += dice.OneIn(12) ? SomeNumber(dice) : std::to_string(dice.Below(100));
        } else if (c == '$') {
            made += SomeText(dice);
        } else {
            made += c;
        }
    }
    return made;
}

}  // namespace

std::string Mutate(std::string_view input, Dice& dice)
{
    std::string made(input);
    for (std::size_t more = 1 + dice.Below(6); more > 0; --more) {
        std::size_t place = dice.Below(made.size() + 1);
        place = made.rfind('\r', place) == std::string::npos ? 0 : made.rfind('\r', place) + 1;
        if (dice.OneIn(4)) {
            made.erase(place, made.find('\r', place) - place + 1);
        } else {
            made.insert(place, SomeLine(dice) + '\r');
        }
    }
    return made;
}

}  // namespace linealis::fuzz
