#pragma once

#include <string>
#include <string_view>

namespace linealis::web {

/// Returns a PNG file with its resolution and a UTF-8 text, which `TextInPng` finds, before everything but its
/// header. Returns bytes that are no PNG file as they are.
std::string WithResolutionAndText(std::string_view png, double dotsPerInch, std::string_view text);

}  // namespace linealis::web
