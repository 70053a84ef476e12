// Mutates settings files: complete files of a filled-in form, and files with one changed field.

#include "Fuzz.h"
#include "Made.h"

#include <array>
#include <vector>

namespace linealis::fuzz {

namespace {

std::string LengthPrefixed(const std::string& text)
{
    return static_cast<char>(std::min<std::size_t>(text.size(), 255)) + text.substr(0, 255);
}

/// Returns a reference to a file with a 32-bit length, sometimes a wrong one.
std::string SomeReference(Dice& dice)
{
    constexpr std::array paths = {"", "/tmp/page.pdf", "/dev/null", "page.pdf", "/", "\xFF"};
    const std::string path = dice.OneOf(paths);
    const std::size_t told = dice.OneIn(4) ? dice.Below(0x10000) : path.size();
    return {std::string(2, dice.OneIn(8) ? '\xFF' : '\0') + static_cast<char>(told >> 8U) +
            static_cast<char>(told) + path};
}

/// Returns the file with one field changed, treating it as texts with length bytes.
std::string WithAnotherField(std::string_view input, Dice& dice)
{
    std::vector<std::string> fields;
    for (std::string_view rest = input.substr(std::min<std::size_t>(1, input.size())); !rest.empty();) {
        fields.emplace_back(rest.substr(0, 1 + static_cast<unsigned char>(rest.front())));
        rest.remove_prefix(fields.back().size());
    }
    if (!fields.empty()) {
        const auto place = fields.begin() + static_cast<std::ptrdiff_t>(dice.Below(fields.size()));
        switch (dice.Below(7)) {
        case 0:
            fields.erase(place);
            break;
        case 1:
            fields.insert(place, LengthPrefixed(SomeText(dice)));
            break;
        case 2:
            fields.erase(place, fields.end());
            break;
        case 3:
            *place = SomeReference(dice);
            break;
        default:
            *place = LengthPrefixed(SomeText(dice));
        }
    }
    std::string file(input.substr(0, 1));
    for (const std::string& field : fields) {
        file += field;
    }
    return file;
}

}  // namespace

std::string Mutate(std::string_view input, Dice& dice)
{
    if (!input.empty() && !dice.OneIn(8)) {
        if (!dice.OneIn(4)) {
            return WithAnotherField(input, dice);
        }
        const std::size_t kind = static_cast<unsigned char>(input.front()) % PaperKinds().size();
        ScreenlessPlatform platform;
        const auto window = MakeWindow(PaperKinds()[kind], platform);
        window->LayOver(BinaryStream::FromMemory(input.substr(1)));
        return static_cast<char>(kind) + SettingsAfter(1 + dice.Below(3), *window, dice);
    }
    const std::size_t kind = dice.Below(PaperKinds().size());
    ScreenlessPlatform platform;
    const auto window = MakeWindow(PaperKinds()[kind], platform);
    return static_cast<char>(kind) + SettingsAfter(dice.Below(50), *window, dice);
}

}  // namespace linealis::fuzz
