#pragma once

#include <cmath>

namespace linealis {

// The units of page arithmetic, each in the digits that existing pages depend on.

inline constexpr double pointsPerInch = 72.0;
inline constexpr double pointsPerCm = 28.346457;               ///< of every length but a custom paper size
inline constexpr double pointsPerCmOfCustomSize = 28.3464567;  ///< a custom paper size has its own, longer constant
inline constexpr double cmPerInch = 2.54;  ///< by which a change of units converts a form's texts

/// The sine and cosine of 30 degrees. The cosine is a root: any other way to it differs in the last bit.
inline constexpr double sine30 = 0.5;
inline const double cosine30 = std::sqrt(0.75);

}  // namespace linealis
