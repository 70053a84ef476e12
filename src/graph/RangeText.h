#pragma once

#include "graph/DataRange.h"
#include "pipeline/form/Form.h"

#include <string_view>

namespace linealis {

/// What TypeRange takes, for messages.
inline constexpr const char* rangeWords = "MIN:MAX or MIN:MAX:log";

/// Enters a range of data, MIN:MAX or MIN:MAX:log, into the fields of an axis in the wizard for ranges. Returns
/// false, and changes nothing, if the text is neither.
bool TypeRange(const Form& wizard, AxisName axis, std::string_view range);

}  // namespace linealis
