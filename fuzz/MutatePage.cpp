// Mutates entries into a form: the kind, then repeatedly a control, a choice, and a line of text or the bytes of a
// color.

#include "Fuzz.h"
#include "Made.h"

namespace linealis::fuzz {

std::string Mutate(std::string_view input, Dice& dice)
{
    const bool isNew = input.empty() || dice.OneIn(8);
    std::string made =
        isNew ? std::string(1, static_cast<char>(dice.Below(PaperKinds().size()))) : std::string(input);
    ScreenlessPlatform platform;
    const Paper paper =
        PaperKinds()[static_cast<unsigned char>(made.front()) % PaperKinds().size()].makePaper(platform);
    for (std::size_t entries = 1 + dice.Below(8); entries > 0; --entries) {
        const std::size_t number = dice.Below(paper.form->Controls().size());
        made += static_cast<char>(number);
        made += static_cast<char>(dice.Below(8));
        const ControlKind kind = paper.form->Controls()[number]->Kind();
        if (kind == ControlKind::Text) {
            made += SomeText(dice) + '\n';
        } else if (kind == ControlKind::Color) {
            made += static_cast<char>(dice.Below(256));
            made += static_cast<char>(dice.Below(256));
        }
    }
    return made;
}

}  // namespace linealis::fuzz
