#pragma once

#include "pipeline/form/Form.h"

#include <string>

namespace linealis {

/// The text of a number field `steps` steps on, or back if negative. A step fits what the field means: a whole, a
/// tenth of a point, a twentieth of an inch, a millimeter; it is finer where the text has more decimals. What has
/// no sense below 0 ends there. Prose stays as it is, and
/// so does a number that is too large to step.
std::string Stepped(Meaning meaning, const std::string& text, double steps, LengthUnit unit);

}  // namespace linealis
