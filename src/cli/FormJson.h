#pragma once

#include "pipeline/Controls.h"

#include <nlohmann/json.hpp>

namespace linealis::cli {

using Json = nlohmann::ordered_json;

/// What a control is and holds, and what else it could hold.
Json ControlJson(Control& control);

}  // namespace linealis::cli
