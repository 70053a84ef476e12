#pragma once

#include "pipeline/form/Form.h"

namespace linealis {

/// Converts a form to new units: switches the unit in each label that names it, and converts the number in each
/// field with a unit rule. `toInches` gives the direction; the form must be in the other unit.
void ConvertUnits(const Form& form, bool toInches);

}  // namespace linealis
