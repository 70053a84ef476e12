#pragma once

#include "pipeline/form/Form.h"

#include <string>

namespace linealis {

/// Returns the text of a number field after `steps` steps, backward if negative. The size of a step depends on the
/// meaning: 1, 0.1 point, 0.05 inch, or 0.1 centimeter; it is finer if the text has more decimals. Stops at 0 if
/// negative values make no sense. Returns a text field, or a number too large to step, unchanged.
std::string Stepped(Meaning meaning, const std::string& text, double steps, LengthUnit unit);

}  // namespace linealis
