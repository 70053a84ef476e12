#pragma once

#include "pipeline/form/PaperForm.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace linealis {

/// The screen of a device, held upright.
struct Screen {
    std::int64_t width = 0;   ///< pixels
    std::int64_t height = 0;  ///< pixels
    double dotsPerInch = 0.0;
    int grays = 0;  ///< the number of grays that it shows; 0 for a screen with colors
};

/// A device that pages are read or written on.
struct Device {
    std::string_view name;   ///< for the command line
    std::string_view title;  ///< for users
    Screen screen;
    std::string_view source;  ///< where the figures of the screen come from, and their date
};

/// Returns all devices, in the order of their names.
std::span<const Device> Devices();

/// The ranges of a screen that is described by its numbers.
inline constexpr std::int64_t mostScreenSide = 10'000;  // pixels
inline constexpr double leastScreenDpi = 30.0;
inline constexpr double mostScreenDpi = 1200.0;

/// Returns the screen of the device with that name, in any case, or the screen of numbers such as "1404x1872@226":
/// pixels across and down, and pixels per inch; 16 grays. Returns nothing if it is neither, or if a number is out
/// of range.
std::optional<Screen> ScreenNamed(std::string_view text);

/// Gives the form the paper of the screen, as a custom size: whole points, of which the last may lie beyond the
/// screen.
void LayOut(const Screen& screen, PaperForm& form);

/// Returns the screen as the form holds it: turned if the paper is wider than high.
Screen Turned(const Screen& screen, const PaperSize& paper);

}  // namespace linealis
