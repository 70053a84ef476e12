#pragma once

#include "text/Message.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// Returns the message "unknown WHAT 'GIVEN'; possible: ...", with the nearest match first. Lists only the nearest
/// five of more than 18.
Message UnknownMessage(std::string_view what, std::string_view given, std::vector<std::string> possible);

/// Returns the message in English.
std::string UnknownText(std::string_view what, std::string_view given, std::vector<std::string> possible);

}  // namespace linealis
