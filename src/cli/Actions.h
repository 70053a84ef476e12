#pragma once

#include "kinds/PaperKinds.h"
#include "platform/ScreenlessPlatform.h"

#include <string>
#include <vector>

namespace linealis::cli {

/// One thing that the user does to a form before it is shown, saved or made into a page.
struct Action {
    enum class Kind { Set, Type, Load, Markers, Wizard };

    Kind kind;
    std::string argument;  ///< CONTROL=VALUE, CONTROL=TEXT or a file name
};

/// Does them in order; then presses OK in the wizard if one of them was for it. Throws UsageError or WorkError at
/// the first that cannot be done. Returns what the page will not show: a control that has no effect on it, a text
/// of the wizard that is no number.
PageWarnings Apply(const std::vector<Action>& actions, const PaperKind& kind, PaperWindow& window,
                   ScreenlessPlatform& platform);

/// Adds that the control has no effect on the page, and why, if it has none.
void WarnIfIdle(const PaperForm& form, const Control& control, PageWarnings& warnings);

/// Loads a settings file into the form. Throws WorkError.
void Load(const std::string& fileName, PaperWindow& window);

}  // namespace linealis::cli
