#pragma once

#include <string>

namespace linealis {

/// Formats a value that is given in multiples of pi: "0", "PI", "-3PI/2", "1PI/4". Halves, quarters, and eighths
/// become fractions; any other number is followed by "PI".
std::string mytrigstring(double value);

/// Returns the z at which the standard normal cumulative distribution is p; in spite of its name, it does not
/// invert the error function. Returns -999 if p is not between 0 and 1, both excluded.
///
/// Source: the rational approximation of P. J. Acklam without its refinement step. The relative error is below
/// 1.15e-9.
double ComputeInverseERF(double p);

/// Returns the position of a percentage on the normal probability scale: 0 at 0.1 percent, 1 at 99.9 percent. The
/// position of a percentage that is not between 0 and 100 is far below 0.
double ShareOfProbabilityScale(double percentage);

/// Returns the error function, computed as the first 86 terms of its Maclaurin series. The series is unusable far
/// from 0, about from 6 on. No page needs it.
double ComputeERF(double x);

/// Returns n! as a double, and 1 if n is 0 or less.
double factorial(int n);

/// Returns the decimal logarithm, computed as a quotient of natural logarithms: axes depend on its last bit. Not
/// finite for 0 and below.
double log10OnAxis(double value);

}  // namespace linealis
