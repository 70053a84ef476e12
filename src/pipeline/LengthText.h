#pragma once

#include "pipeline/Form.h"

#include <optional>
#include <string_view>

namespace linealis {

/// What the number in a field is in, if it is a length; otherwise no unit.
LengthUnit UnitOf(const Form& form, const TextField& field);

/// The length that a person has typed with a unit or as a fraction, in the form's unit: "5mm", "2.5 cm", "1/4in",
/// "1 1/2\"", "12pt", "1/4". What has no unit is in the form's. Nothing if the text is a plain number, which needs
/// no help, or no length at all, or if the form has no unit.
std::optional<double> TypedLength(std::string_view text, LengthUnit formUnit);

}  // namespace linealis
