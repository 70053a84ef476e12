#pragma once

#include "pipeline/form/Form.h"

namespace linealis {

/// What a change of units does to a form: each label that names the unit names the new one, and each field with a
/// unit rule gets its number in the new unit. `toInches` tells the way; the form is taken to be in the other unit.
void ConvertUnits(const Form& form, bool toInches);

}  // namespace linealis
