#pragma once

#include "platform/Color.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// Returns the color 0xRRGGBB.
Color ColorOf(std::uint32_t number);

/// Returns the color with that name in CSS (Color Module Level 4), ignoring case, or nothing if there is none.
std::optional<Color> ColorNamed(std::string_view name);

/// Returns all names that ColorNamed knows, in lowercase and in alphabetical order.
std::vector<std::string> ColorNames();

}  // namespace linealis
