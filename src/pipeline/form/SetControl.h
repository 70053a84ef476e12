#pragma once

#include "pipeline/form/Form.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// A name or a value was given that there is not.
struct UnknownInput {
    std::string what;   ///< such as "control of grid"
    std::string given;  ///< shortened
    std::vector<std::string> possible;
};

/// A control by its name or its alias, and what it is to hold.
struct Setting {
    std::string_view control;
    std::string_view value;
};

/// Sets a control as the user would: a text, where a length may have a unit (TypedNumber); the item of a popup or
/// radio group, or its #INDEX; on or off, also true, yes or 1 and false, no or 0; a color as #RRGGBB, #RGB or a
/// name (ColorNamed). Items and "on" are the same in any case. `owner` is who the form belongs to, for the error.
/// Throws UnknownInput if there is no such control or it has no such value.
void SetControl(std::string_view owner, const Form& form, const Setting& setting);

/// What the control holds, as SetControl takes it. Of a label: its text.
std::string ValueOf(const Control& control);

/// What the control held in an earlier state of it, as SetControl takes it.
std::string ValueIn(const Control& control, const ControlState& state);

/// Types the value into a text field, as the user would. Throws UnknownInput if there is no such field.
void TypeIntoControl(std::string_view owner, const Form& form, const Setting& setting);

}  // namespace linealis
