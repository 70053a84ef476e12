#pragma once

namespace linealis {

/// Pi as all page arithmetic has it. Existing pages depend on its digits.
inline constexpr double pi = 3.1415927;

struct Point {
    double x;
    double y;
};

/// The middle of two points.
inline Point FindCenterOfTwoPoints(double x1, double y1, double x2, double y2)
{
    return {(x2 + x1) / 2.0, (y2 + y1) / 2.0};
}

}  // namespace linealis
