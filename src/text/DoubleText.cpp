#include "text/DoubleText.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <version>

namespace linealis {

namespace {

/// The most characters of a double with up to 12 decimals, and a zero byte.
constexpr std::size_t roomForADouble = 340;

}  // namespace

#if defined(_LIBCPP_VERSION) && _LIBCPP_VERSION < 14000

namespace {

/// Returns the number as "d.ddde+xx" with the fewest digits that read back as the same number.
std::string FewestDigits(double number)
{
    constexpr int mostDecimals = 16;
    std::array<char, 32> text{};
    for (int decimals = 0; decimals <= mostDecimals; ++decimals) {
        std::snprintf(text.data(), text.size(), "%.*e", decimals, number);
        if (std::strtod(text.data(), nullptr) == number) {
            break;
        }
    }
    return text.data();
}

}  // namespace

char* WriteFixed(char* out, double magnitude, int decimals)
{
    return out + std::snprintf(out, roomForADouble, "%.*f", decimals, magnitude);
}

std::string ShortestText(double number)
{
    const std::string scientific = FewestDigits(number);
    const std::size_t e = scientific.find('e');
    const std::size_t point = scientific.find('.');
    const int decimals = point < e ? static_cast<int>(e - point - 1) : 0;
    const int exponent = std::atoi(scientific.c_str() + e + 1);
    std::array<char, roomForADouble> fixed{};
    const int length =
        std::snprintf(fixed.data(), fixed.size(), "%.*f", decimals > exponent ? decimals - exponent : 0, number);
    return static_cast<std::size_t>(length) <= scientific.size() ? fixed.data() : scientific;
}

#else

char* WriteFixed(char* out, double magnitude, int decimals)
{
    return std::to_chars(out, out + roomForADouble, magnitude, std::chars_format::fixed, decimals).ptr;
}

std::string ShortestText(double number)
{
    std::array<char, 32> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), result.ptr};
}

#endif

}  // namespace linealis
