#pragma once

#include <cmath>

namespace linealis {

// The units of page arithmetic. Existing pages depend on exactly these digits.

inline constexpr double pointsPerInch = 72.0;

// Exact, for rulers, pictures and what is told to the user. Lengths of forms use the rounded pointsPerCm instead.
inline constexpr double mmPerInch = 25.4;
inline constexpr double pointsPerMm = pointsPerInch / mmPerInch;
inline constexpr double mmPerPoint = mmPerInch / pointsPerInch;

/// Points per centimeter of a length on a form: 72 / 2.54 rounded to 8 significant digits.
inline constexpr double pointsPerCm = 28.346457;

/// Points per centimeter of a custom paper size, which has one more digit.
inline constexpr double pointsPerCmOfCustomSize = 28.3464567;

/// Conversion of form fields from inches to centimeters: lengths are multiplied by it, counts per length are
/// divided by it.
inline constexpr double cmPerInch = 2.54;

/// The sine and cosine of 30 degrees. The cosine must be computed as a square root; any other way differs in the
/// last bit.
inline constexpr double sine30 = 0.5;
inline const double cosine30 = std::sqrt(0.75);

}  // namespace linealis
