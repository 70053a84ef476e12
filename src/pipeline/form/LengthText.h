#pragma once

#include "pipeline/form/Form.h"

#include <optional>
#include <string_view>

namespace linealis {

/// What the number in a field is in, if it is a length in inches or centimeters; otherwise no unit.
LengthUnit UnitOf(const Form& form, const TextField& field);

/// The number that a text with a unit, or a fraction, stands for in a field of that quantity: "5mm", "2.5 cm",
/// "1/4in", "1 1/2\"", "12pt", "1/4". A length becomes one of the field's own unit, or how many of it fit into the
/// form's unit. A fraction without a unit is in the field's own. Nothing if the text is a plain number, which needs
/// no help, if it is no length at all, or has a unit where the field holds no length.
std::optional<double> TypedNumber(std::string_view text, Quantity quantity, LengthUnit formUnit);

/// The same for a field of a form. Nothing for prose.
std::optional<double> TypedNumber(std::string_view text, const Form& form, const TextField& field);

}  // namespace linealis
