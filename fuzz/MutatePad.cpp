// Makes inputs for pads: the kind of the settings file, the number of pages, pages per side, back, and sources,
// followed by the settings file.

#include "Fuzz.h"
#include "Made.h"

#include <array>

namespace linealis::fuzz {

std::string Mutate(std::string_view /*input*/, Dice& dice)
{
    const std::size_t kind = dice.Below(PaperKinds().size()), sources = dice.Below(4);
    constexpr std::array up = {1, 2, 4, 1, 2, 4, 3};
    std::string made;
    for (const std::size_t byte :
         {kind, dice.Below(9), static_cast<std::size_t>(dice.OneOf(up)), dice.Below(50), sources}) {
        made += static_cast<char>(byte);
    }
    for (std::size_t i = 0; i < sources; ++i) {
        made += static_cast<char>(dice.Below(32));
    }
    ScreenlessPlatform platform;
    const auto window = MakeWindow(PaperKinds()[kind], platform);
    const std::string settings = SettingsAfter(dice.Below(12), *window, dice);
    return made + (dice.OneIn(4) ? Scrambled(settings) : settings);
}

}  // namespace linealis::fuzz
