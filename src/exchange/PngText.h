#pragma once

#include <string>
#include <string_view>

namespace linealis {

inline constexpr std::string_view pngSignature = "\x89PNG\r\n\x1A\n";

/// Returns the text that a PNG file carries, or an empty text if it carries none or is damaged before it. Does not
/// verify checksums.
std::string TextInPng(std::string_view png);

}  // namespace linealis
