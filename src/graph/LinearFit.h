#pragma once

#include "graph/DataRange.h"

#include <optional>

namespace linealis {

/// Tolerance for a number of steps, so that 0.3 is 3 steps of 0.1.
inline constexpr double ofAStep = 1e-9;

// Numbers on a page have at most 7 digits if they are not whole, and 12 decimals.
inline constexpr int digitsOfNumber = 7;
inline constexpr int mostDecimals = 12;

/// Fits a range of more than 0 to a linear axis, with a step whose multiples the page can write. Returns nothing if
/// the room is too small for any such step.
std::optional<AxisFit> FitLines(const DataRange& range, Fineness fineness, const AxisRoom& room);

}  // namespace linealis
