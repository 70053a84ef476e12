#pragma once

#include "platform/Color.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// The color whose channels are the bytes of the number, red the highest: 0xRRGGBB.
Color ColorOf(std::uint32_t number);

/// The color that has the name in CSS (Color Module Level 4), in any case; nothing if none has.
std::optional<Color> ColorNamed(std::string_view name);

std::vector<std::string> ColorNames();

}  // namespace linealis
