#pragma once

namespace linealis {

/// Pi, as used by all page arithmetic. Existing pages depend on exactly these digits.
inline constexpr double pi = 3.1415927;

/// A point of the page, in points (1/72 inch).
struct Point {
    double x;
    double y;
};

/// Returns the midpoint of two points.
inline Point FindCenterOfTwoPoints(double x1, double y1, double x2, double y2)
{
    return {(x2 + x1) / 2.0, (y2 + y1) / 2.0};
}

}  // namespace linealis
