#include "Made.h"

#include "pipeline/form/SetControl.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace linealis::fuzz {

namespace {

constexpr std::array numbers = {"0",   "1",   "2",    "10",   ".5",    "0.25",  "5",       "100",      "3",
                                "12",  "-1",  "1,5",  "0.1",  "7mm",   "2 cm",  "1/2",     "1 1/2 in", "72pt",
                                "8.5", "11",  "1e9",  "1e-9", "255",   "256",   "9.3e18",  "1e308",    "1e999",
                                "nan", "inf", "",     " ",    "-0",    "1.5.2", "0x10",    "+3",       "00012",
                                "33",  "14",  "1000", "50",   "0.001", "2.54",  "1000000", "-99999"};
constexpr std::array texts = {"abc",  "a (b", "a) b",   "\\",        "C:\\new", "é",  "日本", "\xFF",
                              "on",   "off",  "cm",     "inches",    "#0",      "#1", "#99",  "#12aBEf",
                              "true", "A4",   "Custom", "Landscape", "x\ry",    "\n", "=",    "\""};

}  // namespace

std::string SomeNumber(Dice& dice)
{
    if (!dice.OneIn(3)) {
        return dice.OneOf(numbers);
    }
    const std::string digits = std::to_string(dice.Below(100'000));
    return dice.OneIn(2) ? digits : digits.substr(0, 1 + dice.Below(digits.size())) + "." + digits;
}

std::string SomeText(Dice& dice)
{
    if (!dice.OneIn(3)) {
        return SomeNumber(dice);
    }
    return dice.OneIn(8) ? std::string(dice.Below(300), 'x') : dice.OneOf(texts);
}

std::string SomeValue(const Control& control, Dice& dice)
{
    if (dice.OneIn(10)) {
        return SomeText(dice);
    }
    switch (control.Kind()) {
    case ControlKind::Popup:
    case ControlKind::Radio: {
        const auto& items = static_cast<const Choice&>(control).Items();
        return dice.OneIn(4) ? "#" + std::to_string(dice.Below(items.size() + 1)) : std::string(dice.OneOf(items));
    }
    case ControlKind::Check:
        return dice.OneIn(2) ? "on" : "off";
    case ControlKind::Color: {
        std::string color = "#";
        while (color.size() < 7) {
            color += "0123456789abcdefABCDEF"[dice.Below(22)];
        }
        return color;
    }
    case ControlKind::Text:
    case ControlKind::Label:
        break;
    }
    return SomeText(dice);
}

std::string NameOf(const Control& control, Dice& dice)
{
    const bool hasAlias = !control.Alias().empty();
    std::string name(hasAlias && dice.OneIn(3) ? control.Alias() : control.Name());
    return dice.OneIn(50) ? Scrambled(std::move(name)) : name;
}

std::string SettingsAfter(std::size_t changes, PaperWindow& window, Dice& dice)
{
    for (; changes > 0; --changes) {
        const Control& control = *dice.OneOf(window.form.Controls());
        try {
            SetControl("form", window.form, {control.Name(), SomeValue(control, dice)});
        } catch (const UnknownInput&) {  // the control keeps its value
        }
    }
    return window.SettingsBytes();
}

std::string Scrambled(std::string text)
{
    const std::size_t room = text.size() + 16;
    const std::size_t size = text.size();
    text.resize(room);
    text.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(text.data()), size, room));
    return text;
}

}  // namespace linealis::fuzz

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed)
{
    linealis::fuzz::Dice dice(seed);
    if (dice.OneIn(4)) {
        return LLVMFuzzerMutate(data, size, most);
    }
    const std::string made = linealis::fuzz::Mutate({reinterpret_cast<const char*>(data), size}, dice);
    const std::size_t taken = std::min(made.size(), most);
    std::memcpy(data, made.data(), taken);
    return taken;
}
