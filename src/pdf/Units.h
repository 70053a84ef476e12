#pragma once

#include <cmath>

namespace linealis {

// The units of forms and pages. Existing pages depend on every digit, so none is mended.

inline constexpr double pointsPerInch = 72.0;

/// Points of a centimetre on a form; 72 / 2.54 rounded to 8 digits.
inline constexpr double pointsPerCm = 28.346457;

/// Points of a centimetre of a custom paper size, which has a digit more.
inline constexpr double pointsPerCmOfCustomSize = 28.3464567;

/// What a length on a form is multiplied by, and a count per length divided by, on the way to centimetres.
inline constexpr double cmPerInch = 2.54;

/// The height of an equilateral triangle of side 1, which is the cosine of 30 degrees. The root as the library
/// works it out: a literal might differ from it in the last bit.
inline const double cosine30 = std::sqrt(0.75);

}  // namespace linealis
