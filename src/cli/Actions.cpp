#include "cli/Actions.h"

#include "cli/Errors.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

namespace linealis::cli {

namespace {

struct Assignment {
    std::string control;
    std::string value;
};

Assignment Split(std::string_view option, std::string_view argument)
{
    const std::size_t equals = argument.find('=');
    if (equals == std::string_view::npos) {
        throw UsageError{std::string(option) + " takes CONTROL=VALUE, not '" + std::string(argument) + "'"};
    }
    return {std::string(argument.substr(0, equals)), std::string(argument.substr(equals + 1))};
}

template <typename Wanted>
Control& FindControl(std::string_view owner, const Form& form, const std::string& name, Wanted isWanted)
{
    if (Control* const control = form.Find(name); control != nullptr && isWanted(control->Kind())) {
        return *control;
    }
    std::vector<std::string> possible;
    for (const Control* const control : form.Controls()) {
        if (isWanted(control->Kind())) {
            possible.emplace_back(control->Name());
        }
    }
    throw Unknown("control of " + std::string(owner), name, possible);
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
std::int64_t ItemIndex(const Choice& choice, const std::string& given)
{
    const std::vector<std::string_view>& items = choice.Items();
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (SameText(items[i], given)) {
            return static_cast<std::int64_t>(i);
        }
    }
    if (given.starts_with('#')) {
        const auto index = WholeNumber(std::string_view(given).substr(1), 10);
        if (index && *index < items.size()) {
            return *index;
        }
    }
    std::vector<std::string> possible(items.begin(), items.end());
    possible.push_back("#0 to #" + std::to_string(items.size() - 1));
    throw Unknown("item of " + std::string(choice.Name()), given, possible);
}

bool OnOrOff(const Control& control, const std::string& given)
{
    if (SameText(given, "on")) {
        return true;
    }
    if (SameText(given, "off")) {
        return false;
    }
    throw Unknown("value of " + std::string(control.Name()), given, {"on", "off"});
}

Color ColorFrom(const Control& control, const std::string& given)
{
    constexpr std::size_t length = 7;
    const auto number = given.starts_with('#') && given.size() == length
                            ? WholeNumber(std::string_view(given).substr(1), 16)
                            : std::nullopt;
    if (!number) {
        throw Unknown("color of " + std::string(control.Name()), given, {"#RRGGBB"});
    }
    return {static_cast<std::uint8_t>(*number >> 16U), static_cast<std::uint8_t>(*number >> 8U),
            static_cast<std::uint8_t>(*number)};
}

/// Sets a control to what is given, as the user would.
struct Setter {
    const std::string& given;

    void operator()(TextField& field) const { field.SetText(given); }
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

void Set(std::string_view owner, const Form& form, const Assignment& assignment)
{
    const auto canBeSet = [](ControlKind kind) { return kind != ControlKind::Label; };
    Visit(FindControl(owner, form, assignment.control, canBeSet), Setter{assignment.value});
}

void Type(std::string_view owner, const Form& form, const Assignment& assignment)
{
    const auto isText = [](ControlKind kind) { return kind == ControlKind::Text; };
    static_cast<TextField&>(FindControl(owner, form, assignment.control, isText)).Type(assignment.value);
}

/// Only kinds that can do what the option asks for go with it.
void CheckAbility(std::string_view option, const PaperKind& kind, bool able)
{
    if (!able) {
        throw UsageError{std::string(option) + " goes with graph, not with " + std::string(kind.name)};
    }
}

}  // namespace

void Load(const std::string& fileName, PaperWindow& window)
{
    if (const std::error_code error = window.LoadSettings(FolderItem(fileName))) {
        throw WorkError{fileName + ": " + error.message()};
    }
}

void Apply(const std::vector<Action>& actions, const PaperKind& kind, PaperWindow& window,
           ScreenlessPlatform& platform)
{
    bool wizardUsed = false;
    for (const Action& action : actions) {
        switch (action.kind) {
        case Action::Kind::Set:
            Set(kind.name, window.form, Split("--set", action.argument));
            break;
        case Action::Kind::Type:
            Type(kind.name, window.form, Split("--type", action.argument));
            break;
        case Action::Kind::Load:
            Load(action.argument, window);
            break;
        case Action::Kind::Markers:
            CheckAbility("--markers", kind, kind.hasMarkers);
            platform.openAnswer = FolderItem(action.argument);
            if (!platform.openAnswer.Exists()) {  // the page is made all the same, without markers
                Complain(action.argument + ": no such file, so there are no markers");
            }
            break;
        case Action::Kind::Wizard:
            CheckAbility("--wizard", kind, window.GetWizard() != nullptr);
            Type("the wizard", window.GetWizard()->Fields(), Split("--wizard", action.argument));
            wizardUsed = true;
            break;
        }
    }
    if (wizardUsed) {
        window.GetWizard()->PushButton1_Action();
    }
}

}  // namespace linealis::cli
