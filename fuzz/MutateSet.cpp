// Mutates lines of controls and values. The first byte selects the kind.

#include "Fuzz.h"
#include "Made.h"

#include <vector>

namespace linealis::fuzz {

std::string Mutate(std::string_view input, Dice& dice)
{
    const bool isNew = input.empty() || dice.OneIn(16);
    const std::size_t kind = isNew ? dice.Below(PaperKinds().size()) : static_cast<unsigned char>(input.front());
    std::vector<std::string> lines;
    Input given(reinterpret_cast<const std::uint8_t*>(input.data()), isNew ? 0 : input.size());
    for (given.Byte(); !given.IsEmpty();) {
        lines.emplace_back(given.Line());
    }
    ScreenlessPlatform platform;
    const Paper paper = PaperKinds()[kind % PaperKinds().size()].makePaper(platform);
    for (std::size_t changes = 1 + dice.Below(4); changes > 0; --changes) {
        const Control& control = *dice.OneOf(paper.form->Controls());
        const auto place = lines.begin() + static_cast<std::ptrdiff_t>(dice.Below(lines.size() + 1));
        if (place != lines.end() && dice.OneIn(3)) {
            lines.erase(place);
        } else {
            lines.insert(place, NameOf(control, dice) + (dice.OneIn(4) ? ":" : "=") + SomeValue(control, dice));
        }
    }
    std::string made(1, static_cast<char>(kind));
    for (const std::string& line : lines) {
        made += line + '\n';
    }
    return made;
}

}  // namespace linealis::fuzz
