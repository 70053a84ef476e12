#pragma once

#include "kinds/PaperKinds.h"
#include "platform/ScreenlessPlatform.h"

#include <string>
#include <vector>

namespace linealis::cli {

/// One thing that the user does to a form before it is shown, saved, or made into a page.
struct Action {
    enum class Kind { Set, Type, Load, Markers, Wizard, XRange, YRange, Fineness };

    Kind kind;
    std::string argument;  ///< CONTROL=VALUE for Set, CONTROL=TEXT for Type and Wizard, MIN:MAX or
                           ///< MIN:MAX:log for a range, a word for Fineness, otherwise a file name
};

/// Performs the actions in order. If any of them fills in a wizard, then presses its OK after all other actions.
/// Throws UsageError or WorkError at the first action that fails; earlier actions stay in effect. Returns warnings
/// about what the page will not show: controls that have no effect on it, and texts of the wizard that are not
/// numbers.
PageWarnings Apply(const std::vector<Action>& actions, const PaperKind& kind, PaperWindow& window,
                   ScreenlessPlatform& platform);

/// Returns the control that Set or Type changes, or null for other actions and if there is no such control.
const Control* ControlOf(const Action& action, const Form& form);

/// Loads a settings file into the form. Throws WorkError if the file cannot be read.
void Load(const std::string& fileName, PaperWindow& window);

}  // namespace linealis::cli
