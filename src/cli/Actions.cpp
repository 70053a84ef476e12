#include "cli/Actions.h"

#include "check/PageCheck.h"
#include "cli/Errors.h"
#include "cli/FileNames.h"
#include "graph/RangeText.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/SetControl.h"
#include "platform/FilePath.h"

#include <string_view>

namespace linealis::cli {

namespace {

/// Splits CONTROL=VALUE at the first "=". The result points into `argument`. Throws UsageError if there is no "=".
Setting Split(std::string_view option, std::string_view argument)
{
    const std::size_t equals = argument.find('=');
    if (equals == std::string_view::npos) {
        throw UsageError{std::string(option) + " takes CONTROL=VALUE, not '" + std::string(argument) + "'"};
    }
    return {argument.substr(0, equals), argument.substr(equals + 1)};
}

/// Throws UsageError unless the kind supports the option.
void CheckAbility(std::string_view option, const PaperKind& kind, bool able)
{
    if (!able) {
        throw UsageError{std::string(option) + " works with graph, not with " + std::string(kind.name)};
    }
}

/// Enters a range into the fields of one axis in the wizard for ranges. Throws UsageError if it is none.
void EnterRange(std::string_view option, const std::string& argument, const Form& wizard, AxisName axis)
{
    if (!TypeRange(wizard, axis, argument)) {
        throw UsageError{std::string(option) + " takes " + rangeWords + ", not '" + argument + "'"};
    }
}

/// Fits the entered ranges to the paper. Throws UsageError if that is not possible.
void FitRanges(RangeWizard& wizard, bool hasRange)
{
    if (!hasRange) {
        throw UsageError{"--fineness goes with --x-range or --y-range"};
    }
    if (const Message problem = wizard.Problem(); !problem.IsEmpty()) {
        throw UsageError{problem.English()};
    }
    wizard.PushButton1_Action();
}

/// Adds a warning for each text field of the wizard that has a remark, such as a text that is not a number.
void WarnOfWizard(const Form& wizard, PageWarnings& warnings)
{
    for (const Control* const control : wizard.Controls()) {
        if (control->Kind() != ControlKind::Text) {
            continue;
        }
        if (const Message remark = static_cast<const TextField&>(*control).Remark(); !remark.IsEmpty()) {
            warnings.push_back({"wizard", "", Message("the wizard's %1: %2", WholeName(wizard, *control), remark)});
        }
    }
}

/// Adds a warning for each named control that has no effect on the page. All names must exist.
void WarnOfIdle(const PaperForm& form, const std::vector<std::string_view>& given, PageWarnings& warnings)
{
    for (const std::string_view name : given) {
        WarnIfIdle(form, *FindByNameOrAlias(form, name), warnings);
    }
}

PageWarnings DoInOrder(const std::vector<Action>& actions, const PaperKind& kind, PaperWindow& window,
                       ScreenlessPlatform& platform)
{
    std::vector<std::string_view> given;
    bool wizardUsed = false;
    bool rangeUsed = false;
    bool finenessUsed = false;
    const auto fieldsOfRanges = [&](std::string_view option) -> const Form& {
        CheckAbility(option, kind, window.GetRangeWizard() != nullptr);
        return window.GetRangeWizard()->Fields();
    };
    const auto set = [&](const Setting& setting) {
        SetControl(kind.name, window.form, setting);
        given.push_back(setting.control);
    };
    for (const Action& action : actions) {
        switch (action.kind) {
        case Action::Kind::Set:
            set(Split("--set", action.argument));
            break;
        case Action::Kind::Type:
            TypeIntoControl(kind.name, window.form, Split("--type", action.argument));
            break;
        case Action::Kind::Load:
            CheckIsSettings("--load", action.argument, kind);
            Load(action.argument, window);
            break;
        case Action::Kind::Markers:
            CheckAbility("--markers", kind, kind.hasMarkers);
            platform.openAnswer = FolderItem(PathOf(action.argument));
            if (!platform.openAnswer.Exists()) {  // not an error: the page is made without markers
                Complain(action.argument + ": no such file, so no markers are drawn");
            }
            break;
        case Action::Kind::Wizard:
            CheckAbility("--wizard", kind, window.GetWizard() != nullptr);
            TypeIntoControl("the wizard", window.GetWizard()->Fields(), Split("--wizard", action.argument));
            wizardUsed = true;
            break;
        case Action::Kind::XRange:
            EnterRange("--x-range", action.argument, fieldsOfRanges("--x-range"), AxisName::x);
            rangeUsed = true;
            break;
        case Action::Kind::YRange:
            EnterRange("--y-range", action.argument, fieldsOfRanges("--y-range"), AxisName::y);
            rangeUsed = true;
            break;
        case Action::Kind::Fineness:
            SetControl("the range of data", fieldsOfRanges("--fineness"), {"fineness", action.argument});
            finenessUsed = true;
            break;
        }
    }
    PageWarnings warnings;
    if (wizardUsed) {
        WarnOfWizard(window.GetWizard()->Fields(), warnings);
        window.GetWizard()->PushButton1_Action();
    }
    if (rangeUsed || finenessUsed) {
        FitRanges(*window.GetRangeWizard(), rangeUsed);
    }
    // Only now: a later action can give an effect to a control that had none when it was set.
    WarnOfIdle(window.form, given, warnings);
    return warnings;
}

}  // namespace

const Control* ControlOf(const Action& action, const Form& form)
{
    const bool isOfField = action.kind == Action::Kind::Set || action.kind == Action::Kind::Type;
    return isOfField
               ? FindByNameOrAlias(form, std::string_view(action.argument).substr(0, action.argument.find('=')))
               : nullptr;
}

void Load(const std::string& fileName, PaperWindow& window)
{
    if (const std::error_code error = window.LoadSettings(FolderItem(PathOf(fileName)))) {
        throw WorkError{fileName + ": " + error.message()};
    }
}

PageWarnings Apply(const std::vector<Action>& actions, const PaperKind& kind, PaperWindow& window,
                   ScreenlessPlatform& platform)
{
    try {
        return DoInOrder(actions, kind, window, platform);
    } catch (const UnknownInput& unknown) {
        throw Unknown(unknown);
    }
}

}  // namespace linealis::cli
