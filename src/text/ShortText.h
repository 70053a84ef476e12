#pragma once

#include <string>
#include <string_view>

namespace linealis {

/// Shortens a text that comes from a file or from the user, so that it fits into a message. Returns the whole text,
/// or its first 60 characters followed by "...".
std::string Shortened(std::string_view text);

}  // namespace linealis
