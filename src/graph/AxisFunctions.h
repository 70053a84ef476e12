#pragma once

#include <string>

namespace linealis {

/// The value as a multiple of pi, as text: "0", "PI", "-3PI/2", "1PI/4". Halves, quarters and eighths are written
/// as fractions, anything else as the number followed by "PI".
std::string mytrigstring(double value);

/// The inverse of the standard normal cumulative distribution, in spite of the name: the z for which the
/// distribution gives p. -999 for a p that is not between 0 and 1.
///
/// Source: the rational approximation of P. J. Acklam, without refinement; relative error below 1.15e-9.
double ComputeInverseERF(double p);

/// Where a percentage lies on the normal probability scale: 0 at 0.1 per cent, 1 at 99.9 per cent.
double ShareOfProbabilityScale(double percentage);

/// The error function, as the first 86 terms of its Maclaurin series. No page needs it.
double ComputeERF(double x);

/// n! as a float. 1 for 0 and below.
double factorial(int n);

/// The decimal logarithm, as a quotient of natural ones: axes depend on its last bit.
double log10OnAxis(double value);

}  // namespace linealis
