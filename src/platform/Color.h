#pragma once

#include <cstdint>

namespace linealis {

/// A 24-bit RGB color with one byte per channel.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Color&, const Color&) = default;
};

inline constexpr Color black{0, 0, 0};
inline constexpr Color white{255, 255, 255};

}  // namespace linealis
