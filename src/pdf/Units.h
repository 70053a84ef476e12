#pragma once

#include <cmath>

namespace linealis {

// The units of page arithmetic, each in the digits that existing pages depend on.

inline constexpr double pointsPerInch = 72.0;

/// Points of a centimeter on a form; 72 / 2.54 rounded to 8 digits.
inline constexpr double pointsPerCm = 28.346457;

/// Points of a centimeter of a custom paper size, which has a digit more.
inline constexpr double pointsPerCmOfCustomSize = 28.3464567;

/// What a length on a form is multiplied by, and a count per length divided by, on the way to centimeters.
inline constexpr double cmPerInch = 2.54;

/// The sine and cosine of 30 degrees. The cosine is a root: any other way to it differs in the last bit.
inline constexpr double sine30 = 0.5;
inline const double cosine30 = std::sqrt(0.75);

}  // namespace linealis
