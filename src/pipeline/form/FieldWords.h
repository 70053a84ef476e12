#pragma once

#include "pipeline/form/Form.h"

#include <span>
#include <string_view>

namespace linealis {

// Texts about the fields of a form, other than their captions.

/// Returns a name that distinguishes the control from all others of its form without seeing the form: "X Axis,
/// Weight", "Top margin".
Message WholeName(const Form& form, const Control& control);

/// Returns the first control in the row of this one, which may be the control itself.
const Control& FirstInRow(const Form& form, const Control& control);

/// Returns the control that governs what has the role: the most particular one, text fields before others. Null if
/// none does.
const Control* GovernorOf(const Form& form, Role role);

/// Returns the control with that name or alias, or null. Never returns a label.
Control* FindByNameOrAlias(const Form& form, std::string_view nameOrAlias);

/// Returns the lengths that the fields stand for, as the page uses them: "= 5.0 mm", "= 12.7, 12.7 mm". Lines per
/// unit are converted to their distance. Skips fields that are not lengths; returns an empty text if none is.
Message Readout(std::span<Control* const> fields, LengthUnit unit);

/// Returns the unit of the number in the field: "in", "cm", "pt", "%". Empty if it has none.
std::string_view UnitWord(const Form& form, const TextField& field);

/// Returns why what a box draws or enables has no effect: "Show Axes is off".
Message IsOff(const CheckBox& box);

/// Returns a hint on what to enter and, for a line weight, which lines it applies to: "Weight of the vertical
/// lines. Line width in points (1/72 inch), whatever the unit".
Message HintOf(const TextField& field);

}  // namespace linealis
