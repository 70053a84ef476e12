#pragma once

#include "pipeline/form/Form.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// Thrown for an unknown name or value. Carries the possible ones for the message.
struct UnknownInput {
    std::string what;   ///< for example "control of grid"
    std::string given;  ///< shortened
    std::vector<std::string> possible;
};

/// A control, by name or alias, and its new value.
struct Setting {
    std::string_view control;
    std::string_view value;
};

/// Sets a control as the user would. The value of a text field may be a length with a unit (TypedNumber). A popup
/// or radio group takes the text of an item or #INDEX. A check box takes on, true, yes, or 1, and off, false, no,
/// or 0. A color is #RRGGBB, #RGB, or a name (ColorNamed). Items, on and off, and colors match in any case. `owner`
/// names the owner of the form in errors. Throws UnknownInput if the control does not exist or does not accept the
/// value.
void SetControl(std::string_view owner, const Form& form, const Setting& setting);

/// Returns the value of the control in a form that SetControl accepts. For a label, returns its text.
std::string ValueOf(const Control& control);

/// Returns what the control held in an earlier state of it, as SetControl takes it.
std::string ValueIn(const Control& control, const ControlState& state);

/// Types the value into a text field as the user would. Throws UnknownInput if there is no such field.
void TypeIntoControl(std::string_view owner, const Form& form, const Setting& setting);

}  // namespace linealis
