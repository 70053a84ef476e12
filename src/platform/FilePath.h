#pragma once

#include <filesystem>
#include <string_view>

namespace linealis {

/// Returns the path that a text in UTF-8 names. A path made from a std::string would be in the encoding of the
/// system, which is another one on Windows; path texts are in UTF-8 everywhere. Returns an empty path if the system
/// has no path with that text.
std::filesystem::path PathOf(std::string_view utf8);

}  // namespace linealis
