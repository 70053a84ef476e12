#include "cli/Actions.h"

#include "cli/Errors.h"
#include "pipeline/SetControl.h"

#include <string_view>

namespace linealis::cli {

namespace {

/// The argument must outlive what is returned.
Setting Split(std::string_view option, std::string_view argument)
{
    const std::size_t equals = argument.find('=');
    if (equals == std::string_view::npos) {
        throw UsageError{std::string(option) + " takes CONTROL=VALUE, not '" + std::string(argument) + "'"};
    }
    return {argument.substr(0, equals), argument.substr(equals + 1)};
}

/// Only kinds that can do what the option asks for go with it.
void CheckAbility(std::string_view option, const PaperKind& kind, bool able)
{
    if (!able) {
        throw UsageError{std::string(option) + " goes with graph, not with " + std::string(kind.name)};
    }
}

void DoInOrder(const std::vector<Action>& actions, const PaperKind& kind, PaperWindow& window,
               ScreenlessPlatform& platform)
{
    bool wizardUsed = false;
    for (const Action& action : actions) {
        switch (action.kind) {
        case Action::Kind::Set:
            SetControl(kind.name, window.form, Split("--set", action.argument));
            break;
        case Action::Kind::Type:
            TypeIntoControl(kind.name, window.form, Split("--type", action.argument));
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
            TypeIntoControl("the wizard", window.GetWizard()->Fields(), Split("--wizard", action.argument));
            wizardUsed = true;
            break;
        }
    }
    if (wizardUsed) {
        window.GetWizard()->PushButton1_Action();
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
    try {
        DoInOrder(actions, kind, window, platform);
    } catch (const UnknownInput& unknown) {
        throw Unknown(unknown);
    }
}

}  // namespace linealis::cli
