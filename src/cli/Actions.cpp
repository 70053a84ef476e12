#include "cli/Actions.h"

#include "cli/Errors.h"
#include "graph/EasyGraphWizard.h"
#include "graph/MainWindow.h"

#include <algorithm>
#include <charconv>
#include <iostream>
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
const PaperForm::State& FindControl(std::string_view owner, const PaperForm& form, const std::string& name,
                                    Wanted isWanted)
{
    if (form.Has(name) && isWanted(form[name].control.kind)) {
        return form[name];
    }
    std::vector<std::string> possible;
    for (const PaperForm::State& state : form.Controls()) {
        if (isWanted(state.control.kind)) {
            possible.emplace_back(state.control.name);
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
std::int64_t ItemIndex(const Control& control, const std::string& given)
{
    for (std::size_t i = 0; i < control.items.size(); ++i) {
        if (SameText(control.items[i], given)) {
            return static_cast<std::int64_t>(i);
        }
    }
    if (given.starts_with('#')) {
        const auto index = WholeNumber(std::string_view(given).substr(1), 10);
        if (index && *index < control.items.size()) {
            return *index;
        }
    }
    std::vector<std::string> possible(control.items.begin(), control.items.end());
    possible.push_back("#0 to #" + std::to_string(control.items.size() - 1));
    throw Unknown("item of " + std::string(control.name), given, possible);
}

bool OnOrOff(const Control& control, const std::string& given)
{
    if (SameText(given, "on")) {
        return true;
    }
    if (SameText(given, "off")) {
        return false;
    }
    throw Unknown("value of " + std::string(control.name), given, {"on", "off"});
}

Color ColorFrom(const Control& control, const std::string& given)
{
    constexpr std::size_t length = 7;
    const auto number = given.starts_with('#') && given.size() == length
                            ? WholeNumber(std::string_view(given).substr(1), 16)
                            : std::nullopt;
    if (!number) {
        throw Unknown("colour of " + std::string(control.name), given, {"#RRGGBB"});
    }
    return {static_cast<std::uint8_t>(*number >> 16U), static_cast<std::uint8_t>(*number >> 8U),
            static_cast<std::uint8_t>(*number)};
}

/// The user chooses an item. The one that already shows is none: its handler would, say, convert lengths once more.
void Choose(PaperForm& form, const Control& control, std::int64_t item)
{
    if (item != form.ListIndex(control.name)) {
        form.SetListIndex(control.name, item);
    }
}

void Set(std::string_view owner, PaperForm& form, const Assignment& assignment)
{
    const Control control = FindControl(owner, form, assignment.control, [](ControlKind type) {
                                return type != ControlKind::Label;
                            }).control;
    switch (control.kind) {
    case ControlKind::Text:
        form.SetText(control.name, assignment.value);
        break;
    case ControlKind::Popup:
    case ControlKind::Radio:
        Choose(form, control, ItemIndex(control, assignment.value));
        break;
    case ControlKind::Check:
        form.Click(control.name, OnOrOff(control, assignment.value));
        break;
    case ControlKind::Color:
        form.SetColor(control.name, ColorFrom(control, assignment.value));
        break;
    case ControlKind::Label:
        break;
    }
}

void Type(std::string_view owner, PaperForm& form, const Assignment& assignment)
{
    const auto isText = [](ControlKind type) { return type == ControlKind::Text; };
    form.Type(FindControl(owner, form, assignment.control, isText).control.name, assignment.value);
}

MainWindow& GraphFor(std::string_view option, const PaperKind& kind, PaperWindow& window)
{
    auto* const graph = dynamic_cast<MainWindow*>(&window);
    if (graph == nullptr) {
        throw UsageError{std::string(option) + " goes with graph, not with " + std::string(kind.name)};
    }
    return *graph;
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
            GraphFor("--markers", kind, window);
            platform.openAnswer = FolderItem(action.argument);
            if (!platform.openAnswer.Exists()) {  // the page is made all the same, without markers
                std::cerr << "linealis-cli: " << action.argument << ": no such file, so there are no markers\n";
            }
            break;
        case Action::Kind::Wizard:
            Type("the wizard", GraphFor("--wizard", kind, window).Wizard().form,
                 Split("--wizard", action.argument));
            wizardUsed = true;
            break;
        }
    }
    if (wizardUsed) {
        GraphFor("--wizard", kind, window).Wizard().PushButton1_Action();
    }
}

}  // namespace linealis::cli
