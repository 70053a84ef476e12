#pragma once

#include <string>
#include <string_view>

namespace linealis {

/// A text that comes from a file, as a message has room for it: whole, or its first 60 characters and "...".
std::string Shortened(std::string_view text);

}  // namespace linealis
