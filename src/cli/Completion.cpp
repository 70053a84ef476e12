#include "cli/Completion.h"

#include "check/Calibration.h"
#include "cli/Errors.h"
#include "cli/PageOutput.h"
#include "pipeline/form/FieldWords.h"
#include "platform/ScreenlessPlatform.h"

#include <algorithm>
#include <iostream>
#include <string_view>

namespace linealis::cli {

namespace {

using Words = std::vector<std::string>;

/// Adds the word if it begins with what was typed.
void Offer(Completions& completions, std::string_view typed, std::string word, std::string_view help)
{
    if (word.starts_with(typed)) {
        completions.words.push_back({std::move(word), std::string(help)});
    }
}

void OfferKinds(Completions& completions, std::string_view typed)
{
    for (const PaperKind& kind : PaperKinds()) {
        Offer(completions, typed, std::string(kind.name), kind.title);
    }
}

void OfferPresets(Completions& completions, std::string_view typed)
{
    for (const Preset& preset : Presets()) {
        Offer(completions, typed, std::string(preset.id), preset.title);
    }
}

/// Returns all values of a check box, popup, or radio group. Empty for other controls, which accept too many to
/// list.
std::vector<std::string> ValuesOf(Control& control)
{
    if (control.Kind() == ControlKind::Check) {
        return {"on", "off"};
    }
    if (control.Kind() == ControlKind::Popup || control.Kind() == ControlKind::Radio) {
        const auto& items = static_cast<Choice&>(control).Items();
        return {items.begin(), items.end()};
    }
    return {};
}

/// Offers completions of CONTROL=VALUE: before the "=" controls by alias, or by name once a capital letter is
/// typed; after it the values of the control. Skips controls that `isWanted` rejects.
void OfferSettings(Completions& completions, const Form& form, std::string_view typed,
                   bool (*isWanted)(const Control& control))
{
    const std::size_t equals = typed.find('=');
    if (equals != std::string_view::npos) {
        const std::string_view name = typed.substr(0, equals);
        if (Control* const control = FindByNameOrAlias(form, name); control != nullptr && isWanted(*control)) {
            for (const std::string& value : ValuesOf(*control)) {
                Offer(completions, typed, std::string(name) + "=" + value, "");
            }
        }
        return;
    }
    const bool byName = !typed.empty() && typed.front() >= 'A' && typed.front() <= 'Z';
    for (const Control* const control : form.Controls()) {
        if (isWanted(*control)) {
            const std::string name = byName ? std::string(control->Name()) : std::string(control->Alias());
            Offer(completions, typed, name + "=", WholeName(form, *control).English());
        }
    }
}

/// Offers the items of the popup in the wizard for ranges, for whatever kind has one.
void OfferFineness(Completions& completions, std::string_view typed)
{
    ScreenlessPlatform platform;
    for (const PaperKind& kind : PaperKinds()) {
        const std::unique_ptr<PaperWindow> window = MakeWindow(kind, platform);
        if (RangeWizard* const wizard = window->GetRangeWizard()) {
            for (const std::string_view item : wizard->Fields().Get<Popup>("PopupFineness").Items()) {
                Offer(completions, typed, std::string(item), "");
            }
        }
    }
}

bool IsNoLabel(const Control& control)
{
    return control.Kind() != ControlKind::Label;
}

bool IsText(const Control& control)
{
    return control.Kind() == ControlKind::Text;
}

/// Whether a value follows the option on the command line.
bool TakesArgument(const CLI::Option& option)
{
    return !option.get_positional() && option.get_expected_max() > 0;
}

/// Returns the option of the command that the word names, or null.
const CLI::Option* OptionOf(const CLI::App& command, const std::string& word)
{
    return word.starts_with('-') ? command.get_option_no_throw(word) : nullptr;
}

/// Returns the kind of the first word that is a source, or null if there is none. Skips the values of options other
/// than --preset and --form.
const PaperKind* KindAmong(const CLI::App& command, const Words& words)
{
    for (std::size_t i = 0; i < words.size(); ++i) {
        const CLI::Option* const before = i == 0 ? nullptr : OptionOf(command, words[i - 1]);
        const bool isOfOption = before != nullptr && TakesArgument(*before);
        if (isOfOption && !before->check_lname("preset") && !before->check_lname("form")) {
            continue;
        }
        try {
            return &KindOf(SourceNamed(words[i]));
        } catch (const UsageError&) {
        } catch (const WorkError&) {
        }
    }
    return nullptr;
}

/// Returns the completions of an argument, identified by its placeholder in the help, such as "KIND".
Completions CompleteValue(const CLI::App& command, const std::string& argument, const std::string& typed,
                          const Words& words)
{
    Completions completions;
    if (argument == "COMMAND") {
        return CompleteCommand(*command.get_parent(), typed);
    }
    if (argument == "KIND") {
        OfferKinds(completions, typed);
    } else if (argument == "PRESET") {
        OfferPresets(completions, typed);
    } else if (argument == "SOURCE") {
        OfferKinds(completions, typed);
        OfferPresets(completions, typed);
        completions.files = true;
    } else if (argument == "PAPER") {
        for (const CalibrationPaper& paper : CalibrationPapers()) {
            Offer(completions, typed, std::string(paper.name), "");
        }
    } else if (argument == "FORMAT") {
        for (const PageFormat& format : PageFormats()) {
            Offer(completions, typed, std::string(format.name), format.words);
        }
    } else if (argument == "DEVICE") {
        for (const Device& device : Devices()) {
            Offer(completions, typed, std::string(device.name), device.title);
        }
    } else if (argument == "DIR") {
        completions.folders = true;
    } else if (argument == "FILE") {
        completions.files = true;
    } else if (argument == "FINENESS") {
        OfferFineness(completions, typed);
    } else if (argument == "MIN:MAX[:log]") {
        // any numbers
    } else if (const PaperKind* const kind = KindAmong(command, words)) {
        ScreenlessPlatform platform;
        const std::unique_ptr<PaperWindow> window = MakeWindow(*kind, platform);
        if (argument != "WIZARD=TEXT") {
            OfferSettings(completions, window->form, typed, argument == "FIELD=TEXT" ? IsText : IsNoLabel);
        } else if (Wizard* const wizard = window->GetWizard()) {
            OfferSettings(completions, wizard->Fields(), typed, IsText);
        }
    }
    return completions;
}

void OfferOptions(Completions& completions, const CLI::App& command, const std::string& typed)
{
    for (const CLI::Option* const option : command.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            Offer(completions, typed, "--" + name, option->get_description());
        }
    }
}

}  // namespace

Completions CompleteCommand(const CLI::App& app, const std::string& word)
{
    Completions completions;
    if (word.starts_with('-')) {
        OfferOptions(completions, app, word);
        return completions;
    }
    for (const CLI::App* const command : app.get_subcommands(nullptr)) {
        Offer(completions, word, command->get_name(), command->get_description());
    }
    return completions;
}

Completions CompleteArgument(const CLI::App& command, const std::vector<std::string>& words)
{
    const std::string& typed = words.back();
    if (words.size() > 1) {
        const CLI::Option* const before = OptionOf(command, words[words.size() - 2]);
        if (before != nullptr && TakesArgument(*before)) {
            return CompleteValue(command, before->get_type_name(), typed, words);
        }
    }
    Completions completions;
    if (typed.starts_with('-')) {
        OfferOptions(completions, command, typed);
        return completions;
    }
    for (const CLI::Option* const option : command.get_options()) {
        if (option->get_positional()) {
            return CompleteValue(command, option->get_type_name(), typed, words);
        }
    }
    return completions;
}

void Print(const Completions& completions)
{
    for (const Completion& completion : completions.words) {
        std::cout << completion.word << '\t' << completion.help << '\n';
    }
    std::cout << (completions.files ? ":files\n" : "") << (completions.folders ? ":folders\n" : "");
}

}  // namespace linealis::cli
