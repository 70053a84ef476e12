#pragma once

#include "pipeline/form/Form.h"

#include <span>
#include <string>
#include <string_view>

namespace linealis {

// What is said about the fields of a form besides their captions.

/// The name of a control that tells it from all others of its form, for who does not see where it stands: "X Axis,
/// Weight", "Top margin".
std::string WholeName(const Form& form, const Control& control);

/// The control that the row of this one begins with on the form; the control itself if it does.
const Control& FirstInRow(const Form& form, const Control& control);

/// The control that governs what has the role, the most particular first and text fields before others; null if none
/// does.
const Control* GovernorOf(const Form& form, Role role);

/// The control of that name or alias that is no label, or null.
Control* FindByNameOrAlias(const Form& form, std::string_view nameOrAlias);

/// The lengths that the fields stand for, as the page uses them: "= 5.0 mm", "= 12.7, 12.7 mm". Lines per unit are
/// said by their distance. Fields that stand for no length are passed over; empty if none does.
std::string Readout(std::span<Control* const> fields, LengthUnit unit);

/// The unit of the field's number: "in", "cm", "pt", "%". Empty if it has none.
std::string_view UnitWord(const Form& form, const TextField& field);

/// What to enter into the field, and which lines it sets, if it is a line weight: "Weight of the vertical lines.
/// Line width in points (1/72 inch), whatever the unit".
std::string HintOf(const TextField& field);

}  // namespace linealis
