#include "pipeline/SetControl.h"

#include "pdf/Numbers.h"
#include "pdf/ShortText.h"
#include "pipeline/FieldWords.h"
#include "pipeline/LengthText.h"

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

/// A wrong name is answered with names, a wrong alias with aliases.
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

/// Whether the texts are the same but for the case of ASCII letters.
bool SameText(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

/// The whole text as a number in the base, or nothing.
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

/// The index of an item that is given by its text or as #INDEX.
std::int64_t ItemIndex(const Choice& choice, std::string_view given)
{
    const std::vector<std::string_view>& items = choice.Items();
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (SameText(items[i], given)) {
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
    if (SameText(given, "on")) {
        return true;
    }
    if (SameText(given, "off")) {
        return false;
    }
    throw UnknownInput{"value of " + std::string(control.Name()), Shortened(given), {"on", "off"}};
}

Color ColorFrom(const Control& control, std::string_view given)
{
    constexpr std::size_t length = 7;
    const auto number =
        given.starts_with('#') && given.size() == length ? WholeNumber(given.substr(1), 16) : std::nullopt;
    if (!number) {
        throw UnknownInput{"color of " + std::string(control.Name()), Shortened(given), {"#RRGGBB"}};
    }
    return {static_cast<std::uint8_t>(*number >> 16U), static_cast<std::uint8_t>(*number >> 8U),
            static_cast<std::uint8_t>(*number)};
}

std::string HexColor(Color color)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", color.red, color.green, color.blue);
    return text.data();
}

struct ValueReader {
    std::string operator()(const TextField& field) const { return field.Text(); }
    std::string operator()(const Choice& choice) const { return std::string(choice.Selected()); }
    std::string operator()(const CheckBox& box) const { return box.Value() ? "on" : "off"; }
    std::string operator()(const Swatch& swatch) const { return HexColor(swatch.Shown()); }
    std::string operator()(const Label& label) const { return label.Caption(); }
};

/// What the field holds once a user who has typed the text has left it.
std::string TextFor(const Form& form, const TextField& field, std::string_view typed)
{
    const auto number = TypedNumber(typed, form, field);
    return number ? Str(*number) : std::string(typed);
}

/// Sets a control to what is given, as the user would.
struct Setter {
    const Form& form;
    std::string_view given;

    void operator()(TextField& field) const { field.SetText(TextFor(form, field, given)); }
    void operator()(Choice& choice) const
    {
        if (const std::int64_t index = ItemIndex(choice, given); index != choice.ListIndex()) {
            choice.SetListIndex(index);  // choosing the same item again is no change
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

std::string ValueOf(Control& control)
{
    return Visit(control, ValueReader{});
}

void TypeIntoControl(std::string_view owner, const Form& form, const Setting& setting)
{
    auto& field = static_cast<TextField&>(FindControl(owner, form, setting.control, CanBeTypedInto));
    field.Type(TextFor(form, field, setting.value));
}

}  // namespace linealis
