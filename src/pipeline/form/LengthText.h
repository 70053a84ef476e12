#pragma once

#include "pipeline/form/Form.h"

#include <optional>
#include <string_view>

namespace linealis {

/// Returns the unit of the number in a field, or no unit if it is not a length in inches or centimeters.
LengthUnit UnitOf(const Form& form, const TextField& field);

/// Returns the number that a text with a unit or a fraction stands for in a field of that quantity: "5mm", "2.5
/// cm", "1/4in", "1 1/2\"", "12pt", "1/4". A length is converted to the unit of the field, or to the count that
/// fits into the unit of the form. A fraction without a unit is in the unit of the field. Returns nothing if the
/// text is a plain number, which needs no conversion, if it is not a length, or if it has a unit and the field is
/// not a length.
std::optional<double> TypedNumber(std::string_view text, Quantity quantity, LengthUnit formUnit);

/// Like the function above, for a field of a form. Returns nothing for a prose field.
std::optional<double> TypedNumber(std::string_view text, const Form& form, const TextField& field);

}  // namespace linealis
