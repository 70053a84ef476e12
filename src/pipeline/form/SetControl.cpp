#include "pipeline/form/SetControl.h"

#include "pipeline/form/ColorNames.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/LengthText.h"
#include "text/LetterCase.h"
#include "text/Numbers.h"
#include "text/ShortText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <optional>

namespace linealis {

namespace {

bool CanBeSet(const Control& control)
{
    return control.Kind() != ControlKind::Label;
}

bool CanBeTypedInto(const Control& control)
{
    return control.Kind() == ControlKind::Text;
}

/// An unknown name is answered with a list of names, an unknown alias with a list of aliases.
Control& FindControl(std::string_view owner, const Form& form, std::string_view given,
                     bool (*isWanted)(const Control& control))
{
    if (Control* const control = FindByNameOrAlias(form, given); control != nullptr && isWanted(*control)) {
        return *control;
    }
    const bool isAlias = !given.empty() && std::islower(static_cast<unsigned char>(given.front())) != 0;
    std::vector<std::string> possible;
    for (const Control* const control : form.Controls()) {
        if (isWanted(*control)) {
            possible.push_back(isAlias ? std::string(control->Alias()) : std::string(control->Name()));
        }
    }
    throw UnknownInput{"control of " + std::string(owner), Shortened(given), possible};
}

/// Parses the whole text as a number in the given base. Returns nothing if that fails.
std::optional<unsigned> WholeNumber(std::string_view digits, int base)
{
    unsigned number = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, number, base);
    if (digits.empty() || result.ec != std::errc() || result.ptr != end) {
        return std::nullopt;
    }
    return number;
}

/// Returns the index of an item given by its text or as #INDEX.
std::int64_t ItemIndex(const Choice& choice, std::string_view given)
{
    const std::vector<std::string_view>& items = choice.Items();
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (IsSameText(items[i], given)) {
            return static_cast<std::int64_t>(i);
        }
    }
    if (given.starts_with('#')) {
        const auto index = WholeNumber(given.substr(1), 10);
        if (index && *index < items.size()) {
            return *index;
        }
    }
    std::vector<std::string> possible(items.begin(), items.end());
    possible.push_back("#0 to #" + std::to_string(items.size() - 1));
    throw UnknownInput{"item of " + std::string(choice.Name()), Shortened(given), possible};
}

bool OnOrOff(const Control& control, std::string_view given)
{
    constexpr std::array<std::string_view, 4> on = {"on", "true", "yes", "1"}, off = {"off", "false", "no", "0"};
    const auto isGiven = [&](std::string_view word) { return IsSameText(word, given); };
    const bool isOn = std::any_of(on.begin(), on.end(), isGiven);
    if (!isOn && std::none_of(off.begin(), off.end(), isGiven)) {
        throw UnknownInput{"value of " + std::string(control.Name()), Shortened(given), {"on", "off"}};
    }
    return isOn;
}

/// Parses #RRGGBB, or #RGB, where each digit is doubled.
std::optional<Color> ColorOfDigits(std::string_view given)
{
    constexpr std::size_t shortLength = 4, length = 7;
    std::string digits;
    for (const char digit : given.substr(std::min<std::size_t>(1, given.size()))) {
        digits.append(given.size() == shortLength ? 2 : 1, digit);
    }
    const auto number =
        given.starts_with('#') && digits.size() == length - 1 ? WholeNumber(digits, 16) : std::nullopt;
    return number ? std::optional(ColorOf(*number)) : std::nullopt;
}

Color ColorFrom(const Control& control, std::string_view given)
{
    if (const auto color = ColorOfDigits(given)) {
        return *color;
    }
    if (const auto color = ColorNamed(given)) {
        return *color;
    }
    const bool isName = !given.empty() && std::isalpha(static_cast<unsigned char>(given.front())) != 0;
    throw UnknownInput{"color of " + std::string(control.Name()), Shortened(given),
                       isName ? ColorNames() : std::vector<std::string>{"#RRGGBB", "#RGB", "a name, such as gray"}};
}

std::string HexColor(Color color)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", color.red, color.green, color.blue);
    return text.data();
}

/// Returns the text that the field holds after a user has typed `typed` and left the field.
std::string TextFor(const Form& form, const TextField& field, std::string_view typed)
{
    const auto number = TypedNumber(typed, form, field);
    return number ? Str(*number) : std::string(typed);
}

/// Sets a control to the given value, as the user would.
struct Setter {
    const Form& form;
    std::string_view given;

    void operator()(TextField& field) const { field.SetText(TextFor(form, field, given)); }
    void operator()(Choice& choice) const
    {
        if (const std::int64_t index = ItemIndex(choice, given); index != choice.ListIndex()) {
            choice.SetListIndex(index);  // selecting the same item again is not a change
        }
    }
    void operator()(CheckBox& box) const { box.Click(OnOrOff(box, given)); }
    void operator()(Swatch& swatch) const { swatch.SetColor(ColorFrom(swatch, given)); }
    void operator()(Label& /*label*/) const {}
};

}  // namespace

void SetControl(std::string_view owner, const Form& form, const Setting& setting)
{
    Visit(FindControl(owner, form, setting.control, CanBeSet), Setter{form, setting.value});
}

std::string ValueIn(const Control& control, const ControlState& state)
{
    if (const auto* const text = std::get_if<std::string>(&state.content)) {
        return *text;
    }
    if (const auto* const index = std::get_if<int>(&state.content)) {
        return std::string(static_cast<const Choice&>(control).Items().at(static_cast<std::size_t>(*index)));
    }
    if (const auto* const on = std::get_if<bool>(&state.content)) {
        return *on ? "on" : "off";
    }
    if (const auto* const color = std::get_if<Color>(&state.content)) {
        return HexColor(*color);
    }
    return state.caption;
}

std::string ValueOf(const Control& control)
{
    return ValueIn(control, control.State());
}

void TypeIntoControl(std::string_view owner, const Form& form, const Setting& setting)
{
    auto& field = static_cast<TextField&>(FindControl(owner, form, setting.control, CanBeTypedInto));
    field.Type(TextFor(form, field, setting.value));
}

}  // namespace linealis
